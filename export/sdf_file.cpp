#include "base/number_text.h"
#include "export/height_files.h"
#include "export/stamp.h"

namespace morvane {
namespace {

constexpr double kMetresPerMillimetre = 1e-3;
constexpr const char* kEnd = "\r\n";

/// One line of the header; names are padded to twelve characters.
void addField(TextWriter& out, std::string_view name, const std::string& value) {
  out.text(std::string(name).append(12 - name.size(), ' ') + "= " + value + kEnd);
}

void addHeader(TextWriter& out, const ExportSource& source) {
  const ResHeader& header = source.measurement.header;
  const auto metres = [](double millimetres) {
    std::string text;
    appendRounded(text, millimetres * kMetresPerMillimetre);
    return text;
  };
  const std::string date = sdfDate(header);
  out.text("aISO-1.0");
  out.text(kEnd);
  addField(out, "ManufacID", "Morvane");
  addField(out, "CreateDate", date);
  addField(out, "ModDate", date);
  addField(out, "NumPoints", std::to_string(source.heights->width()));
  addField(out, "NumProfiles", std::to_string(source.heights->height()));
  addField(out, "Xscale", metres(header.pixelSizeX));
  addField(out, "Yscale", metres(header.pixelSizeY));
  addField(out, "Zscale", "1e-06");    // heights are in µm
  addField(out, "Zresolution", "-1");  // not known
  addField(out, "Compression", "0");   // none
  addField(out, "DataType", "7");      // doubles
  addField(out, "CheckType", "0");     // none
}

}  // namespace

void writeSdf(const ExportSource& source, ByteSink& sink) {
  TextWriter out(sink);
  addHeader(out, source);
  out.text("*\r\n");
  for (std::size_t row = 0; row < source.heights->height() && !out.failed(); ++row) {
    const char* gap = "";
    for (const double height : source.heights->row(row)) {
      out.text(gap);
      isMissing(height) ? out.text("BAD") : out.number(height);
      gap = " ";
    }
    out.text(kEnd);
  }
  out.text("*\r\n");
  if (!source.heightWords.empty()) addField(out, "Comment", source.heightWords);
  out.text("*\r\n");
}

}  // namespace morvane
