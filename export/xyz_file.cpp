#include "base/number_text.h"
#include "export/height_files.h"

namespace morvane {
namespace {

constexpr double kMicrometresPerMillimetre = 1e3;

}  // namespace

void writeXyz(const ExportSource& source, ByteSink& sink) {
  const double pitchX = source.measurement.header.pixelSizeX * kMicrometresPerMillimetre;
  const double pitchY = source.measurement.header.pixelSizeY * kMicrometresPerMillimetre;
  TextWriter out(sink);
  std::string x;
  for (std::size_t row = 0; row < source.heights->height() && !out.failed(); ++row) {
    std::string y = " ";
    appendRounded(y, static_cast<double>(row) * pitchY);
    y += ' ';
    std::size_t column = 0;
    for (const double height : source.heights->row(row)) {
      if (!isMissing(height)) {
        x.clear();
        appendRounded(x, static_cast<double>(column) * pitchX);
        out.text(x);
        out.text(y);
        out.number(height);
        out.text("\n");
      }
      ++column;
    }
  }
}

}  // namespace morvane
