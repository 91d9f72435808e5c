// Any bytes as a measurement: read, listed, shown, filtered, cut through and saved in part.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <sstream>
#include <vector>

#include "base/little_endian.h"
#include "filter/band_filter.h"
#include "filter/filter_hint.h"
#include "fuzz/fuzz_support.h"
#include "geometry/profile_plot.h"
#include "resfile/region_file.h"
#include "results/layouts.h"
#include "surface/surface_model.h"

namespace morvane {
namespace {

// Larger grids are read and listed only: they take long and find nothing new.
constexpr std::size_t kMaxPoints = std::size_t{64} * 64;

/// What an operator types and drags is taken from the file too: numbers from its texts, the places
/// of the pins from the end of its results.
struct Operator {
  explicit Operator(const Measurement& m)
      : crop{true, leadingFloat(fieldText(m.header.headerText1)),
             leadingFloat(fieldText(m.header.headerText2))},
        cuts{std::string(fieldText(m.header.headerText3)),
             std::string(fieldText(m.header.headerText2))} {
    float* const coordinates[] = {&pins.a.x, &pins.a.y, &pins.b.x, &pins.b.y};
    const std::byte* word = m.ownHeader.data() + kHeaderBytes;
    for (float* coordinate : coordinates) *coordinate = readLe<float>(word -= sizeof(float));
  }
  Crop crop;
  FilterSettings cuts;
  PinPair pins;
};

void list(const resFile& file) {
  const ResHeader& header = file.header();
  [[maybe_unused]] const auto rows = headerRows(header, surfaceTypeText(header.surfaceType));
  [[maybe_unused]] const ResultLayout layout = resultLayout(header, file.results());
}

/// Samples sections of the shown grid and lays out their plots, as the profile window does.
void cutThrough(const SurfaceModel& model, const ResHeader& header, const PinPair& dragged) {
  const HeightGrid& grid = *model.shown();
  const GridSize size = {grid.width(), grid.height()};
  const PinPair corners = gridCorners(size);
  for (const PinPair& pins :
       {profilePins(size), corners, swapped(corners), dragged, swapped(dragged)}) {
    const ProfileSection section = sampleProfile(grid, pins, model.crop);
    const auto step =
        static_cast<float>(pixelSizeAlong(pins, header.pixelSizeX, header.pixelSizeY));
    const auto textWidth = [](std::string_view text, float scale) {
      return static_cast<float>(text.size()) * scale;
    };
    const PlotData data{section, model.crop, step, model.limits().zMax, model.limits().zMin};
    for (const int width : {1130, 120}) {
      const ProfilePlot plotted = layOutProfile(data, width, 250, textWidth);
      for (const glm::vec2& end : plotted.levels) {
        requireFinite(std::array{end.x, end.y}, "a level has a place in the plot");
      }
      for (const PlotText& text : plotted.texts) {
        requireFinite(std::array{text.place.x, text.place.y}, "a text has a place in the plot");
      }
    }
  }
}

void buildSurface(SurfaceModel& model, const ResHeader& header, const PinPair& dragged) {
  model.measure();
  const std::size_t cells = cellCount(*model.shown());
  std::vector<float> positions(cells * kFloatsPerCell);
  std::vector<float> normals(positions.size());
  std::vector<float> colours(positions.size());
  std::vector<float> faces(cells * kFaceFloatsPerCell);
  model.build({positions, normals, colours, faces});
  for (const KeyLabel& label : keyLabels(model.colourScale())) {
    require(!label.text.empty(), "every label of the key has a text");
  }
  if (!model.hasHeights()) return;
  requireFinite(normals, "normals are finite");
  requireFinite(faces, "normals of faces are finite");
  requireFinite(colours, "colours are finite");
  // A limit typed beyond single precision is infinite, and so are the heights clamped to it.
  const bool infinite = std::isinf(model.crop.min) || std::isinf(model.crop.max);
  const CoarseMesh coarse = model.buildCoarse(3);
  if (!model.crop.on || !infinite) {
    requireFinite(positions, "positions are finite");
    requireFinite(coarse.positions, "coarse positions are finite");
  }
  requireFinite(coarse.normals, "coarse normals are finite");
  requireFinite(coarse.colours, "coarse colours are finite");
  cutThrough(model, header, dragged);
}

void filter(const Measurement& measurement, FilterSettings settings, SurfaceModel& model,
            std::ostream& log) {
  const auto raw = measurement.grid->values();
  for (bool FilterSettings::*type :
       {&FilterSettings::highPass, &FilterSettings::lowPass, &FilterSettings::bandPass}) {
    settings.highPass = settings.lowPass = settings.bandPass = false;
    settings.*type = true;
    [[maybe_unused]] const std::string hint = filterHint(settings, measurement.header);
    const FilterRun run = runFilter(settings, measurement, log);
    require(run.status == FilterStatus::kDone, "a small grid is filtered");
    const auto filtered = run.filtered->values();
    for (std::size_t i = 0; i < raw.size(); ++i) {
      require(std::isnan(filtered[i]) == isMissing(raw[i]), "a filter makes and fills no holes");
    }
    model.setFiltered(run.filtered);
  }
}

void saveAndReopen(resFile& file, const Measurement& source, const PinPair& corners,
                   const std::string& path) {
  const HeightGrid& grid = *source.grid;
  if (cellCount(grid) == 0) return;
  const GridRegion region = regionBetween(corners, {grid.width(), grid.height()});
  require(saveRegion(file, source, grid, region, path).empty(), "a region is saved");
  file.update(path);
  require(file.isValid() && file.grid(), "a saved region opens");
  const std::vector<double> heights = cutHeights(grid, region);
  const auto read = file.grid()->values();
  require(read.size() == heights.size() &&
              std::memcmp(read.data(), heights.data(), read.size_bytes()) == 0,
          "a saved region has the heights it was cut from");
  // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): as bytes, so that NaN equals NaN
  require(std::memcmp(&file.results(), &source.results, sizeof source.results) == 0,
          "a saved region has the results of its measurement");
  require(file.header().headerText1 == source.header.headerText1 &&
              fieldText(file.header().headerText3) == fieldText(source.header.headerText3),
          "a saved region has the texts of its measurement");
}

}  // namespace
}  // namespace morvane

// NOLINTNEXTLINE(readability-identifier-naming): the name is libFuzzer's.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane;
  std::ostringstream log;
  resFile file(log);
  file.update(inputFile(data, size));
  list(file);
  if (!file.isValid() || !file.grid() || file.grid()->count() > kMaxPoints) return 0;

  const Measurement measurement = file.measurement();
  const Operator hand(measurement);
  SurfaceModel model(log);
  model.setRaw(measurement.grid);
  buildSurface(model, measurement.header, hand.pins);
  if (measurement.grid->count() > 0) filter(measurement, hand.cuts, model, log);
  model.useFiltered = true;
  buildSurface(model, measurement.header, hand.pins);
  model.heatMap = false;
  model.useFiltered = false;
  model.crop = hand.crop;
  buildSurface(model, measurement.header, hand.pins);
  saveAndReopen(file, measurement, hand.pins, fileBesideInput("region.res"));
  return 0;
}
