// What the results column says about a measurement: rows of text and where each stands, as data.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/number_text.h"
#include "base/pixel_area.h"
#include "resfile/res_header.h"
#include "resfile/res_results.h"

namespace morvane {

/// The micro sign of the units: in the product's own text a single Latin-1 byte.
inline constexpr char kMicroSign = '\xB5';

/// Width of the results column in pixels; what reaches beyond is cut.
inline constexpr int kResultsColumnWidth = 220;

/// A label with the value that stands beside it.
struct ResultRow {
  std::string label;
  std::string value;
  PixelArea labelArea;  ///< from the top left corner of the column
  PixelArea valueArea;
  int labelIndent = 0;   ///< pixels between the label's place and its text
  bool heading = false;  ///< the label stands alone
};

/// Everything below the measurement header. No rows: the algorithm has nothing to show.
struct ResultLayout {
  std::vector<ResultRow> rows;          ///< in display order
  std::vector<PixelArea> separators{};  ///< lines that set the parts of the results apart
};

/// The most rows and separators that a layout has.
inline constexpr std::size_t kMaxResultRows = 21;
inline constexpr std::size_t kMaxResultSeparators = 2;

/// The rows of the measurement header: part, date, time, surface type and data type.
inline constexpr std::size_t kHeaderRows = 5;

/// Where a separator stands whose top edge is `y`.
constexpr PixelArea separatorAt(int y) { return {5, y, 220, 20}; }

/// The separators of every column, below the time and below the algorithm's name.
inline constexpr std::array<PixelArea, 2> kHeaderSeparators = {separatorAt(120), separatorAt(220)};

/// The name of a header's surface type; "N/A" for codes without one.
std::string_view surfaceTypeText(std::uint32_t surfaceType);

/// The measurement header with `surfaceText` as the surface type. Of a time stamp shorter than its
/// 14 digits the pieces that are missing stay empty. Texts are as stored.
std::array<ResultRow, kHeaderRows> headerRows(const ResHeader& header,
                                              std::string_view surfaceText);

/// Where result row `index` stands as long as no layout moves it; without texts.
ResultRow defaultResultRow(std::size_t index);

/// The rows of the algorithm that the header names; for version-3 files with an algorithm code
/// that has none, those of the fixed results that belong to the surface type.
ResultLayout resultLayout(const ResHeader& header, const ResResults& results);

/// True when opening a measurement of this algorithm, known or not, offers the results column.
constexpr bool offersResultsColumn(std::uint32_t algorithmType) {
  return algorithmType >= static_cast<std::uint32_t>(Algorithm::kWaveScanBands);
}

}  // namespace morvane
