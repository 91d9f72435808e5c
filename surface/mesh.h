// The triangle mesh of a height grid: positions, normals and colours, six vertices a cell.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "resfile/height_grid.h"
#include "surface/bitmap_drape.h"
#include "surface/heat_map_scale.h"
#include "surface/surface_limits.h"

namespace morvane {

/// Grid points per model unit in x and y.
inline constexpr float kPointsPerUnit = 1000.0F;

inline constexpr std::size_t kVerticesPerCell = 6;
inline constexpr std::size_t kFloatsPerCell = kVerticesPerCell * 3;
inline constexpr std::size_t kFaceFloatsPerCell = std::size_t{2} * 3;

/// Cells of a grid: one between each four neighbouring points.
inline std::size_t cellCount(const HeightGrid& grid) {
  return grid.width() < 2 || grid.height() < 2 ? 0 : (grid.width() - 1) * (grid.height() - 1);
}

/// Where a mesh is written, front to back within each of the seven bands; nothing is read back, so
/// this may be mapped graphics memory. Cell (row r, column c) starts at float
/// kFloatsPerCell × (r × (width − 1) + c) of the first three, in the vertex order
/// (c, r), (c+1, r+1), (c, r+1), (c, r), (c+1, r), (c+1, r+1).
struct MeshArrays {
  std::span<float> positions;    ///< x, y in model units, z the (clamped) height as read
  std::span<float> normals;      ///< unit vertex normals
  std::span<float> colours;      ///< RGB
  std::span<float> faceNormals;  ///< two unit normals a cell; may be empty when nobody wants them
};

/// How the mesh is coloured: by height where there is a scale, else from a bitmap where there is
/// one, else all mid grey.
struct MeshLook {
  Crop crop;
  const HeatMapScale* scale = nullptr;
  const BitmapDrape* drape = nullptr;
};

/// Fills `arrays` (each of `cellCount` cells) from `grid` with the seven workers. A vertex normal
/// is the normalised sum of the normals of all faces that hold the point. A triangle with a missing
/// corner is no face and gets no area: a corner that no face holds lies on one that a face does, or
/// on the first finite point. So neither as triangles nor as points is anything drawn that is not
/// there. Two builds of one grid are bit-equal. With no finite height nothing is to be drawn,
/// and what the arrays then hold is of no use.
void buildMesh(const HeightGrid& grid, const MeshLook& look, const MeshArrays& arrays);

/// One vertex, `vertex` of its six, of each of `count` cells: the first cell and those that follow
/// `step` cells apart.
struct PointRun {
  std::size_t vertex;
  std::size_t count;
  std::size_t step;
};

/// The vertices that show a mesh of `columns` × `rows` cells as points, each grid point once. Of
/// the vertices of a point they are the first of the list.
std::array<PointRun, 4> pointRuns(std::size_t columns, std::size_t rows);

}  // namespace morvane
