// What is shown and how: measurement, filter, limits, colours and scale, as plain data.
#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

#include "resfile/bitmap_image.h"
#include "resfile/measurement.h"
#include "surface/surface_model.h"

namespace morvane {

/// Where the surface's colours come from.
enum class ColourSource { kHeatMap, kBitmap };

/// Where the vertical exaggeration comes from.
enum class ScaleSource { kAutomatic, kByHand };

/// Callers only set what is to be shown; the next frame is then right. Statistics and limits are
/// computed when they are first needed.
class ShownSurface {
 public:
  /// Writes its diagnostics to `log`, which must outlive this object.
  explicit ShownSurface(std::ostream& log);

  /// Shows a measurement with automatic limits and scale and without a bitmap. It is unfiltered
  /// until `setFiltered`.
  void show(Measurement measurement);
  /// The measurement shown. Its path is empty before the first one.
  [[nodiscard]] const Measurement& measurement() const { return measurement_; }
  /// Whether any measurement is shown.
  [[nodiscard]] bool modelLoaded() const { return measurementRevision_ != 0; }

  /// Sets the filtered heights (null for none) and the words that describe the filter in the view.
  void setFiltered(std::shared_ptr<const HeightGrid> grid, std::string words);
  /// Shows the filtered heights, if there are any of the right size, or the raw ones.
  void setFilterEnabled(bool enabled);
  [[nodiscard]] bool filterEnabled() const { return model_.useFiltered; }

  /// Sets the limits. The section is clamped at once. The surface and its colours are rebuilt at
  /// once under the heat map. Kept: otherwise they change with the next rebuild only.
  void setCrop(const Crop& crop);
  [[nodiscard]] const Crop& crop() const { return crop_; }
  /// Restores the automatic scale, sets typed limits to the true ones, and rebuilds.
  void resetScaleAndLimits();

  /// Colours the surface and labels the key by `limits`, or by the surface's own if there are none.
  /// They stay in force for the next measurement.
  void setGlobalLimits(const std::optional<HeightRange>& limits);
  /// Makes the present range of the colours, in numbers with few digits, the global limits, or
  /// drops these.
  void setRangeKept(bool kept);
  [[nodiscard]] bool rangeKept() const { return model_.globalLimits.has_value(); }

  /// Bounds the colours by percentiles of each surface, in place of its lowest and highest height.
  /// Typed and global limits are dropped then, as they would overrule the percentiles.
  void setPercentages(const std::optional<Percentages>& percentages);
  /// Whether the colours are bounded by percentiles.
  [[nodiscard]] bool percentilesInForce() const {
    return model_.percentages && !rangeKept() && !crop_.on;
  }

  /// Sets the colours of the heat map. `map` is a row of the table.
  void setColourMap(const ColourMap& map);
  [[nodiscard]] const ColourMap& colourMap() const { return *model_.colourMap; }

  /// Chooses where colours come from. A bitmap is draped over a flattened surface. If no bitmap is
  /// chosen, only the choice is stored and the picture changes with the next rebuild.
  void setColourSource(ColourSource source);
  [[nodiscard]] ColourSource colourSource() const { return colourSource_; }
  /// Chooses the bitmap to drape; an empty path chooses none.
  void chooseBitmap(const std::string& path);
  [[nodiscard]] bool bitmapAvailable() const { return !bitmapPath_.empty(); }

  /// Sets a scale chosen by the operator. It holds until `resetScaleAndLimits` or the next
  /// measurement.
  void setZScale(float zScale);
  /// The vertical exaggeration. It is infinite for a flat surface, which is drawn at 1.
  [[nodiscard]] float zScale();
  /// The automatic scale, the base of the slider's steps.
  [[nodiscard]] float sliderScale() { return measured().autoScale(); }
  /// The upper bound of the slider in automatic scales: a new file starts in its middle.
  static constexpr float kSliderSpan = 2.0F;
  [[nodiscard]] float maxScale() { return kSliderSpan * sliderScale(); }

  /// Statistics, limits and the grid shown, updated if needed.
  [[nodiscard]] const SurfaceModel& measured();
  /// What was done to the heights shown, in words; empty for the raw ones.
  [[nodiscard]] std::string heightWords();
  /// How the picture differs from the measurement, in words; empty when it does not.
  [[nodiscard]] std::string alterations();

  /// Called when the limits and the scale have been updated.
  std::function<void()> onMeasured;
  /// Called after every change: the view may need to be redrawn.
  std::function<void()> onChange;

  /// Grows whenever the mesh must be rebuilt; 0 before the first measurement.
  [[nodiscard]] std::uint64_t meshRevision() const { return meshRevision_; }
  /// Grows with every measurement.
  [[nodiscard]] std::uint64_t measurementRevision() const { return measurementRevision_; }
  /// The bitmap for the mesh of the current grid. Null under the heat map, or when no bitmap can be
  /// read. Valid until the mesh must be rebuilt.
  [[nodiscard]] const BitmapDrape* drape();

 private:
  void changed() const;
  void rebuild();
  void flatten();

  std::ostream* log_;
  Measurement measurement_;
  SurfaceModel model_;
  Crop crop_;  // for the next rebuild; `model_.crop` is that of the last one
  ColourSource colourSource_ = ColourSource::kHeatMap;  // for the next rebuild, too
  ScaleSource scaleSource_ = ScaleSource::kAutomatic;
  float zScale_ = 1.0F;
  std::string filterWords_;  // of the filtered grid
  std::string bitmapPath_;
  BitmapImage bitmap_;
  std::optional<BitmapDrape> drape_;
  std::uint64_t drapeRevision_ = 0;  // of the mesh that `drape_` is for
  bool measured_ = false;
  std::uint64_t meshRevision_ = 0;
  std::uint64_t measurementRevision_ = 0;
};

}  // namespace morvane
