#include "export/section_table.h"

#include "geometry/profile_section.h"

namespace morvane {

void writeSection(const ExportSource& source, ByteSink& sink) {
  CsvWriter table(sink, source.csv);
  for (const char* name : {"x_mm", "y_mm", "distance_mm", "height_um", "cut"}) table.text(name);
  table.endLine();
  if (!source.section) return;

  const ResHeader& header = source.measurement.header;
  const GridSize size = {source.heights->width(), source.heights->height()};
  const PinPair ends = clampedToGrid(*source.section, size);
  const SampleLine line = sampleLine(size, ends);
  const double spacing = pixelSizeAlong(ends, header.pixelSizeX, header.pixelSizeY);
  const ProfileSection section = sampleProfile(*source.heights, ends, {});
  for (std::size_t i = 0; i < section.samples.size() && !table.failed(); ++i) {
    const glm::dvec2 place = line.place(i);
    const float height = section.samples[i].y;
    table.number(static_cast<float>(place.x * header.pixelSizeX));
    table.number(static_cast<float>(place.y * header.pixelSizeY));
    table.number(static_cast<float>(static_cast<double>(i) * spacing));
    table.number(height);
    table.text(source.limits.clamp(height) != height && !std::isnan(height) ? "1" : "0");
    table.endLine();
  }
}

}  // namespace morvane
