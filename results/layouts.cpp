#include "results/layouts.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

namespace morvane {
namespace {

constexpr int kRowHeight = 30;
constexpr int kTagY = 200;
constexpr int kFirstResultY = 240;

/// The horizontal places of a row's label and value.
struct Columns {
  int labelX, labelWidth, valueX, valueWidth;
  int labelIndent = 0;
};

constexpr Columns kShortLabels = {5, 50, 55, 130};
constexpr Columns kLongLabels = {5, 80, 90, 130};
constexpr Columns kSurfaceLabels = {5, 90, 95, 130};
constexpr Columns kTagLabel = {5, 50, 55, 180};
constexpr Columns kBandLabels = {5, 92, 97, 123};  // "Bandwidth:" is the longest of all labels
// Two pairs side by side. The left value overlaps the empty end of its label, as there is no other
// room for its 65 pixels. The indent of the right label keeps it apart from a clipped left value.
constexpr Columns kLeftPair = {5, 42, 42, 65};
constexpr Columns kRightPair = {107, 42, 150, 65, 3};
constexpr int kHeadingWidth = 200;

// Units, some with a blank before them.
constexpr char kMicrometres[] = {kMicroSign, 'm', '\0'};
constexpr char kBlankMicrometres[] = {' ', kMicroSign, 'm', '\0'};
constexpr std::string_view kMillimetres = "mm";

ResultRow rowAt(int y, const Columns& columns, std::string label, std::string value,
                int height = kRowHeight) {
  return {std::move(label),
          std::move(value),
          {columns.labelX, y, columns.labelWidth, height},
          {columns.valueX, y, columns.valueWidth, height},
          columns.labelIndent};
}

ResultRow headingAt(int y, std::string_view text) {
  ResultRow row = rowAt(y, kShortLabels, std::string(text), {});
  row.labelArea.w = kHeadingWidth;
  row.heading = true;
  return row;
}

ResultLayout startLayout(std::string_view tag) {
  return {{rowAt(kTagY, kTagLabel, "Algo:", std::string(tag))}, {}, tag, {}};
}

/// The name of a value: its label without the colon, behind its band if it has one.
std::string nameOf(std::string_view label, std::string_view band = {}) {
  if (label.ends_with(':')) label.remove_suffix(1);
  if (band.empty()) return std::string(label);
  band = band.substr(0, band.find('('));
  band = band.substr(0, band.find_last_not_of(' ') + 1);
  return std::string(band).append(" ").append(label);
}

/// The unit of a value whose row shows `shown`.
std::string unitOf(std::string_view shown) {
  if (shown.starts_with(' ')) shown.remove_prefix(1);
  return shown.starts_with(kMicroSign) ? "µ" + std::string(shown.substr(1)) : std::string(shown);
}

// ---- layouts of one value a row

struct ValueRow {
  std::string_view label;
  std::string_view unit{};
  int height = kRowHeight;
};

struct ValueTable {
  std::string_view tag;
  int decimals;
  Columns columns;
  std::span<const ValueRow> rows;
};

constexpr ValueRow kVexaStdRows[] = {{"C:", " %"}, {"S:", " %"},  {"Sq:", " %"},
                                     {"W:"},       {"D:", " mm"}, {"Q:", " %"}};
constexpr ValueRow kAltitudeRows[] = {{"Sa_A:", kMicrometres}, {"Sa_B:", kMicrometres},
                                      {"Sa_C:", kMicrometres}, {"Sa_D:", kMicrometres},
                                      {"Sa_E:", kMicrometres}, {"Sa_LW:", kMicrometres},
                                      {"Sa_SW:", kMicrometres}};
constexpr ValueRow kEcRmVexaStdRows[] = {
    {"ORa:", kBlankMicrometres}, {"ORq:", kBlankMicrometres}, {"W:"}, {"Q:", " %"}};
constexpr ValueRow kEcRmVwStdRows[] = {{"Wa 0.8:", kBlankMicrometres},
                                       {"Wsa 1-5:", kBlankMicrometres, 50}};

constexpr ValueTable kVexaStd = {"VEXA_STD", 1, kShortLabels, kVexaStdRows};
constexpr ValueTable kAltitude = {"ALTITUDE", 3, kLongLabels, kAltitudeRows};
constexpr ValueTable kEcRmVexaStd = {"EC_RM_VEXA_STD", 1, kShortLabels, kEcRmVexaStdRows};
constexpr ValueTable kEcRmVwStd = {"EC_RM_VW_STD", 1, kLongLabels, kEcRmVwStdRows};

/// `values` are in the order of the table's rows. Further values are not shown.
ResultLayout valueLayout(const ValueTable& table, std::span<const float> values) {
  ResultLayout layout = startLayout(table.tag);
  int y = kFirstResultY;
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    const ValueRow& row = table.rows[i];
    layout.rows.push_back(rowAt(y, table.columns, std::string(row.label),
                                shownText(values[i], table.decimals).append(row.unit), row.height));
    layout.values.push_back({nameOf(row.label), values[i], unitOf(row.unit)});
    y += row.height;
  }
  return layout;
}

ResultLayout vexaStd(const ResResults& r) { return valueLayout(kVexaStd, r.standard); }
ResultLayout altitude(const ResResults& r) { return valueLayout(kAltitude, r.waveScanBands); }
ResultLayout ecAltitude(const ResResults& r) { return valueLayout(kAltitude, r.ecWaveScanBands); }
ResultLayout ecRmVexaStd(const ResResults& r) { return valueLayout(kEcRmVexaStd, r.standardEcRm); }
ResultLayout ecRmVwStd(const ResResults& r) { return valueLayout(kEcRmVwStd, r.vwEcRm); }

/// The only layout without the algorithm's name: that row shows the value instead.
ResultLayout copr(const ResResults& results) {
  const float value = results.copr[0];
  return {{rowAt(kTagY, kLongLabels, "COPR:", shownText(value, 1))}, {}, "COPR", {{"COPR", value}}};
}

ResultLayout textureLayout(std::string_view tag, char symbol, std::string_view unit,
                           const ResResults& results) {
  constexpr std::string_view kSuffixes[] = {"overall:", "a:", "b:", "c:", "d:", "e:", "lw:", "sw:"};
  ResultLayout layout = startLayout(tag);
  for (std::size_t i = 0; i < std::size(kSuffixes); ++i) {
    const std::string label = std::string(1, symbol).append(kSuffixes[i]);
    const float value = results.textureCurvature[i];
    layout.rows.push_back(rowAt(kFirstResultY + static_cast<int>(i) * kRowHeight, kLongLabels,
                                label, shownText(value, 1).append(unit)));
    layout.values.push_back({nameOf(label), value, unitOf(unit)});
  }
  return layout;
}

ResultLayout curvature(const ResResults& r) { return textureLayout("CURVATURE", 'K', "m-1", r); }
ResultLayout texture(const ResResults& r) { return textureLayout("TEXTURE", 'T', "", r); }

// ---- EC_RM_GM_STD: four bands of two by two pairs

struct Pair {
  std::string_view label;
  std::size_t stored;  ///< index of the value in its group
  Columns columns;
  int line;  ///< below the heading
};

// Stored as Sa, RaX, RaY, RsM.
constexpr std::array<Pair, 4> kPairs = {{{"Sa:", 0, kLeftPair, 1},
                                         {"Rax:", 1, kLeftPair, 2},
                                         {"Rsm:", 3, kRightPair, 1},
                                         {"Ray:", 2, kRightPair, 2}}};

struct GmBand {
  std::string_view heading;
  std::array<std::string_view, 4> units;  ///< in the order of kPairs
};

constexpr std::array<std::string_view, 4> kGmUnits = {kMicrometres, kMicrometres, kMillimetres,
                                                      kMicrometres};
// Kept: the column shows the units of Rsm and Ray in Band B swapped.
constexpr GmBand kGmBands[] = {
    {"Appearance (0.15 - 2mm)", kGmUnits},
    {"Peel  (0.15 - 15mm)", kGmUnits},
    {"Band B  (0.3 - 1mm)", {kMicrometres, kMicrometres, kMicrometres, kMillimetres}},
    {"Band C  (1 - 3mm)", kGmUnits},
};

ResultLayout ecRmGmStd(const ResResults& results) {
  constexpr int kBandHeight = 3 * kRowHeight;
  ResultLayout layout = startLayout("EC_RM_GM_STD");
  std::span<const float> values = results.gmEcRm;
  int y = kFirstResultY;
  for (const GmBand& band : kGmBands) {
    layout.rows.push_back(headingAt(y, band.heading));
    for (std::size_t i = 0; i < kPairs.size(); ++i) {
      const Pair& pair = kPairs[i];
      layout.rows.push_back(rowAt(y + pair.line * kRowHeight, pair.columns, std::string(pair.label),
                                  shownText(values[pair.stored], 3).append(band.units[i])));
      layout.values.push_back(
          {nameOf(pair.label, band.heading), values[pair.stored], unitOf(kGmUnits[i])});
    }
    values = values.subspan(kPairs.size());
    y += kBandHeight;
  }
  return layout;
}

// ---- O_ROUGH: two bands, each behind its own filter

struct FilterKind {
  std::string_view name{};
  std::string_view limitLabel{};
  bool showsLow = false;
  bool showsHigh = false;
};

// Indexed by filter type.
constexpr FilterKind kFilterKinds[] = {
    {"HPF", "Cut-Off:", true, false},
    {"LPF", "Cut-Off:", false, true},
    {"BPF", "Bandwidth:", true, true},
};

std::string limitText(const FilterKind& kind, float low, float high) {
  std::string text;
  if (kind.showsLow) text = shownText(low, 2);
  if (kind.showsLow && kind.showsHigh) text += " - ";
  if (kind.showsHigh) text += shownText(high, 2);
  return text.empty() ? text : text.append(kMillimetres);
}

/// Adds the seven rows of a band, starting at `y`, and its values. `limits` are low and high,
/// `values` are Sa, RaX, RaY, RsM. For an unknown filter type its name and the limit row stay
/// empty.
void addBand(ResultLayout& layout, int y, std::string_view heading, std::uint32_t filterType,
             std::span<const float> limits, std::span<const float> values) {
  const FilterKind kind =
      filterType < std::size(kFilterKinds) ? kFilterKinds[filterType] : FilterKind{};
  layout.rows.push_back(headingAt(y, heading));
  const auto addRow = [&](std::string_view label, std::string value) {
    y += kRowHeight;
    layout.rows.push_back(rowAt(y, kBandLabels, std::string(label), std::move(value)));
  };
  const auto addValue = [&](const std::string& name, float value, std::string_view unit) {
    layout.values.push_back({nameOf(name, heading), value, unitOf(unit)});
  };
  addRow("Type:", std::string(kind.name));
  layout.values.push_back({.name = nameOf("Type:", heading), .text = std::string(kind.name)});
  addRow(kind.limitLabel, limitText(kind, limits[0], limits[1]));
  const bool both = kind.showsLow && kind.showsHigh;
  const std::string limit = nameOf(kind.limitLabel);
  if (kind.showsLow) addValue(both ? limit + " low" : limit, limits[0], kMillimetres);
  if (kind.showsHigh) addValue(both ? limit + " high" : limit, limits[1], kMillimetres);
  for (std::size_t i = 0; i < kPairs.size(); ++i) {
    const Pair& pair = kPairs[i];
    const float value = values[pair.stored];
    addRow(pair.label, shownText(value, 3).append(kGmUnits[i]));
    addValue(std::string(pair.label), value, kGmUnits[i]);
  }
}

ResultLayout oRough(const ResResults& results) {
  constexpr int kSecondBandY = kFirstResultY + 7 * kRowHeight + 10;
  const OrangePeelBands& bands = results.orangePeel;
  const std::span<const float> values = bands.values;
  ResultLayout layout = startLayout("O_ROUGH");
  addBand(layout, kFirstResultY, "Band 1", bands.filterType[0], values.first(2),
          values.subspan(4, 4));
  addBand(layout, kSecondBandY, "Band 2", bands.filterType[1], values.subspan(2, 2),
          values.subspan(8, 4));
  for (const int bandEnd : {kSecondBandY, kSecondBandY + 7 * kRowHeight + 10}) {
    layout.separators.push_back(separatorAt(bandEnd - 20));
  }
  return layout;
}

// ---- dispatch

using LayoutRoutine = ResultLayout (*)(const ResResults&);

struct AlgorithmLayout {
  Algorithm algorithm;
  LayoutRoutine layOut;
};

constexpr AlgorithmLayout kAlgorithmLayouts[] = {
    {Algorithm::kVexaStd, vexaStd},
    {Algorithm::kCopr, copr},
    {Algorithm::kWaveScanBands, altitude},
    {Algorithm::kOrangePeel, oRough},
    {Algorithm::kCurvature, curvature},
    {Algorithm::kTexture, texture},
    {Algorithm::kEcRmVexaStd, ecRmVexaStd},
    {Algorithm::kEcRmVwStd, ecRmVwStd},
    {Algorithm::kEcRmGmStd, ecRmGmStd},
    {Algorithm::kEcRmOrangePeel, oRough},
    {Algorithm::kEcWaveScanBands, ecAltitude},
    {Algorithm::kEcCurvature, curvature},
    {Algorithm::kEcTexture, texture},
};

LayoutRoutine algorithmLayout(std::uint32_t algorithmType) {
  const auto* const found = std::ranges::find(
      kAlgorithmLayouts, static_cast<Algorithm>(algorithmType), &AlgorithmLayout::algorithm);
  return found != std::end(kAlgorithmLayouts) ? found->layOut : nullptr;
}

LayoutRoutine version3Layout(const ResHeader& header) {
  if (header.headerVersion != 3) return nullptr;
  if (header.surfaceType == 1) return vexaStd;
  return header.surfaceType == 2 || header.surfaceType == 3 ? ecRmVexaStd : nullptr;
}

}  // namespace

std::string_view surfaceTypeText(std::uint32_t surfaceType) {
  constexpr std::string_view kNames[] = {"N/A", "Reflective", "Dull", "Dull"};
  return kNames[surfaceType < std::size(kNames) ? surfaceType : 0];
}

std::array<ResultRow, kHeaderRows> headerRows(const ResHeader& header,
                                              std::string_view surfaceText) {
  const std::string_view stamp = fieldText(header.headerText1);
  // A truncated number would be a different number.
  const auto piece = [stamp](std::size_t from, std::size_t length) {
    return std::string(from + length <= stamp.size() ? stamp.substr(from, length) : "");
  };
  const std::string date = piece(6, 2) + "/" + piece(4, 2) + "/" + piece(0, 4);
  const std::string time = piece(8, 2) + ":" + piece(10, 2) + ":" + piece(12, 2);
  return {rowAt(40, kShortLabels, "Part:", std::string(fieldText(header.headerText3))),
          rowAt(70, kShortLabels, "Date:", date), rowAt(100, kShortLabels, "Time:", time),
          rowAt(140, kSurfaceLabels, "Surf. type:", std::string(surfaceText)),
          rowAt(170, kSurfaceLabels, "Data Type:", std::string(fieldText(header.headerText2)))};
}

ResultLayout resultLayout(const ResHeader& header, const ResResults& results) {
  // Kept: for a version-3 file the fixed results are drawn first, then the layout of the algorithm
  // code over them. That code may be left from an earlier file.
  ResultLayout layout;
  for (const LayoutRoutine draw : {version3Layout(header), algorithmLayout(header.algorithmType)}) {
    if (draw != nullptr) layout = draw(results);
  }
  return layout;
}

}  // namespace morvane
