// What is shown: after one call of a setter the next frame is right.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <utility>
#include <vector>

#include "surface/shown_surface.h"
#include "surface/statistics.h"
#include "tests/support/test_grid.h"

namespace morvane {
namespace {

class Shown : public testing::Test {
 protected:
  Shown() {
    Measurement measurement;
    measurement.grid = roughGrid(6, 5);
    shown_.show(measurement);
    automatic_ = shown_.zScale();
  }

  /// Whether the mesh has become out of date since the last call.
  bool needsMesh() { return std::exchange(bound_, shown_.meshRevision()) != shown_.meshRevision(); }

  std::ostringstream log_;
  ShownSurface shown_{log_};
  float automatic_ = 0.0F;
  std::uint64_t bound_ = 0;
};

TEST_F(Shown, TypedLimitsWaitForTheNextRebuildWhileABitmapColoursTheSurface) {
  const Crop crop = {.on = true, .min = -0.25F, .max = 0.25F};
  EXPECT_TRUE(needsMesh());
  shown_.setCrop({.on = false, .min = 1.0F, .max = 2.0F});
  EXPECT_FALSE(needsMesh()) << "limits that are off change nothing";
  shown_.setColourSource(ColourSource::kBitmap);
  shown_.setCrop(crop);
  EXPECT_FALSE(needsMesh());
  EXPECT_FALSE(shown_.measured().crop.on);
  EXPECT_TRUE(shown_.crop().on) << "the section is clipped at once";
  shown_.resetScaleAndLimits();
  EXPECT_TRUE(needsMesh());
  EXPECT_TRUE(shown_.measured().crop.on);
  EXPECT_FALSE(shown_.measured().heatMap) << "with the next rebuild, bitmap or not";
  EXPECT_EQ(shown_.crop().max, shown_.measured().limits().trueMax);
}

TEST_F(Shown, ABitmapLiesOnAFlatSurfaceUntilTheHeatMapIsBack) {
  shown_.setZScale(3.0F);
  shown_.setColourSource(ColourSource::kBitmap);
  EXPECT_EQ(shown_.zScale(), 3.0F) << "there is no bitmap";
  shown_.chooseBitmap("picture.bmp");
  EXPECT_EQ(shown_.zScale(), 1e-7F);
  EXPECT_FALSE(shown_.measured().heatMap);
  shown_.setColourSource(ColourSource::kHeatMap);
  EXPECT_EQ(shown_.zScale(), automatic_);
  EXPECT_TRUE(shown_.measured().heatMap);
}

TEST_F(Shown, AnotherMeasurementStartsAnewButKeepsFilterAndColourSource) {
  shown_.setZScale(3.0F);
  shown_.setCrop({.on = true, .min = -0.1F, .max = 1.123F});
  shown_.setFilterEnabled(true);
  shown_.setFiltered(roughGrid(6, 5), "Low pass 0.80 mm");
  shown_.setGlobalLimits(HeightRange{-1.0F, 2.0F});
  EXPECT_EQ(shown_.alterations(),
            "Low pass 0.80 mm · Limits -0.10 to 1.123 µm · Colours -1.00 to 2.00 µm");
  Measurement next;
  next.grid = gridFrom(6, 5, [](double column, double) { return column; });
  shown_.show(next);
  EXPECT_FLOAT_EQ(shown_.measured().mean(), 2.5F);
  EXPECT_EQ(shown_.zScale(), automaticScale(shown_.measured().sd(), 6));
  EXPECT_EQ(shown_.alterations(), "Colours -1.00 to 2.00 µm");
  EXPECT_EQ(shown_.measured().shown(), next.grid);
  EXPECT_TRUE(shown_.filterEnabled());
  for (const std::size_t rows : {4U, 5U}) {
    shown_.setFiltered(roughGrid(6, rows), "");
    EXPECT_EQ(shown_.measured().shown() != next.grid, rows == 5) << "only one that fits";
  }
}

TEST_F(Shown, TheLastChoiceOfARangeIsInForceAndMayBeKeptForTheNextMeasurement) {
  // The heights from 0 to 99, and a spike on each side.
  const auto grid = gridFrom(2, 51, [](double column, double row) { return column + 2 * row; });
  grid->values()[100] = 9e3;
  grid->values()[101] = -9e3;
  Measurement spiked, next;
  spiked.grid = grid;
  next.grid = roughGrid(6, 5);
  const auto range = [&] { return shown_.measured().colourScale(); };
  shown_.show(spiked);
  shown_.setCrop({.on = true, .min = -1.0F, .max = 1.0F});
  shown_.setPercentages(Percentages{});
  EXPECT_FLOAT_EQ(range().lower(), 0.01F);
  EXPECT_FLOAT_EQ(range().upper(), 98.99F);
  EXPECT_EQ(range().colourOf(9e3F), standardColours().stops.back());
  EXPECT_EQ(shown_.measured().automaticLimits().max, range().upper()) << "what the inputs show";
  EXPECT_EQ(shown_.alterations(), "Colours 0.01 to 98.99 µm (1 % to 99 %)");
  shown_.setRangeKept(true);
  shown_.show(next);
  EXPECT_EQ(shown_.alterations(), "Colours 0.01 to 98.99 µm");
  shown_.setRangeKept(false);
  EXPECT_LT(range().upper(), 5.0F) << "percentiles of this measurement";
  shown_.setCrop({.on = true, .min = -1.0F, .max = 1.0F});
  EXPECT_EQ(range().upper(), 1.0F);
  EXPECT_FALSE(shown_.percentilesInForce());
  shown_.setGlobalLimits(HeightRange{-2.0F, 2.0F});
  shown_.setPercentages(Percentages{});
  EXPECT_TRUE(shown_.percentilesInForce());
}

TEST(Percentiles, AreThoseOfTheSortedHeights) {
  for (const auto& [columns, rows] : {std::pair{1U, 1U}, {2U, 1U}, {1U, 9U}, {31U, 40U}}) {
    auto grid = roughGrid(columns, rows);
    if (rows == 40) grid->values()[7] = grid->values()[1239] = NAN;
    std::vector<double> sorted;
    for (const double height : grid->values()) {
      if (!isMissing(height)) sorted.push_back(static_cast<float>(height));
    }
    std::ranges::sort(sorted);
    const auto expected = [&](double percentage) {
      const double place = percentage / 100.0 * static_cast<double>(sorted.size() - 1);
      const auto rank = static_cast<std::size_t>(place);
      const double next = sorted[std::min(rank + 1, sorted.size() - 1)];
      return sorted[rank] + (place - static_cast<double>(rank)) * (next - sorted[rank]);
    };
    for (const auto& [low, high] : {std::pair{0.0, 100.0}, {1.0, 99.0}, {12.3, 50.0}}) {
      const HeightRange found = findPercentiles(*grid, {low, high});
      EXPECT_FLOAT_EQ(found.min, static_cast<float>(expected(low))) << low;
      EXPECT_FLOAT_EQ(found.max, static_cast<float>(expected(high))) << high;
    }
  }
  EXPECT_EQ(findPercentiles(*gridOf(1, 1, {NAN}), {}).max, 0.0F);
}

}  // namespace
}  // namespace morvane
