// What is on show and how: measurement, filter, limits, colours and scale, as plain data.
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

/// Where its vertical exaggeration comes from.
enum class ScaleSource { kAutomatic, kByHand };

/// Callers set what they want shown; one call is enough for the next frame to be right. Numbers
/// that follow from it are computed when they are first asked for.
class ShownSurface {
 public:
  /// Writes its diagnostics to `log`, which must outlive it.
  explicit ShownSurface(std::ostream& log);

  /// Puts a measurement on show with automatic limits and scale, unfiltered until `setFiltered`
  /// and with no bitmap chosen.
  void show(Measurement measurement);
  /// The measurement on show; empty path before the first.
  [[nodiscard]] const Measurement& measurement() const { return measurement_; }
  /// Whether there is one.
  [[nodiscard]] bool modelLoaded() const { return measurementRevision_ != 0; }

  /// Takes the outcome of a filter run, null for none, and the words that go with its picture.
  void setFiltered(std::shared_ptr<const HeightGrid> grid, std::string words);
  /// Shows the filtered heights, where there are some that fit, or the raw ones.
  void setFilterEnabled(bool enabled);
  [[nodiscard]] bool filterEnabled() const { return model_.useFiltered; }

  /// Clamps the section's heights to `crop` at once, and those of the surface and its colours: at
  /// once under the heat map, else with the next rebuild (kept).
  void setCrop(const Crop& crop);
  [[nodiscard]] const Crop& crop() const { return crop_; }
  /// Puts the scale back to the automatic one and typed limits to the true ones, and rebuilds.
  void resetScaleAndLimits();

  /// Colours the surface, and labels the key, by `scale`; by its own limits without one.
  void setGlobalScale(const std::optional<HeatMapScale>& scale);

  /// Chooses where colours come from. A bitmap is laid over a flat surface; without one only the
  /// choice is kept and the picture stays until the next rebuild.
  void setColourSource(ColourSource source);
  [[nodiscard]] ColourSource colourSource() const { return colourSource_; }
  /// The bitmap that may be draped; an empty path chooses none.
  void chooseBitmap(const std::string& path);
  [[nodiscard]] bool bitmapAvailable() const { return !bitmapPath_.empty(); }

  /// Puts a scale of the operator's in force until `resetScaleAndLimits` or the next measurement.
  void setZScale(float zScale);
  /// Vertical exaggeration of the surface; infinite for a flat one, which is drawn at 1.
  [[nodiscard]] float zScale();
  /// The measurement's own scale, the base of the slider's steps.
  [[nodiscard]] float sliderScale() { return measured().autoScale(); }
  /// Upper bound of the slider: a fresh file stands in its middle.
  [[nodiscard]] float maxScale() { return 2.0F * sliderScale(); }

  /// Statistics, limits and the grid on show, brought up to date.
  [[nodiscard]] const SurfaceModel& measured();
  /// What makes the picture differ from the measurement, in words; empty when nothing does.
  [[nodiscard]] std::string alterations();

  /// Called when limits or scale have been brought up to date.
  std::function<void()> onMeasured;
  /// Called after every change: what is drawn may be out of date.
  std::function<void()> onChange;

  /// Grows whenever a mesh must be built anew; 0 before the first measurement.
  [[nodiscard]] std::uint64_t meshRevision() const { return meshRevision_; }
  /// Grows with every measurement.
  [[nodiscard]] std::uint64_t measurementRevision() const { return measurementRevision_; }
  /// The bitmap as a mesh of the present grid needs it; none where the heat map colours it or no
  /// bitmap can be read. Valid until the next call.
  [[nodiscard]] std::optional<BitmapDrape> drape();

 private:
  void changed() const;
  void rebuild();
  void flatten();

  std::ostream* log_;
  Measurement measurement_;
  SurfaceModel model_;
  Crop crop_;  // in force with the next rebuild; the model's own is that of the last
  ColourSource colourSource_ = ColourSource::kHeatMap;
  ScaleSource scaleSource_ = ScaleSource::kAutomatic;
  float zScale_ = 1.0F;
  std::string filterWords_;  // of the filtered grid
  std::string bitmapPath_;
  BitmapImage bitmap_;
  bool measured_ = false;
  std::uint64_t meshRevision_ = 0;
  std::uint64_t measurementRevision_ = 0;
};

}  // namespace morvane
