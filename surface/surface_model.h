// The surface of the measurement shown: its statistics, scale, limits and mesh.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>

#include "surface/coarse_mesh.h"
#include "surface/heat_map_scale.h"
#include "surface/mesh.h"
#include "surface/percentiles.h"
#include "surface/statistics.h"
#include "surface/surface_limits.h"

namespace morvane {

/// Reused when another measurement is shown. It stores no mesh: `build` writes into the caller's
/// memory.
class SurfaceModel {
 public:
  /// Writes its diagnostics to `log`, which must outlive the model.
  explicit SurfaceModel(std::ostream& log);

  /// Sets the raw heights of a measurement and drops filtered ones of an earlier one.
  void setRaw(std::shared_ptr<const HeightGrid> grid);
  /// Sets the filtered heights. They are used only if they have the size of the raw ones.
  void setFiltered(std::shared_ptr<const HeightGrid> grid);

  /// Computes what needs no mesh from the current grid and settings: the limits and, once for each
  /// raw grid, its statistics and automatic scale.
  void measure();

  /// Writes the mesh for the last `measure` into `arrays`, each of `cellCount(*shown())` cells, or
  /// only its `rows`. Without the heat map `drape` colours it, if there is one.
  void build(const MeshArrays& arrays, const BitmapDrape* drape = nullptr,
             const CellRows& rows = {}) const;
  /// The same surface at every `step`-th row and column.
  [[nodiscard]] CoarseMesh buildCoarse(std::size_t step, const BitmapDrape* drape = nullptr) const;

  /// The grid that is built: the filtered one if `useFiltered` is set and it has the right size,
  /// else the raw one. Null before the first measurement.
  [[nodiscard]] const std::shared_ptr<const HeightGrid>& shown() const;
  [[nodiscard]] const std::shared_ptr<const HeightGrid>& raw() const { return raw_; }
  /// Whether the last measured grid has any finite height.
  [[nodiscard]] bool hasHeights() const { return mean_.finite > 0; }

  [[nodiscard]] float mean() const { return mean_.mean; }
  /// The mean of the grid shown, as of the last `measure`.
  [[nodiscard]] float shownMean() const { return shownMean_; }
  [[nodiscard]] float variance() const { return variance_; }
  [[nodiscard]] float sd() const { return sd_; }
  /// The automatic vertical exaggeration of the raw grid; infinite for a flat one.
  [[nodiscard]] float autoScale() const { return autoScale_; }
  [[nodiscard]] const SurfaceLimits& limits() const { return limits_; }
  /// The limits of colours while the operator sets none: the percentiles if they are wanted, else
  /// the lowest and highest height.
  [[nodiscard]] HeightRange automaticLimits() const;
  /// The scale of the surface's colours and its key: over the global limits if there are any; else
  /// over those of the crop while it is on; else over the percentiles if they are wanted; else over
  /// the displayed limits of the last `measure`.
  [[nodiscard]] HeatMapScale colourScale() const;

  bool skipScale = false;    ///< keep the current z-scale
  bool useFiltered = false;  ///< use the filtered grid
  bool heatMap = true;       ///< colour by height; else by the drape
  Crop crop;                 ///< the limits the operator set
  const ColourMap* colourMap = &standardColours();
  std::optional<Percentages> percentages;   ///< of the heights that bound the colours
  std::optional<HeightRange> globalLimits;  ///< of the colours, without clamping heights

 private:
  void measureStatistics();
  void logLimits() const;
  /// Whether percentiles are the limits of the colours.
  [[nodiscard]] bool usePercentiles() const { return percentages && !globalLimits && !crop.on; }

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
  HeightRange percentiles_;  // while they are used
};

}  // namespace morvane
