#include "export/info_json.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

#include "base/number_text.h"
#include "base/utf8.h"
#include "export/results_table.h"
#include "export/stamp.h"

namespace morvane {
namespace {

std::string quoted(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string json = "\"";
  for (const char letter : wellFormed(text)) {
    const auto code = static_cast<unsigned char>(letter);
    if (letter == '"' || letter == '\\') json += '\\';
    if (code >= 0x20) {
      json += letter;
    } else {
      json.append("\\u00").append({kDigits[code >> 4U], kDigits[code & 0xFU]});
    }
  }
  return json + '"';
}

template <typename Number>
std::string number(Number value) {
  if (!std::isfinite(value)) return "null";
  std::string text;
  appendExact(text, value);
  return text;
}

struct Extremes {
  double least = std::numeric_limits<double>::quiet_NaN();
  double most = std::numeric_limits<double>::quiet_NaN();
  std::size_t missing = 0;
};

Extremes extremesOf(const HeightGrid& grid) {
  Extremes found;
  for (const double height : grid.values()) {
    if (isMissing(height)) {
      ++found.missing;
      continue;
    }
    // The first height replaces NaN.
    if (!(found.least <= height)) found.least = height;
    if (!(found.most >= height)) found.most = height;
  }
  return found;
}

std::string resultList(const std::vector<ResultValue>& values) {
  std::string list;
  for (const ResultValue& value : values) {
    list += list.empty() ? "\n    " : ",\n    ";
    list += R"({"name": )" + quoted(value.name) + R"(, "value": )" +
            (value.text.empty() ? number(value.number) : quoted(value.text)) + R"(, "unit": )" +
            quoted(value.unit) + "}";
  }
  return list.empty() ? "[]" : "[" + list + "\n  ]";
}

}  // namespace

std::string infoObject(const ExportSource& source) {
  const ResHeader& header = source.measurement.header;
  const FileResults results = fileResults(source.measurement);
  const Extremes extremes = extremesOf(*source.heights);
  const std::vector<std::pair<std::string_view, std::string>> members = {
      {"file", quoted(results.file)},
      {"version", std::to_string(header.headerVersion)},
      {"width", std::to_string(header.width)},
      {"height", std::to_string(header.height)},
      {"pitch_x_mm", number(header.pixelSizeX)},
      {"pitch_y_mm", number(header.pixelSizeY)},
      {"element_type", std::to_string(header.numType)},
      {"part", quoted(results.part)},
      {"date", quoted(results.date)},
      {"time", quoted(results.time)},
      {"surface", quoted(surfaceTypeText(header.surfaceType))},
      {"data_type", quoted(fieldText(header.headerText2))},
      {"algorithm", R"({"number": )" + std::to_string(header.algorithmType) + R"(, "name": )" +
                        quoted(results.algorithm) + "}"},
      {"results", resultList(results.values)},
      {"minimum_um", number(extremes.least)},
      {"maximum_um", number(extremes.most)},
      {"missing", std::to_string(extremes.missing)},
      {"scale", number(source.automaticScale)},
  };
  std::string json = "{";
  for (const auto& [name, value] : members) {
    json.append(json.size() == 1 ? "\n  " : ",\n  ").append(quoted(name) + ": " + value);
  }
  return json + "\n}";
}

std::string infoDocument(std::span<const std::string> objects, bool isList) {
  std::string json;
  for (const std::string& object : objects) json.append(json.empty() ? "" : ",\n").append(object);
  return isList ? "[" + json + "]\n" : json + "\n";
}

}  // namespace morvane
