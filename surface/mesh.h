// The triangle mesh of a height grid: positions, normals and colours, six vertices per cell.
#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <span>

#include "resfile/height_grid.h"
#include "surface/bitmap_drape.h"
#include "surface/heat_map_scale.h"
#include "surface/surface_limits.h"

namespace morvane {

/// Grid points per model unit in x and y.
inline constexpr float kPointsPerUnit = 1000.0F;
/// The position of column or row `index`, in model units.
inline float modelUnits(std::size_t index) { return static_cast<float>(index) / kPointsPerUnit; }

inline constexpr std::size_t kVerticesPerCell = 6;
inline constexpr std::size_t kFloatsPerCell = kVerticesPerCell * 3;
inline constexpr std::size_t kFaceFloatsPerCell = std::size_t{2} * 3;

/// The number of cells of a grid. A cell lies between four neighbouring points.
inline std::size_t cellCount(const HeightGrid& grid) {
  return grid.width() < 2 || grid.height() < 2 ? 0 : (grid.width() - 1) * (grid.height() - 1);
}

/// Where a mesh is written, front to back within each of the seven bands. Nothing is read back, so
/// this may be mapped graphics memory. Cell (row r, column c) starts at float kFloatsPerCell × (r ×
/// (width − 1) + c) of the first three, in the vertex order (c, r), (c+1, r+1), (c, r+1), (c, r),
/// (c+1, r), (c+1, r+1).
struct MeshArrays {
  std::span<float> positions;    ///< x, y in model units, z the (clamped) height as read
  std::span<float> normals;      ///< unit vertex normals
  std::span<float> colours;      ///< RGB
  std::span<float> faceNormals;  ///< two unit normals per cell; optional
};

/// How the mesh is coloured: by height if there is a scale, else from the bitmap if there is one,
/// else mid grey.
struct MeshLook {
  Crop crop;
  const HeatMapScale* scale = nullptr;
  const BitmapDrape* drape = nullptr;
};

/// The colour of the grid point (row, column) whose drawn height is `z`.
inline Colour colourAt(const MeshLook& look, float z, std::size_t row, std::size_t column) {
  if (look.scale != nullptr) return look.scale->colourOf(z);
  if (look.drape != nullptr && look.drape->covers(row, column)) {
    return look.drape->colourOf(row, column);
  }
  return kUncoloured;
}

/// Rows of cells, from `first` to below `end`; by default all.
struct CellRows {
  std::size_t first = 0;
  std::size_t end = std::numeric_limits<std::size_t>::max();
};

/// Fills `arrays` (each of `cellCount` cells) from `grid` with the seven workers. A vertex normal
/// is the normalised sum of the normals of all faces at the point. A triangle with a missing corner
/// is no face and is collapsed: its corners without a face move to a corner with one, or to the
/// first finite point. So missing points are drawn neither as triangles nor as points. Two builds
/// of one grid are bit-identical. Without any finite height the arrays are undefined and nothing
/// may be drawn. With `rows` only their part is filled: a mesh can be built in several calls.
void buildMesh(const HeightGrid& grid, const MeshLook& look, const MeshArrays& arrays,
               const CellRows& rows = {});

/// One vertex, `vertex` of the six, of each of `count` cells: the first cell and the following
/// ones, `step` cells apart.
struct PointRun {
  std::size_t vertex;
  std::size_t count;
  std::size_t step;
};

/// The vertices that show a mesh of `columns` × `rows` cells as points, each grid point once. Of
/// the vertices at a point it is the first in the buffer.
std::array<PointRun, 4> pointRuns(std::size_t columns, std::size_t rows);

}  // namespace morvane
