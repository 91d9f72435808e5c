// A bitmap laid over a grid: which cells it covers and what colour each grid point takes from it.
#pragma once

#include <cstddef>

#include "resfile/bitmap_image.h"
#include "surface/heat_map_scale.h"

namespace morvane {

/// The bitmap is centred on the grid. Where it has the grid's size in both directions the last row
/// and column of cells stay uncovered (kept); else, in each direction, a smaller bitmap covers the
/// points from its offset to its size less its offset (kept), and a larger one is cut.
class BitmapDrape {
 public:
  /// `image` must have pixels and outlive the drape.
  BitmapDrape(const BitmapImage& image, std::size_t gridWidth, std::size_t gridHeight);

  /// The cells covered: rows and columns from `first` to below `end`.
  struct Range {
    std::size_t first = 0;
    std::size_t end = 0;
    [[nodiscard]] bool holds(std::size_t i) const { return i >= first && i < end; }
    /// Whether point `i` lies at a cell of the range.
    [[nodiscard]] bool touches(std::size_t i) const {
      return end > first && i >= first && i <= end;
    }
  };
  [[nodiscard]] const Range& cellRows() const { return rows_.cells; }
  [[nodiscard]] const Range& cellColumns() const { return columns_.cells; }

  /// Whether a grid point is a corner of a covered cell.
  [[nodiscard]] bool covers(std::size_t row, std::size_t column) const {
    return rows_.cells.touches(row) && columns_.cells.touches(column);
  }

  /// The colour of a grid point at a corner of a covered cell. Kept: a grey pixel is a part of 256,
  /// a coloured one a part of 255.
  [[nodiscard]] Colour colourOf(std::size_t row, std::size_t column) const;

 private:
  struct Axis {
    Range cells;
    std::ptrdiff_t shift = 0;  // from grid index to pixel index
  };
  static Axis align(std::size_t points, std::size_t pixels, bool sameSize);

  const BitmapImage& image_;
  Axis rows_;
  Axis columns_;
};

}  // namespace morvane
