// The results of a measurement as data: the values, and the rows of text that the column shows.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "base/number_text.h"
#include "base/pixel_area.h"
#include "resfile/res_header.h"
#include "resfile/res_results.h"

namespace morvane {

/// The micro sign of the units, as a single Latin-1 byte.
inline constexpr char kMicroSign = '\xB5';

/// Width of the results column in pixels. Wider texts are clipped.
inline constexpr int kResultsColumnWidth = 220;

/// A label and the value beside it.
struct ResultRow {
  std::string label;
  std::string value;
  PixelArea labelArea;  ///< from the top left corner of the column
  PixelArea valueArea;
  int labelIndent = 0;   ///< pixels between the left edge of `labelArea` and its text
  bool heading = false;  ///< there is no value
};

/// A result for other programs.
struct ResultValue {
  std::string name;  ///< as its label, with its band in front: "Sa_A", "Band B Rsm"
  float number = std::numeric_limits<float>::quiet_NaN();
  std::string unit{};  ///< in UTF-8, without a blank: "µm", "mm", "%", "m-1" or empty
  std::string text{};  ///< of a result that is no number
};

/// Everything below the measurement header. There are no rows when the algorithm has nothing to
/// show.
struct ResultLayout {
  std::vector<ResultRow> rows;          ///< in display order
  std::vector<PixelArea> separators{};  ///< lines between the parts of the results
  std::string_view algorithm{};         ///< its name; empty when there are no rows
  std::vector<ResultValue> values{};    ///< in display order, each with a name of its own
};

/// The rows of the measurement header: part, date, time, surface type and data type.
inline constexpr std::size_t kHeaderRows = 5;

/// The place of a separator with the top edge `y`.
constexpr PixelArea separatorAt(int y) { return {5, y, 220, 20}; }

/// The separators of every column, below the time and below the algorithm's name.
inline constexpr std::array<PixelArea, 2> kHeaderSeparators = {separatorAt(120), separatorAt(220)};

/// The name of a surface type; "N/A" for unknown ones.
std::string_view surfaceTypeText(std::uint32_t surfaceType);

/// The measurement header with `surfaceText` as the surface type. If the time stamp has fewer than
/// 14 digits, its missing parts stay empty. Texts are as stored.
std::array<ResultRow, kHeaderRows> headerRows(const ResHeader& header,
                                              std::string_view surfaceText);

/// The rows of the header's algorithm. For version-3 files whose algorithm has none, those of the
/// fixed results for the surface type.
ResultLayout resultLayout(const ResHeader& header, const ResResults& results);

/// Whether the results column is offered for measurements of this algorithm, known or not.
constexpr bool offersResultsColumn(std::uint32_t algorithmType) {
  return algorithmType >= static_cast<std::uint32_t>(Algorithm::kWaveScanBands);
}

}  // namespace morvane
