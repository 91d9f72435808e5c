#include <algorithm>
#include <limits>
#include <vector>

#include "base/little_endian.h"
#include "base/number_text.h"
#include "base/utf8.h"
#include "export/height_files.h"

namespace morvane {
namespace {

constexpr double kMetresPerMillimetre = 1e-3;
constexpr double kMetresPerMicrometre = 1e-6;
constexpr std::size_t kAlignment = 4;

std::string headerText(const ExportSource& source) {
  const ResHeader& header = source.measurement.header;
  std::string text = "Gwyddion Simple Field 1.0\n";
  const auto addText = [&text](std::string_view name, std::string_view value) {
    if (value.empty()) return;
    std::string line = wellFormed(value);
    std::ranges::replace_if(
        line, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    text.append(name).append(" = ").append(line) += '\n';
  };
  const auto addLength = [&](std::string_view name, std::size_t points, double pitch) {
    std::string value;
    appendRounded(value, static_cast<double>(points) * pitch * kMetresPerMillimetre);
    addText(name, value);
  };
  const std::size_t width = source.heights->width();
  const std::size_t height = source.heights->height();
  addText("XRes", std::to_string(width));
  addText("YRes", std::to_string(height));
  addLength("XReal", width, header.pixelSizeX);
  addLength("YReal", height, header.pixelSizeY);
  addText("XYUnits", "m");
  addText("ZUnits", "m");
  addText("Title", fieldText(header.headerText3));
  addText("Comment", source.heightWords);
  // At least one zero ends the header, and the heights are aligned.
  return text.append(kAlignment - text.size() % kAlignment, '\0');
}

}  // namespace

void writeGsf(const ExportSource& source, ByteSink& sink) {
  const std::string header = headerText(source);
  sink.write(header.data(), header.size());
  std::vector<std::byte> bytes(source.heights->width() * sizeof(float));
  for (std::size_t row = source.heights->height(); row-- > 0 && !sink.failed();) {
    std::byte* at = bytes.data();
    for (const double height : source.heights->row(row)) {
      writeLe(at, isMissing(height) ? std::numeric_limits<float>::quiet_NaN()
                                    : static_cast<float>(height * kMetresPerMicrometre));
      at += sizeof(float);
    }
    sink.write(bytes.data(), bytes.size());
  }
}

}  // namespace morvane
