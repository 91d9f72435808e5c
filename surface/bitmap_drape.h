// A bitmap draped over a grid: which cells it covers, and the colour of each grid point.
#pragma once

#include <cstddef>

#include "resfile/bitmap_image.h"
#include "surface/colour_maps.h"

namespace morvane {

/// The bitmap is centred on the grid. Kept: with the grid's size in both directions, the last row
/// and column of cells stay uncovered. Otherwise each direction counts by itself: a larger bitmap
/// is cut. Kept: a smaller one covers the points from its offset to its size minus its offset.
class BitmapDrape {
 public:
  /// `image` must have pixels and outlive the drape.
  BitmapDrape(const BitmapImage& image, std::size_t gridWidth, std::size_t gridHeight);

  /// The cells covered: rows and columns from `first` to below `end`.
  struct Range {
    std::size_t first = 0;
    std::size_t end = 0;
    [[nodiscard]] bool holds(std::size_t i) const { return i >= first && i < end; }
    /// Whether point `i` is a corner of a cell of the range.
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

  /// The colour of a grid point at a corner of a covered cell. Kept: grey values are divided by
  /// 256, coloured ones by 255.
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
