#include "surface/surface_model.h"

#include <cmath>
#include <ostream>
#include <utility>

namespace morvane {

SurfaceModel::SurfaceModel(std::ostream& log) : log_(&log) { *log_ << "Hello Vertices\n"; }

void SurfaceModel::setRaw(std::shared_ptr<const HeightGrid> grid) {
  raw_ = std::move(grid);
  filtered_.reset();
  statisticsKnown_ = false;
}

void SurfaceModel::setFiltered(std::shared_ptr<const HeightGrid> grid) {
  filtered_ = std::move(grid);
}

const std::shared_ptr<const HeightGrid>& SurfaceModel::shown() const {
  const bool fits = filtered_ && raw_ && filtered_->width() == raw_->width() &&
                    filtered_->height() == raw_->height();
  return useFiltered && fits ? filtered_ : raw_;
}

void SurfaceModel::measure() {
  if (!raw_) return;
  *log_ << "Setting Model Values...\n";
  measureStatistics();
  if (!skipScale) *log_ << "Setting AS...\n";
  *log_ << "Non-Detailed Rendering\n";
  limits_ = findLimits(*shown(), crop);
  if (usePercentiles()) percentiles_ = findPercentiles(*shown(), *percentages);
  shownMean_ = shown() == raw_ ? mean_.mean : meanOf(shown()->values()).mean;
  logLimits();
}

void SurfaceModel::measureStatistics() {
  // The statistics are those of the raw heights, which a rebuild does not change.
  const bool known = std::exchange(statisticsKnown_, true);
  const auto heights = raw_->values();
  *log_ << "Setting Mean...\n";
  if (!known) mean_ = meanOf(heights);
  *log_ << "Setting Variance...\n";
  if (!known) variance_ = varianceOf(heights, mean_);
  *log_ << "Setting SD...\n";
  sd_ = std::sqrt(variance_);
  // Needed even while another scale is set: the controls use it as their step.
  autoScale_ = automaticScale(sd_, raw_->width());
}

HeightRange SurfaceModel::automaticLimits() const {
  if (usePercentiles()) return percentiles_;
  return {limits_.trueMin, limits_.trueMax};
}

HeatMapScale SurfaceModel::colourScale() const {
  const ColourMap& map = *colourMap;
  if (globalLimits) return {map, globalLimits->min, globalLimits->max, Beyond::kNearerEnd};
  if (crop.on) return {map, crop.min, crop.max};
  if (usePercentiles()) return {map, percentiles_.min, percentiles_.max, Beyond::kNearerEnd};
  return {map, limits_.zMin, limits_.zMax};
}

void SurfaceModel::logLimits() const {
  *log_ << "True Min: " << limits_.trueMin << '\n'
        << "True Max: " << limits_.trueMax << '\n'
        << "zMin: " << limits_.zMin << '\n'
        << "zMax: " << limits_.zMax << '\n'
        << "cropMin: " << crop.min << '\n'
        << "cropMax: " << crop.max << '\n';
}

void SurfaceModel::build(const MeshArrays& arrays, const BitmapDrape* drape,
                         const CellRows& rows) const {
  if (!raw_) return;
  if (rows.first == 0) *log_ << "Setting Vertex Normals...\n";
  const HeatMapScale colours = colourScale();
  buildMesh(*shown(), {crop, heatMap ? &colours : nullptr, drape}, arrays, rows);
}

CoarseMesh SurfaceModel::buildCoarse(std::size_t step, const BitmapDrape* drape) const {
  if (!raw_) return {};
  const HeatMapScale colours = colourScale();
  return buildCoarseMesh(*shown(), {crop, heatMap ? &colours : nullptr, drape}, step);
}

}  // namespace morvane
