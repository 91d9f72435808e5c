// The surface of the measurement on show: its statistics, scale, limits and mesh.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>

#include "surface/heat_map_scale.h"
#include "surface/mesh.h"
#include "surface/statistics.h"
#include "surface/surface_limits.h"

namespace morvane {

/// Refilled, not recreated, when another measurement is shown. It keeps no mesh: `build` writes
/// into memory the caller has, and what is kept of it are the numbers.
class SurfaceModel {
 public:
  /// Writes its diagnostics to `log`, which must outlive the model.
  explicit SurfaceModel(std::ostream& log);

  /// Takes the raw heights of a measurement. The filtered ones of an earlier one are let go.
  void setRaw(std::shared_ptr<const HeightGrid> grid);
  /// Takes the filtered heights; used only while they have the size of the raw ones.
  void setFiltered(std::shared_ptr<const HeightGrid> grid);

  /// Everything that is known without a mesh, from the present grid and flags: statistics and
  /// automatic scale of a raw grid not seen before, and the limits.
  void measure();

  /// Writes the mesh of the last `measure` into `arrays`, each of `cellCount(*shown())` cells.
  /// Where no heat map colours it, `drape` does, if there is one.
  void build(const MeshArrays& arrays, const BitmapDrape* drape = nullptr) const;

  /// The grid a build takes: filtered while `useFiltered` is set and there is one that fits, else
  /// raw; null before the first measurement.
  [[nodiscard]] const std::shared_ptr<const HeightGrid>& shown() const;
  [[nodiscard]] const std::shared_ptr<const HeightGrid>& raw() const { return raw_; }
  /// Whether the last measured grid has any height to draw.
  [[nodiscard]] bool hasHeights() const { return mean_.finite > 0; }

  [[nodiscard]] float mean() const { return mean_.mean; }
  /// The mean of the grid on show, as of the last measure.
  [[nodiscard]] float shownMean() const { return shownMean_; }
  [[nodiscard]] float variance() const { return variance_; }
  [[nodiscard]] float sd() const { return sd_; }
  /// The vertical exaggeration that suits the raw grid; infinite for a flat one.
  [[nodiscard]] float autoScale() const { return autoScale_; }
  [[nodiscard]] const SurfaceLimits& limits() const { return limits_; }
  /// The scale of the surface's colours and of its key: the global one where there is one, else
  /// that over the limits of the crop while it is on, else over the displayed ones of the last
  /// measure.
  [[nodiscard]] HeatMapScale colourScale() const {
    if (globalScale) return *globalScale;
    return crop.on ? HeatMapScale(crop.min, crop.max) : scale_;
  }

  bool skipScale = false;                   ///< keep the z-scale that is in force
  bool useFiltered = false;                 ///< build from the filtered grid
  bool heatMap = true;                      ///< colour by height; else mid grey
  Crop crop;                                ///< the limits an operator set
  std::optional<HeatMapScale> globalScale;  ///< colours without clamping heights

 private:
  void measureStatistics();
  void logLimits() const;

  std::ostream* log_;
  std::shared_ptr<const HeightGrid> raw_;
  std::shared_ptr<const HeightGrid> filtered_;
  bool statisticsKnown_ = false;
  HeightMean mean_;
  float shownMean_ = 0.0F;
  float variance_ = 0.0F;
  float sd_ = 0.0F;
  float autoScale_ = 0.0F;
  SurfaceLimits limits_;
  HeatMapScale scale_;
};

}  // namespace morvane
