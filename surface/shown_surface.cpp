#include "surface/shown_surface.h"

#include <cmath>
#include <ostream>
#include <utility>

#include "base/number_text.h"

namespace morvane {
namespace {

/// `range` in numbers with few digits, less than a thousandth of it away.
HeightRange rounded(const HeightRange& range) {
  const double decade = std::floor(std::log10(std::abs(double{range.max} - range.min)));
  if (!std::isfinite(decade)) return range;
  const double step = std::pow(10.0, decade - 3.0);
  const auto toStep = [step](double height) {
    return static_cast<float>(std::round(height / step) * step);
  };
  return {toStep(range.min), toStep(range.max)};
}

}  // namespace

ShownSurface::ShownSurface(std::ostream& log) : log_(&log), model_(log), bitmap_(log) {}

void ShownSurface::show(Measurement measurement) {
  *log_ << "Updating Res File...\n"
        << "Updating Profile Res File...\n"
        << "Updating Autoscaling...\n";
  measurement_ = std::move(measurement);
  ++measurementRevision_;
  model_.setRaw(measurement_.grid);
  // Limits and scale of the previous measurement do not apply to this one.
  crop_.on = false;
  scaleSource_ = ScaleSource::kAutomatic;
  bitmapPath_.clear();
  rebuild();
}

void ShownSurface::setFiltered(std::shared_ptr<const HeightGrid> grid, std::string words) {
  filterWords_ = std::move(words);
  model_.setFiltered(std::move(grid));
  rebuild();
}

void ShownSurface::setFilterEnabled(bool enabled) {
  model_.useFiltered = enabled;
  rebuild();
}

void ShownSurface::setCrop(const Crop& crop) {
  crop_ = crop;
  const Crop& built = model_.crop;
  const bool changesHeights = built != crop && (built.on || crop.on);
  if (colourSource_ == ColourSource::kHeatMap && changesHeights) {
    rebuild();
  } else {
    changed();
  }
}

void ShownSurface::resetScaleAndLimits() {
  const SurfaceLimits& limits = measured().limits();
  crop_ = {.on = crop_.on, .min = limits.trueMin, .max = limits.trueMax};
  scaleSource_ = ScaleSource::kAutomatic;
  rebuild();
}

void ShownSurface::setGlobalLimits(const std::optional<HeightRange>& limits) {
  model_.globalLimits = limits;
  rebuild();
}

void ShownSurface::setRangeKept(bool kept) {
  if (!modelLoaded()) return;
  const HeatMapScale scale = measured().colourScale();
  setGlobalLimits(kept ? std::optional(rounded({scale.lower(), scale.upper()})) : std::nullopt);
}

void ShownSurface::setPercentages(const std::optional<Percentages>& percentages) {
  model_.percentages = percentages;
  if (percentages) {
    model_.globalLimits.reset();
    crop_.on = false;
  }
  rebuild();
}

void ShownSurface::setColourMap(const ColourMap& map) {
  model_.colourMap = &map;
  rebuild();
}

void ShownSurface::setColourSource(ColourSource source) {
  colourSource_ = source;
  if (source == ColourSource::kHeatMap) {
    scaleSource_ = ScaleSource::kAutomatic;
  } else if (bitmapAvailable()) {
    flatten();
  }
  bitmapAvailable() ? rebuild() : changed();
}

void ShownSurface::chooseBitmap(const std::string& path) {
  bitmapPath_ = path;
  if (colourSource_ != ColourSource::kBitmap) return;
  flatten();
  rebuild();
}

void ShownSurface::flatten() {
  constexpr float kFlat = 1e-7F;
  scaleSource_ = ScaleSource::kByHand;
  zScale_ = kFlat;
}

void ShownSurface::setZScale(float zScale) {
  scaleSource_ = ScaleSource::kByHand;
  zScale_ = zScale;
  changed();
}

float ShownSurface::zScale() {
  if (scaleSource_ == ScaleSource::kAutomatic) (void)measured();
  return zScale_;
}

const SurfaceModel& ShownSurface::measured() {
  if (measured_ || !modelLoaded()) return model_;
  *log_ << "Binding Model Data...\n";
  measured_ = true;
  model_.crop = crop_;
  model_.skipScale = scaleSource_ == ScaleSource::kByHand;
  model_.heatMap = colourSource_ == ColourSource::kHeatMap;
  model_.measure();
  if (!model_.skipScale) zScale_ = model_.autoScale();
  if (onMeasured) onMeasured();
  return model_;
}

std::string ShownSurface::heightWords() {
  const SurfaceModel& model = measured();
  return model.shown() != model.raw() ? filterWords_ : std::string();
}

std::string ShownSurface::alterations() {
  const SurfaceModel& model = measured();
  std::string words = heightWords();
  const auto add = [&words](const std::string& alteration) {
    words += (words.empty() ? "" : " · ") + alteration;
  };
  const auto range = [](float low, float high) {
    return settingText(low) + " to " + settingText(high) + " µm";
  };
  if (model.crop.on) add("Limits " + range(model.crop.min, model.crop.max));
  if (const auto& limits = model.globalLimits) {
    add("Colours " + range(limits->min, limits->max));
  } else if (percentilesInForce()) {
    const auto [min, max] = rounded(model.automaticLimits());
    std::string percentages;
    appendExact(percentages, model.percentages->low);
    percentages += " % to ";
    appendExact(percentages, model.percentages->high);
    add("Colours " + range(min, max) + " (" + percentages + " %)");
  }
  return words;
}

const BitmapDrape* ShownSurface::drape() {
  const HeightGrid& grid = *measured().shown();
  if (std::exchange(drapeRevision_, meshRevision_) != meshRevision_) {
    drape_.reset();
    if (model_.heatMap || !bitmapAvailable() || cellCount(grid) == 0) return nullptr;
    bitmap_.readBitmap(bitmapPath_);
    *log_ << "BMP ARRAY: " << 8 << '\n' << "RES WIDTH: " << grid.width() << '\n';
    if (!bitmap_.pixels().empty()) drape_.emplace(bitmap_, grid.width(), grid.height());
  }
  return drape_ ? &*drape_ : nullptr;
}

void ShownSurface::rebuild() {
  ++meshRevision_;
  measured_ = false;
  changed();
}

void ShownSurface::changed() const {
  if (onChange) onChange();
}

}  // namespace morvane
