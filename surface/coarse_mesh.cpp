#include "surface/coarse_mesh.h"

#include <algorithm>
#include <cstring>
#include <span>

#include "surface/face_normals.h"
#include "surface/row_bands.h"

namespace morvane {
namespace {

/// Fills the vertices of a mesh.
class VertexBuilder {
 public:
  VertexBuilder(const HeightGrid& grid, const MeshLook& look, std::size_t step, CoarseMesh& mesh)
      : grid_(grid), look_(look), step_(step), mesh_(mesh) {}

  /// Computes the vertices of row `row` of the mesh.
  void buildRow(std::size_t row) const {
    const std::size_t r = std::min(row * step_, grid_.height() - 1);
    const std::size_t columns = coarsePoints(grid_.width(), step_);
    for (std::size_t column = 0; column < columns; ++column) {
      const std::size_t c = std::min(column * step_, grid_.width() - 1);
      const std::size_t at = 3 * (row * columns + column);
      const float z = height(r, c);
      const Vec3 position = {modelUnits(c), modelUnits(r), z};
      const Vec3 normal = vertexNormal(r, c);
      const Colour colour = colourAt(look_, z, r, c);
      std::memcpy(&mesh_.positions[at], &position, sizeof position);
      std::memcpy(&mesh_.normals[at], &normal, sizeof normal);
      std::memcpy(&mesh_.colours[at], colour.data(), sizeof colour);
    }
  }

 private:
  [[nodiscard]] float height(std::size_t row, std::size_t column) const {
    return drawnHeight(grid_.row(row)[column], look_.crop);
  }

  /// The sum of the normals of all faces at a point of the grid, in the order of the full mesh.
  [[nodiscard]] Vec3 vertexNormal(std::size_t row, std::size_t column) const {
    Vec3 sum = {0.0F, 0.0F, 0.0F};
    const auto add = [&](const Vec3& normal) {
      sum = {sum.x + normal.x, sum.y + normal.y, sum.z + normal.z};
    };
    const bool below = row + 1 < grid_.height();
    const bool right = column + 1 < grid_.width();
    if (below && right) {
      add(lowerFace(row, column));
      add(upperFace(row, column));
    }
    if (below && column > 0) add(upperFace(row, column - 1));
    if (row > 0 && column > 0) {
      add(lowerFace(row - 1, column - 1));
      add(upperFace(row - 1, column - 1));
    }
    if (row > 0 && right) add(lowerFace(row - 1, column));
    return unit(sum);
  }

  /// Triangle 1 of a cell.
  [[nodiscard]] Vec3 lowerFace(std::size_t row, std::size_t column) const {
    const float corner = height(row + 1, column);
    return faceNormal(stepAfter(column), stepAfter(row), corner, height(row + 1, column + 1),
                      height(row, column), corner);
  }
  /// Triangle 2 of a cell.
  [[nodiscard]] Vec3 upperFace(std::size_t row, std::size_t column) const {
    const float corner = height(row, column + 1);
    return faceNormal(stepAfter(column), stepAfter(row), height(row, column), corner, corner,
                      height(row + 1, column + 1));
  }

  static float stepAfter(std::size_t index) { return modelUnits(index + 1) - modelUnits(index); }

  const HeightGrid& grid_;
  const MeshLook& look_;
  std::size_t step_;
  CoarseMesh& mesh_;
};

/// Whether a vertex belongs to a face of the full mesh.
bool hasFace(const CoarseMesh& mesh, std::size_t vertex) {
  return morvane::hasFace(&mesh.normals[3 * vertex]);
}

void addCorners(CoarseMesh& mesh, std::size_t columns, std::size_t rows) {
  const auto add = [&mesh](std::size_t a, std::size_t b, std::size_t c) {
    if (!hasFace(mesh, a) || !hasFace(mesh, b) || !hasFace(mesh, c)) return;
    for (const std::size_t corner : {a, b, c}) {
      mesh.corners.push_back(static_cast<std::uint32_t>(corner));
    }
  };
  mesh.corners.reserve(6 * (columns - 1) * (rows - 1));
  for (std::size_t row = 0; row + 1 < rows; ++row) {
    for (std::size_t column = 0; column + 1 < columns; ++column) {
      const std::size_t near = row * columns + column;
      const std::size_t far = near + columns;
      add(near, far + 1, far);
      add(near, near + 1, far + 1);
    }
  }
}

/// Moves the vertices without a face to the first one with a face.
void moveFaceless(CoarseMesh& mesh) {
  const std::size_t count = mesh.vertices();
  std::size_t first = 0;
  while (first < count && !hasFace(mesh, first)) ++first;
  if (first == count) {
    mesh = {};
    return;
  }
  for (std::size_t vertex = 0; vertex < count; ++vertex) {
    if (hasFace(mesh, vertex)) continue;
    for (std::vector<float>* values : {&mesh.positions, &mesh.normals, &mesh.colours}) {
      std::copy_n(values->begin() + static_cast<std::ptrdiff_t>(3 * first), 3,
                  values->begin() + static_cast<std::ptrdiff_t>(3 * vertex));
    }
  }
}

}  // namespace

std::size_t coarsePoints(std::size_t points, std::size_t step) {
  return points < 2 ? points : (points - 2) / step + 2;
}

std::size_t coarseVertices(const HeightGrid& grid, std::size_t step) {
  return coarsePoints(grid.width(), step) * coarsePoints(grid.height(), step);
}

std::size_t coarseStep(const HeightGrid& grid, std::size_t vertices) {
  std::size_t step = 1;
  while (coarseVertices(grid, step) > std::max<std::size_t>(vertices, 4)) ++step;
  return step;
}

CoarseMesh buildCoarseMesh(const HeightGrid& grid, const MeshLook& look, std::size_t step) {
  CoarseMesh mesh;
  if (cellCount(grid) == 0) return mesh;
  const std::size_t columns = coarsePoints(grid.width(), step);
  const std::size_t rows = coarsePoints(grid.height(), step);
  for (std::vector<float>* values : {&mesh.positions, &mesh.normals, &mesh.colours}) {
    values->resize(3 * columns * rows);
  }
  const VertexBuilder builder(grid, look, step, mesh);
  forEachRowBand(rows + 1, [&](std::size_t /*band*/, std::size_t first, std::size_t end) {
    for (std::size_t row = first; row < end; ++row) builder.buildRow(row);
  });
  addCorners(mesh, columns, rows);
  moveFaceless(mesh);
  return mesh;
}

}  // namespace morvane
