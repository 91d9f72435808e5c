#include "surface/mesh.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include "surface/row_bands.h"

namespace morvane {
namespace {

/// Three floats per grid point or face of one row, one array per component.
struct VectorRow {
  explicit VectorRow(std::size_t count) : x(count), y(count), z(count) {}
  std::vector<float> x, y, z;
};

/// The face normals of one row of cells, with an empty cell before the first and behind the last,
/// so that border points need no rule of their own.
struct FaceRow {
  explicit FaceRow(std::size_t cells) : lower(cells + 2), upper(cells + 2) {}
  VectorRow lower;  // triangle 1 of each cell
  VectorRow upper;  // triangle 2
};

/// What one grid row contributes to the mesh, packed x, y, z (or r, g, b) per point, with one
/// float of room behind the last point.
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

struct Vec3 {
  float x, y, z;
};

Vec3 normalised(float x, float y, float z) {
  const float inverse = 1.0F / std::sqrt(x * x + y * y + z * z);
  // A vector too long or of no length has no direction; the comparison is false for NaN too.
  const bool known = inverse > 0.0F && inverse < std::numeric_limits<float>::infinity();
  return {known ? x * inverse : 0.0F, known ? y * inverse : 0.0F, known ? z * inverse : 0.0F};
}

/// Builds the rows of one band. Every row is computed once and handed on to the next cell row.
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
        steps_(cells_) {
    for (std::size_t c = 0; c < points_; ++c) {
      columns_[c] = static_cast<float>(c) / kPointsPerUnit;
    }
    for (std::size_t c = 0; c < cells_; ++c) steps_[c] = columns_[c + 1] - columns_[c];
    findAnchor();
  }

  void build(std::size_t firstRow, std::size_t endRow) {
    // above_ and below_ are the faces on both sides of the row whose normals come next.
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
    const auto values = grid_.values();
    const auto found =
        std::find_if(values.begin(), values.end(), [](double h) { return !isMissing(h); });
    if (found == values.end()) return;
    const auto index = static_cast<std::size_t>(found - values.begin());
    const float z = look_.crop.clamp(static_cast<float>(*found));
    anchorPosition_ = {columns_[index % points_], rowPosition(index / points_), z};
    anchorColour_ = colourOf(z);
  }

  static float rowPosition(std::size_t row) { return static_cast<float>(row) / kPointsPerUnit; }

  [[nodiscard]] Colour colourOf(float z) const {
    return look_.scale != nullptr ? look_.scale->colourOf(z) : kUncoloured;
  }

  void loadHeights(std::size_t row, PointRow& target) const {
    const auto source = grid_.row(row);
    bool missing = false;
    for (std::size_t c = 0; c < points_; ++c) {
      const bool gone = isMissing(source[c]);
      missing = missing || gone;
      target.heights[c] = gone ? std::numeric_limits<float>::quiet_NaN()
                               : look_.crop.clamp(static_cast<float>(source[c]));
    }
    target.hasMissing = missing;
  }

  // The cross products of the cell's edges: triangle 1 (C − A) × (C − B), triangle 2
  // (F − E) × (D − E), with what is zero in them left out.
  void computeFaces(std::size_t row, const PointRow& upper, const PointRow& lower,
                    FaceRow& faces) const {
    const float dy = rowPosition(row + 1) - rowPosition(row);
    const float* z0 = upper.heights.data();
    const float* z1 = lower.heights.data();
    const float* dx = steps_.data();
    const auto put = [](VectorRow& target, std::size_t i, const Vec3& value) {
      target.x[i] = value.x;
      target.y[i] = value.y;
      target.z[i] = value.z;
    };
    for (std::size_t c = 0; c < cells_; ++c) {
      put(faces.lower, c + 1,
          normalised(dy * (z1[c] - z1[c + 1]), -(z1[c] - z0[c]) * dx[c], dx[c] * dy));
    }
    for (std::size_t c = 0; c < cells_; ++c) {
      put(faces.upper, c + 1,
          normalised(dy * (z0[c] - z0[c + 1]), -(z1[c + 1] - z0[c + 1]) * dx[c], dx[c] * dy));
    }
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
  void finishPoints(std::size_t row, PointRow& target) const {
    sumNormals(target.normals.data());
    const float y = rowPosition(row);
    float* position = target.positions.data();
    float* colour = target.colours.data();
    for (std::size_t c = 0; c < points_; ++c) {
      position[3 * c] = columns_[c];
      position[3 * c + 1] = y;
      position[3 * c + 2] = target.heights[c];
    }
    for (std::size_t c = 0; c < points_; ++c) {
      const Colour value = colourOf(target.heights[c]);
      std::memcpy(colour + 3 * c, value.data(), sizeof value);
    }
  }

  void sumNormals(float* out) const {
    const auto sum = [this](std::vector<float> VectorRow::*part, std::size_t c) {
      const std::vector<float>& b1 = below_.lower.*part;
      const std::vector<float>& b2 = below_.upper.*part;
      const std::vector<float>& a1 = above_.lower.*part;
      const std::vector<float>& a2 = above_.upper.*part;
      return b1[c + 1] + b2[c + 1] + b2[c] + a1[c] + a2[c] + a1[c + 1];
    };
    for (std::size_t c = 0; c < points_; ++c) {
      const Vec3 normal =
          normalised(sum(&VectorRow::x, c), sum(&VectorRow::y, c), sum(&VectorRow::z, c));
      out[3 * c] = normal.x;
      out[3 * c + 1] = normal.y;
      out[3 * c + 2] = normal.z;
    }
  }

  void writeCells(std::size_t row) const {
    const std::size_t offset = kFloatsPerCell * row * cells_;
    expand(near_.positions, far_.positions, arrays_.positions.data() + offset);
    expand(near_.normals, far_.normals, arrays_.normals.data() + offset);
    expand(near_.colours, far_.colours, arrays_.colours.data() + offset);
    if (near_.hasMissing || far_.hasMissing) collapseMissing(offset);
  }

  /// Copies the points of two neighbouring rows to the six vertices of each cell.
  void expand(const std::vector<float>& nearRow, const std::vector<float>& farRow,
              float* out) const {
    const float* a = nearRow.data();
    const float* b = farRow.data();
    // Each copy takes one float too many, which the next one overwrites: one store in place of two.
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

  void collapseMissing(std::size_t offset) const {
    constexpr Vec3 kUp = {0.0F, 0.0F, 1.0F};
    const auto gone = [](const PointRow& row, std::size_t c) { return std::isnan(row.heights[c]); };
    const auto collapse = [&](std::size_t triangle) {
      for (std::size_t i = triangle; i < triangle + 9; i += 3) {
        std::memcpy(&arrays_.positions[i], &anchorPosition_, sizeof anchorPosition_);
        std::memcpy(&arrays_.normals[i], &kUp, sizeof kUp);
        std::memcpy(&arrays_.colours[i], anchorColour_.data(), sizeof anchorColour_);
      }
    };
    for (std::size_t c = 0; c < cells_; ++c, offset += kFloatsPerCell) {
      const bool shared = gone(near_, c) || gone(far_, c + 1);
      if (shared || gone(far_, c)) collapse(offset);
      if (shared || gone(near_, c + 1)) collapse(offset + 9);
    }
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
  Vec3 anchorPosition_{};
  Colour anchorColour_ = kUncoloured;
};

}  // namespace

void buildMesh(const HeightGrid& grid, const MeshLook& look, const MeshArrays& arrays) {
  if (cellCount(grid) == 0) return;
  forEachRowBand(grid.height(), [&](std::size_t /*band*/, std::size_t first, std::size_t end) {
    BandBuilder(grid, look, arrays).build(first, end);
  });
}

}  // namespace morvane
