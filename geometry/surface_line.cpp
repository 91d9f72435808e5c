#include "geometry/surface_line.h"

#include <cmath>

#include "geometry/camera.h"
#include "surface/mesh.h"

namespace morvane {

std::vector<glm::vec3> sectionLine(const ProfileSection& section, const PinPair& pins,
                                   float heightToModel, float lift) {
  const auto& samples = section.samples;
  const glm::vec2 way(pins.b - pins.a);
  std::vector<glm::vec3> line;
  for (const std::size_t i : drawnSamples(section)) {
    const float part = static_cast<float>(i) / static_cast<float>(samples.size());
    line.emplace_back(glm::vec2(pins.a) + way * part, samples[i].y * heightToModel + lift);
  }
  return line;
}

std::vector<glm::vec3> regionOutline(const DrawnHeights& heights, const GridRegion& region) {
  std::vector<glm::vec3> outline;
  std::size_t column = region.column;
  std::size_t row = region.row;
  const auto add = [&] {
    outline.emplace_back(modelUnits(column), modelUnits(row),
                         static_cast<float>(modelHeight(heights, row, column)));
  };
  const std::size_t lastColumn = region.column + region.width - 1;
  const std::size_t lastRow = region.row + region.height - 1;
  for (; column < lastColumn; ++column) add();
  for (; row < lastRow; ++row) add();
  for (; column > region.column; --column) add();
  for (; row > region.row; --row) add();
  add();
  return outline;
}

LinePieces linePieces(std::span<const glm::vec3> line, const glm::mat4& matrix, int width,
                      int height) {
  LinePieces pieces;
  std::vector<glm::vec2> pixels;
  const glm::dmat4 exact(matrix);
  for (std::size_t i = 0; i <= line.size(); ++i) {
    if (i < line.size() && !std::isnan(line[i].z)) {
      pixels.emplace_back(project(exact, width, height, line[i]));
      continue;
    }
    if (pixels.empty()) continue;
    const std::span<const glm::vec3> run = line.subspan(i - pixels.size(), pixels.size());
    if (!addPieces(run, std::span<const glm::vec2>(pixels), pieces.ends)) {
      pieces.dots.push_back(run.front());
    }
    pixels.clear();
  }
  return pieces;
}

}  // namespace morvane
