// A surface with fewer points: every n-th row and column, and always the last ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "surface/mesh.h"

namespace morvane {

/// An indexed mesh. Each vertex is a point of the grid, with the position, normal and colour that
/// it has in the full mesh of `buildMesh`.
struct CoarseMesh {
  std::vector<float> positions;  ///< x, y, z of each vertex
  std::vector<float> normals;
  std::vector<float> colours;          ///< RGB
  std::vector<std::uint32_t> corners;  ///< the vertices of each triangle
  [[nodiscard]] std::size_t vertices() const { return positions.size() / 3; }
};

/// The memory that a vertex takes with its share of the corners.
inline constexpr std::size_t kCoarseBytesPerVertex = 9 * sizeof(float) + 6 * sizeof(std::uint32_t);

/// How many of `points` points along an axis are left at every `step`-th.
std::size_t coarsePoints(std::size_t points, std::size_t step);
/// The number of vertices that `buildCoarseMesh` makes of `grid`.
std::size_t coarseVertices(const HeightGrid& grid, std::size_t step);
/// The smallest step that leaves at most `vertices` vertices. Fewer than 4 counts as 4.
std::size_t coarseStep(const HeightGrid& grid, std::size_t vertices);

/// Builds the mesh of every `step`-th row and column of `grid` with the seven workers. A point
/// without a face in the full mesh belongs to no triangle; its vertex is moved to one that
/// has a face.
/// Empty if no point has a face.
CoarseMesh buildCoarseMesh(const HeightGrid& grid, const MeshLook& look, std::size_t step);

}  // namespace morvane
