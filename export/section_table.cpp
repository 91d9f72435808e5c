#include "export/section_table.h"

#include <algorithm>
#include <cmath>
#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <limits>

#include "geometry/profile_section.h"

namespace morvane {
namespace {

/// Bilinear between the four points around a column and row with fractions inside `grid`. NaN if
/// one that counts is missing.
double heightAt(const HeightGrid& grid, glm::dvec2 place) {
  const auto column = static_cast<std::size_t>(place.x);
  const auto row = static_cast<std::size_t>(place.y);
  const glm::dvec2 part = place - glm::floor(place);
  double height = 0.0;
  const auto add = [&](std::size_t r, std::size_t c, double share) {
    if (share == 0.0) return;
    // A pin may lie in the step beyond the last column, where the height is that of the column.
    const double value = grid.row(std::min(r, grid.height() - 1))[std::min(c, grid.width() - 1)];
    height += isMissing(value) ? std::numeric_limits<double>::quiet_NaN() : share * value;
  };
  add(row, column, (1.0 - part.x) * (1.0 - part.y));
  add(row, column + 1, part.x * (1.0 - part.y));
  add(row + 1, column, (1.0 - part.x) * part.y);
  add(row + 1, column + 1, part.x * part.y);
  return height;
}

}  // namespace

void writeSection(const ExportSource& source, ByteSink& sink) {
  CsvWriter table(sink, source.csv);
  for (const char* name : {"x_mm", "y_mm", "distance_mm", "height_um", "cut"}) table.text(name);
  table.endLine();
  if (!source.section) return;

  const ResHeader& header = source.measurement.header;
  const GridSize size = {source.heights->width(), source.heights->height()};
  const SampleLine line = sampleLine(size, clampedToGrid(*source.section, size));
  const glm::dvec2 start(line.start.column, line.start.row);
  const glm::dvec2 way(line.way.column, line.way.row);
  const glm::dvec2 pitch(header.pixelSizeX, header.pixelSizeY);
  for (std::size_t i = 0; i <= line.count && line.count > 0 && !table.failed(); ++i) {
    const double part = static_cast<double>(i) / static_cast<double>(line.count);
    const glm::dvec2 place = start + part * way;
    const double height = heightAt(*source.heights, place);
    table.product(place.x * pitch.x);
    table.product(place.y * pitch.y);
    table.product(part * glm::length(way * pitch));
    table.number(height);
    const auto drawn = static_cast<float>(height);
    table.text(source.limits.clamp(drawn) != drawn && !std::isnan(height) ? "1" : "0");
    table.endLine();
  }
}

}  // namespace morvane
