// What a filter must do to waves, constants, holes and impossible settings.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <numeric>
#include <sstream>

#include "filter/band_filter.h"
#include "filter/filter_diagnostics.h"
#include "filter/filter_hint.h"
#include "filter/filter_words.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_grid.h"
#include "tools/measurement_builder.h"

namespace morvane {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr float kPixel = 0.01F;
constexpr FilterType kTypes[] = {FilterType::kHighPass, FilterType::kLowPass,
                                 FilterType::kBandPass};

std::vector<double> filtered(const HeightGrid& grid, FilterType type, float l1, float l2 = 0.0F,
                             float pixelX = kPixel, float pixelY = kPixel) {
  std::vector<double> output(grid.count());
  EXPECT_TRUE(filterGrid(grid.values(), output, static_cast<int>(grid.width()),
                         static_cast<int>(grid.height()), l1, l1, l2, l2, pixelX, pixelY, type));
  return output;
}

void expectAllNear(std::span<const double> found, std::span<const double> expected,
                   double tolerance) {
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t i = 0; i < found.size(); ++i) ASSERT_NEAR(found[i], expected[i], tolerance) << i;
}

TEST(Filter, LowAndHighPassAddUpToTheOriginal) {
  for (const auto& [nx, ny] : {std::pair{40U, 30U}, {41U, 31U}, {1U, 9U}, {9U, 1U}, {2U, 3U}}) {
    const auto grid = roughGrid(nx, ny);
    for (const float cut : {0.0F, 0.004F, 0.05F, 0.7F}) {
      std::vector<double> sum = filtered(*grid, FilterType::kLowPass, cut);
      const std::vector<double> high = filtered(*grid, FilterType::kHighPass, cut);
      // The mean is all in the low pass.
      EXPECT_NEAR(std::accumulate(high.begin(), high.end(), 0.0), 0.0, 1e-9);
      std::ranges::transform(sum, high, sum.begin(), std::plus());
      expectAllNear(sum, grid->values(), 1e-9 * 10.0);
    }
  }
}

TEST(Filter, MissingPointsCountAsTheMeanAndStayMissing) {
  const std::size_t holes[] = {0, 17, 18, 41, 62};
  for (const FilterType type : kTypes) {
    const auto grid = roughGrid(9, 7);
    const auto whole = roughGrid(9, 7);
    double sum = 0.0;
    for (const std::size_t hole : holes) whole->values()[hole] = 0.0;
    for (const double height : whole->values()) sum += height;
    for (const std::size_t hole : holes) {
      whole->values()[hole] = sum / 58.0;
      grid->values()[hole] = hole == 17 ? INFINITY : hole == 41 ? 1e300 : kNaN;
    }
    std::vector<double> expected = filtered(*whole, type, 0.03F, 0.06F);
    std::vector<double> found = filtered(*grid, type, 0.03F, 0.06F);
    for (const std::size_t hole : holes) {
      EXPECT_TRUE(isMissing(found[hole]));
      expected[hole] = found[hole] = 0.0;
    }
    expectAllNear(found, expected, 1e-12);
    const std::vector<double> none = filtered(*gridOf(3, 2, std::vector(6, kNaN)), type, 1.0F);
    EXPECT_TRUE(std::ranges::all_of(none, isMissing));
  }
}

TEST(Filter, ImpossibleSettingsGiveNumbers) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  constexpr float kNotANumber = std::numeric_limits<float>::quiet_NaN();
  const float values[] = {0.0F, -0.0F, 0.01F, -0.05F, 0.2F, 1e30F, 1e-45F, kInfinity, kNotANumber};
  for (const auto& [nx, ny] : {std::pair{1U, 1U}, {1U, 2U}, {3U, 1U}, {2U, 2U}, {6U, 5U}}) {
    const auto grid = roughGrid(nx, ny);
    grid->values()[0] = 3e38;
    for (const float l1 : values) {
      for (const float l2 : values) {
        for (const float pixel : values) {
          for (const FilterType type : kTypes) {
            for (const double height : filtered(*grid, type, l1, l2, pixel, 0.01F)) {
              ASSERT_TRUE(std::isfinite(height)) << nx << 'x' << ny << ' ' << wordOf(type) << ' '
                                                 << l1 << ' ' << l2 << ' ' << pixel;
            }
          }
        }
      }
    }
  }
}

// A weight above 1 would add energy (Parseval's theorem), one below 0 would invert a wave.
TEST(Filter, WeightsStayBetweenZeroAndOne) {
  const auto product = [](std::span<const double> a, std::span<const double> b) {
    return std::inner_product(a.begin(), a.end(), b.begin(), 0.0);
  };
  // Nearly all energy is in the longest wave. The field is 0.4 mm × 0.3 mm.
  const auto grid = roughGrid(40, 30);
  for (std::size_t i = 0; i < grid->count(); ++i) {
    grid->values()[i] += 1000.0 * std::cos(std::numbers::pi / 20.0 * static_cast<double>(i % 40));
  }
  const double all = product(grid->values(), grid->values());
  for (float l1 = 0.2F; l1 < 3.1F; l1 += 0.02F) {
    for (const float l2 : {0.0F, 0.5F, 1.1F, 2.8F, 2.9F, 20.0F}) {
      for (const FilterType type : kTypes) {
        const std::vector<double> kept = filtered(*grid, type, l1, l2);
        ASSERT_LE(product(kept, kept), all * 1.000001) << wordOf(type) << ' ' << l1;
        ASSERT_GE(product(kept, grid->values()), all * -1e-6) << wordOf(type) << ' ' << l1;
        const bool none = bandPassesNothing(40, 30, l1, l2, kPixel, kPixel);
        const bool band = type == FilterType::kBandPass;
        EXPECT_TRUE(!band || (product(kept, kept) == 0.0) == none) << l1 << ' ' << l2;
      }
    }
  }
  EXPECT_TRUE(bandPassesNothing(400, 300, 30.98F, 57.59F, 0.02F, 0.02F));
  EXPECT_FALSE(bandPassesNothing(400, 300, 0.8F, 57.59F, 0.02F, 0.02F));
}

TEST(Filter, RefusesSizesThatAreNotTheGrids) {
  std::vector<double> heights(6, 1.0);
  std::vector<double> output(6);
  for (const auto& [nx, ny] : {std::pair{0, 0}, {0, 6}, {-2, -3}, {7, 2}, {65536, 65536}}) {
    EXPECT_FALSE(filterGrid(heights, output, nx, ny, 1, 1, 1, 1, 1, 1, FilterType::kLowPass));
    gaussianLowPassWeights(heights, nx, ny, 1, 1, 1, 1);
    gaussianHighPassWeights(heights, nx, ny, 1, 1, 1, 1);
    EXPECT_EQ(std::ranges::count(heights, 1.0), 6);
  }
}

TEST(FilterRun, FollowsTheSettings) {
  Measurement measurement;
  measurement.grid = roughGrid(8, 6);
  measurement.header.pixelSizeX = 0.01;
  measurement.header.pixelSizeY = 0.025;
  std::ostringstream console;
  // Of several types the first counts, the high pass. Its cut-off of 0 removes everything.
  const FilterRun run = runFilter({"", "x", true, true, true}, measurement, console);
  ASSERT_EQ(run.status, FilterStatus::kDone);
  EXPECT_EQ(run.words, "High pass 0.00 mm");
  expectAllNear(run.filtered->values(), std::vector<double>(48), 1e-12);
  EXPECT_EQ(console.str(),
            "FILTER TYPE: hpf\nRES DIMENSIONS: (X) = 8  (Y) =  6\n"
            "Pixel Values: (X) = 0.01  (Y) =  0.025\n");
  console.str("");
  EXPECT_EQ(runFilter({"1", "2"}, measurement, console).status, FilterStatus::kNoType);
  EXPECT_EQ(console.str(), "Error ---- Undefined button number\n");
  for (const std::shared_ptr<HeightGrid>& nothing : {HeightGrid::zeroed(0, 3), {}}) {
    measurement.grid = nothing;
    const FilterRun empty = runFilter({"1", "2", true}, measurement, console);
    EXPECT_EQ(empty.status, FilterStatus::kNoGrid);
    EXPECT_EQ(empty.filtered, nullptr);
    EXPECT_THAT(console.str(), testing::HasSubstr("FILTER TYPE: hpf\nRES DIMENSIONS: (X) = 0"));
  }
}

TEST(FilterRun, IsNamedByTheCutOffsThatCount) {
  EXPECT_EQ(filterWords({.l1 = "-.8mm", .l2 = "9", .lowPass = true}), "Low pass 0.80 mm");
  EXPECT_EQ(filterWords({.l1 = "0.0025", .l2 = "x", .bandPass = true}),
            "Band pass 0.0025 to 0.00 mm");
  EXPECT_EQ(filterWords({}), "");
}

TEST(FilterHint, NamesTheFirstOddThing) {
  const auto hint = [](const char* l1, const char* l2, bool bandPass) {
    const ResHeader header{.width = 1000, .height = 800, .pixelSizeX = 0.02, .pixelSizeY = 0.01};
    return filterHint({.l1 = l1, .l2 = l2, .lowPass = !bandPass, .bandPass = bandPass}, header);
  };
  EXPECT_EQ(hint("0.15", "2", true), "");
  EXPECT_EQ(hint("0.8", "rubbish", false), "");
  EXPECT_EQ(hint("", "", false), "");
  EXPECT_EQ(hint("2", "0.15", true), "L1 is not below L2.");
  EXPECT_EQ(hint("1", "", true), "Nothing passes between these cut-offs.");
  EXPECT_EQ(hint("60", "90", true), "Nothing passes between these cut-offs.");
  EXPECT_EQ(hint("-3", "2", true), "L1 is negative: its sign does not count.");
  EXPECT_EQ(hint("0.15", "20.5", true), "L2 is longer than the measured field, 20.00 mm.");
  for (const char* rubbish : {"-.", "--5", ".-5", "..5", "+-3"}) {
    EXPECT_EQ(hint(rubbish, "", false), "L1 is not a number: it counts as 0.") << rubbish;
  }
  EXPECT_EQ(hint("1.234.5", "", false), "L1 is not a number: it counts as 1.234.");
  EXPECT_EQ(hint("  +.8", "", false), "");
  EXPECT_EQ(hint("20", "", false), "");
  EXPECT_EQ(filterHint({.l1 = "30", .l2 = "", .lowPass = true}, {}), "");
}

TEST(FilterDiagnostics, ReadRawFilesAndMeasureDeviation) {
  const TemporaryFolder folder;
  const std::string path = folder.file("raw.res");
  MeasurementContent content;
  content.width = 2;
  content.height = 3;
  content.heights = {1, 2, 3, 4, 5, 9};
  auto bytes = encodeMeasurement(content);
  bytes.resize(bytes.size() - 4);
  writeBytes(path, bytes);
  std::ostringstream errors;
  HeaderBytes head{};
  std::shared_ptr<HeightGrid> grid;
  ASSERT_TRUE(readRawHead(path, head, errors));
  EXPECT_TRUE(std::equal(head.begin(), head.end(), bytes.begin()));
  ASSERT_TRUE(readRawGrid(path, grid, errors));
  EXPECT_TRUE(std::ranges::equal(grid->values().first(5), std::span(content.heights).first(5)));
  EXPECT_EQ(grid->height(), 3U);
  EXPECT_EQ(errors.str(), "");
  EXPECT_FALSE(readRawGrid(folder.file("none"), grid, errors));
  EXPECT_EQ(errors.str(), "File error\n");
  EXPECT_EQ(grid, nullptr);

  EXPECT_DOUBLE_EQ(meanAbsoluteDeviation(std::vector{1.0, kNaN, 2.0, 6.0}, 2, 2), 2.0);
  EXPECT_EQ(meanAbsoluteDeviation(std::vector{kNaN}, 1, 1), 0.0);
}

}  // namespace
}  // namespace morvane
