#include "surface/mesh.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <functional>
#include <utility>
#include <vector>

#include "surface/face_normals.h"
#include "surface/row_bands.h"

namespace morvane {
namespace {

/// Three floats per grid point or face of one row, one array per component.
struct VectorRow {
  explicit VectorRow(std::size_t count) : x(count), y(count), z(count) {}
  std::vector<float> x, y, z;
};

/// The face normals of one row of cells. An empty cell before the first and after the last makes
/// border points no special case.
struct FaceRow {
  explicit FaceRow(std::size_t cells) : lower(cells + 2), upper(cells + 2) {}
  VectorRow lower;  // triangle 1 of each cell
  VectorRow upper;  // triangle 2
};

/// The mesh data of one grid row, packed x, y, z (or r, g, b) per point, with one spare float after
/// the last point.
struct PointRow {
  explicit PointRow(std::size_t points)
      : heights(points),
        positions(3 * points + 1),
        normals(3 * points + 1),
        colours(3 * points + 1) {}
  std::vector<float> heights;
  std::vector<float> positions, normals, colours;
  bool hasMissing = false;
};

/// A grid point as the corner of a triangle.
struct Corner {
  const PointRow* row;
  std::size_t column;
  [[nodiscard]] bool isMissing() const { return std::isnan(row->heights[column]); }
  [[nodiscard]] bool hasFace() const { return morvane::hasFace(&row->normals[3 * column]); }
};

/// A row of triangles. Each has one edge along a row, with the heights along[c] and along[c + 1],
/// and one along a column, from top[c] to bottom[c].
struct TriangleRow {
  std::size_t count;
  const float* dx;
  float dy;
  const float* along;
  const float* top;
  const float* bottom;
};

void crossEdges(const TriangleRow& row, float* __restrict outX, float* __restrict outY,
                float* __restrict outZ) {
  for (std::size_t c = 0; c < row.count; ++c) {
    const Vec3 normal =
        faceNormal(row.dx[c], row.dy, row.along[c], row.along[c + 1], row.top[c], row.bottom[c]);
    outX[c] = normal.x;
    outY[c] = normal.y;
    outZ[c] = normal.z;
  }
}

/// Writes the unit normals of the triangles to `faces`, after its empty first cell.
void crossEdges(const TriangleRow& row, VectorRow& faces) {
  crossEdges(row, faces.x.data() + 1, faces.y.data() + 1, faces.z.data() + 1);
}

/// Builds the rows of one band. Every grid row is computed once and reused for the next cell row.
class BandBuilder {
 public:
  BandBuilder(const HeightGrid& grid, const MeshLook& look, const MeshArrays& arrays)
      : grid_(grid),
        look_(look),
        arrays_(arrays),
        points_(grid.width()),
        cells_(grid.width() - 1),
        above_(cells_),
        below_(cells_),
        near_(points_),
        far_(points_),
        ahead_(points_),
        columns_(points_),
        steps_(cells_),
        sums_(points_) {
    for (std::size_t c = 0; c < points_; ++c) {
      columns_[c] = modelUnits(c);
    }
    for (std::size_t c = 0; c < cells_; ++c) steps_[c] = columns_[c + 1] - columns_[c];
    findAnchor();
  }

  void build(std::size_t firstRow, std::size_t endRow) {
    // above_ and below_ are the faces on both sides of the row whose normals are computed next.
    loadHeights(firstRow, far_);
    if (firstRow > 0) {
      loadHeights(firstRow - 1, near_);
      computeFaces(firstRow - 1, near_, far_, above_);
    }
    loadHeights(firstRow + 1, ahead_);
    computeFaces(firstRow, far_, ahead_, below_);
    finishPoints(firstRow, far_);
    for (std::size_t r = firstRow; r < endRow; ++r) {
      std::swap(near_, far_);
      std::swap(far_, ahead_);
      keepFaces(r, below_);
      std::swap(above_, below_);
      if (r + 2 < grid_.height()) {
        loadHeights(r + 2, ahead_);
        computeFaces(r + 1, far_, ahead_, below_);
      } else {
        below_ = FaceRow(cells_);
      }
      finishPoints(r + 1, far_);
      writeCells(r);
    }
  }

 private:
  void findAnchor() {
    const auto index = grid_.firstFinite();
    if (!index) return;
    const std::size_t row = *index / points_;
    const std::size_t column = *index % points_;
    const float z = drawnHeight(grid_.values()[*index], look_.crop);
    anchorPosition_ = {columns_[column], modelUnits(row), z};
    anchorColour_ = colourAt(look_, z, row, column);
  }

  void loadHeights(std::size_t row, PointRow& target) const {
    const auto source = grid_.row(row);
    bool missing = false;
    for (std::size_t c = 0; c < points_; ++c) {
      missing = missing || isMissing(source[c]);
      target.heights[c] = drawnHeight(source[c], look_.crop);
    }
    target.hasMissing = missing;
  }

  // Triangle 1 of a cell is (C − A) × (C − B), triangle 2 is (F − E) × (D − E).
  void computeFaces(std::size_t row, const PointRow& upper, const PointRow& lower,
                    FaceRow& faces) const {
    const float dy = modelUnits(row + 1) - modelUnits(row);
    const float* z0 = upper.heights.data();
    const float* z1 = lower.heights.data();
    crossEdges({cells_, steps_.data(), dy, z1, z0, z1}, faces.lower);
    crossEdges({cells_, steps_.data(), dy, z0, z0 + 1, z1 + 1}, faces.upper);
  }

  void keepFaces(std::size_t row, const FaceRow& faces) const {
    if (arrays_.faceNormals.empty()) return;
    float* out = arrays_.faceNormals.data() + kFaceFloatsPerCell * row * cells_;
    for (std::size_t c = 1; c <= cells_; ++c, out += kFaceFloatsPerCell) {
      out[0] = faces.lower.x[c];
      out[1] = faces.lower.y[c];
      out[2] = faces.lower.z[c];
      out[3] = faces.upper.x[c];
      out[4] = faces.upper.y[c];
      out[5] = faces.upper.z[c];
    }
  }

  /// Normals, positions and colours of grid row `row`, whose faces are above_ and below_.
  void finishPoints(std::size_t row, PointRow& target) {
    sumNormals(target);
    const float y = modelUnits(row);
    float* position = target.positions.data();
    for (std::size_t c = 0; c < points_; ++c) {
      position[3 * c] = columns_[c];
      position[3 * c + 1] = y;
      position[3 * c + 2] = target.heights[c];
    }
    float* colour = target.colours.data();
    for (std::size_t c = 0; c < points_; ++c) {
      const Colour value = colourAt(look_, target.heights[c], row, c);
      std::memcpy(colour + 3 * c, value.data(), sizeof value);
    }
  }

  void sumNormals(PointRow& target) {
    sumFaces(&VectorRow::x, sums_.x.data());
    sumFaces(&VectorRow::y, sums_.y.data());
    sumFaces(&VectorRow::z, sums_.z.data());
    const float* x = sums_.x.data();
    const float* y = sums_.y.data();
    const float* z = sums_.z.data();
    float* out = target.normals.data();
    for (std::size_t c = 0; c < points_; ++c) {
      const Vec3 normal = unit({x[c], y[c], z[c]});
      out[3 * c] = normal.x;
      out[3 * c + 1] = normal.y;
      out[3 * c + 2] = normal.z;
    }
  }

  /// Sums one component of the six face normals around each point of a row.
  void sumFaces(std::vector<float> VectorRow::*part, float* out) const {
    const float* below1 = (below_.lower.*part).data();
    const float* below2 = (below_.upper.*part).data();
    const float* above1 = (above_.lower.*part).data();
    const float* above2 = (above_.upper.*part).data();
    const std::size_t points = points_;
    for (std::size_t c = 0; c < points; ++c) {
      out[c] = below1[c + 1] + below2[c + 1] + below2[c] + above1[c] + above2[c] + above1[c + 1];
    }
  }

  void writeCells(std::size_t row) const {
    const std::size_t offset = kFloatsPerCell * row * cells_;
    expand(near_.positions, far_.positions, arrays_.positions.data() + offset);
    expand(near_.normals, far_.normals, arrays_.normals.data() + offset);
    expand(near_.colours, far_.colours, arrays_.colours.data() + offset);
    if (near_.hasMissing || far_.hasMissing) collapseMissing(offset);
    if (look_.scale == nullptr && look_.drape != nullptr) uncoverCells(row, offset);
  }

  /// Copies the points of two neighbouring rows to the six vertices of each cell.
  void expand(const std::vector<float>& nearRow, const std::vector<float>& farRow,
              float* out) const {
    const float* a = nearRow.data();
    const float* b = farRow.data();
    // Each copy is one float too long, which the next copy overwrites: one store instead of two.
    constexpr std::size_t kFour = 4 * sizeof(float);
    constexpr std::size_t kThree = 3 * sizeof(float);
    for (std::size_t c = 0; c < cells_; ++c, a += 3, b += 3, out += kFloatsPerCell) {
      std::memcpy(out, a, kFour);
      std::memcpy(out + 3, b + 3, kFour);
      std::memcpy(out + 6, b, kFour);
      std::memcpy(out + 9, a, kFour);
      std::memcpy(out + 12, a + 3, kFour);
      std::memcpy(out + 15, b + 3, kThree);
    }
  }

  /// Makes uncovered cells grey again where they share points with covered ones.
  void uncoverCells(std::size_t row, std::size_t offset) const {
    const BitmapDrape::Range& columns = look_.drape->cellColumns();
    const bool rowCovered = look_.drape->cellRows().holds(row);
    for (std::size_t c = 0; c < cells_; ++c, offset += kFloatsPerCell) {
      if (rowCovered && columns.holds(c)) continue;
      std::fill_n(arrays_.colours.data() + offset, kFloatsPerCell, kUncoloured[0]);
    }
  }

  void collapseMissing(std::size_t offset) const {
    for (std::size_t c = 0; c < cells_; ++c, offset += kFloatsPerCell) {
      const Corner first = {&near_, c};
      const Corner opposite = {&far_, c + 1};
      collapse({first, opposite, {&far_, c}}, offset);
      collapse({first, {&near_, c + 1}, opposite}, offset + 9);
    }
  }

  /// Collapses the triangle at float `offset` if it has a missing corner.
  void collapse(const std::array<Corner, 3>& corners, std::size_t offset) const {
    if (std::none_of(corners.begin(), corners.end(), std::mem_fn(&Corner::isMissing))) return;
    const auto kept = std::find_if(corners.begin(), corners.end(), std::mem_fn(&Corner::hasFace));
    for (const Corner& corner : corners) {
      if (kept == corners.end()) {
        constexpr Vec3 kUp = {0.0F, 0.0F, 1.0F};
        putVertex(&anchorPosition_, &kUp, anchorColour_.data(), offset);
      } else if (!corner.hasFace()) {
        const std::size_t i = 3 * kept->column;
        putVertex(&kept->row->positions[i], &kept->row->normals[i], &kept->row->colours[i], offset);
      }
      offset += 3;
    }
  }

  void putVertex(const void* position, const void* normal, const void* colour,
                 std::size_t offset) const {
    std::memcpy(&arrays_.positions[offset], position, sizeof(Vec3));
    std::memcpy(&arrays_.normals[offset], normal, sizeof(Vec3));
    std::memcpy(&arrays_.colours[offset], colour, sizeof(Vec3));
  }

  const HeightGrid& grid_;
  const MeshLook& look_;
  const MeshArrays& arrays_;
  const std::size_t points_;
  const std::size_t cells_;
  FaceRow above_, below_;
  PointRow near_, far_, ahead_;
  std::vector<float> columns_;  // x of each column
  std::vector<float> steps_;    // distance to the next column
  VectorRow sums_;              // of the faces around each point of a row
  // The first finite point, where triangles are collapsed none of whose corners has a face.
  Vec3 anchorPosition_{};
  Colour anchorColour_ = kUncoloured;
};

}  // namespace

void buildMesh(const HeightGrid& grid, const MeshLook& look, const MeshArrays& arrays,
               const CellRows& rows) {
  if (cellCount(grid) == 0) return;
  const std::size_t end = std::min(rows.end, grid.height() - 1);
  if (rows.first >= end) return;
  // A band of points has one row more than its cells.
  forEachRowBand(end - rows.first + 1,
                 [&](std::size_t /*band*/, std::size_t first, std::size_t last) {
                   BandBuilder(grid, look, arrays).build(rows.first + first, rows.first + last);
                 });
}

std::array<PointRun, 4> pointRuns(std::size_t columns, std::size_t rows) {
  constexpr std::size_t kHere = 0;
  constexpr std::size_t kOpposite = 1;
  constexpr std::size_t kNextRow = 2;
  constexpr std::size_t kNextColumn = 4;
  return {{{kHere, 1, 1},
           {kNextColumn, columns, 1},
           {kNextRow, rows, columns},
           {kOpposite, columns * rows, 1}}};
}

}  // namespace morvane
