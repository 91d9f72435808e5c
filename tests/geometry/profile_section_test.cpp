// The section under the profile line against the reference rows and against known surfaces.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <map>

#include "geometry/profile_section.h"
#include "tests/geometry/golden_rows.h"
#include "tests/support/reader.h"
#include "tests/support/test_grid.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> profileCases() {
  std::vector<std::string> all;
  for (int i = 0; i < 10; ++i) {
    const std::string name = "profile_" + std::to_string(i) + ".txt";
    for (const std::string& folder : golden::casesWith(name))
      all.push_back((fs::path(folder) / name).string());
  }
  return all;
}

class GoldenProfile : public testing::TestWithParam<std::string> {};

TEST_P(GoldenProfile, IsSampledAlike) {
  const Reader reader(golden::measurement(fs::path(GetParam()).parent_path().string()));
  const HeightGrid& grid = *reader.file.grid();
  std::map<std::string, GoldenRow> rows;
  for (const GoldenRow& row : goldenRows(GetParam())) rows[row.name] = row;

  const auto pin = [&](const char* name) {
    return glm::vec3(rows.at(name).at(0), rows.at(name).at(1), 0.05F);
  };
  const GoldenRow& clamp = rows.at("clamp");
  Crop crop;
  if (clamp.line != "clamp off") crop = {true, clamp.at(0), clamp.at(1)};
  const ProfileSection section = sampleProfile(grid, {pin("pinA"), pin("pinB")}, crop);

  EXPECT_EQ(grid.width(), rows.at("size").size(0));
  EXPECT_EQ(grid.height(), rows.at("size").size(1));
  expectEnd(rows.at("length"), {section.lineLength});
  ASSERT_EQ(section.samples.size(), rows.at("count").size(0));
  EXPECT_EQ(rows.size(), section.samples.size() + 8);
  EXPECT_EQ(section.drawn, section.samples.size());
  bool strict = true;
  for (std::size_t i = 0; i < section.samples.size(); ++i) {
    const GoldenRow& row = rows.at(std::to_string(i));
    const glm::vec3& sample = section.samples[i];
    EXPECT_TRUE(golden::isClose(sample.x, row.numbers[0])) << row.line;
    const auto found = std::find_if(row.numbers.begin() + 1, row.numbers.end(),
                                    [&](double h) { return golden::isClose(sample.y, h); });
    EXPECT_NE(found, row.numbers.end()) << row.line << "\n" << sample.y << " found";
    strict = strict && row.numbers.size() == 2;
  }
  EXPECT_EQ(rows.at("strict").line, strict ? "strict 1" : "strict 0");
  const GoldenRow& extremes = rows.at("extremes");
  if (strict) return expectEnd(extremes, {section.sampleMin, section.sampleMax});
  // The extremes are those of one of the accepted sections.
  EXPECT_NEAR(section.sampleMin, extremes.at(0), 0.05);
  EXPECT_NEAR(section.sampleMax, extremes.at(1), 0.05);
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenProfile, testing::ValuesIn(profileCases()));

/// A pin on the grid point (column, row), at a place that is not rounded to another point.
glm::vec3 pinOn(int column, int row) {
  return {(static_cast<float>(column) + 0.3F) / 1000.0F, (static_cast<float>(row) + 0.3F) / 1000.0F,
          0.05F};
}

std::shared_ptr<HeightGrid> surfaceOf(const std::function<double(double, double)>& height) {
  return gridFrom(300, 200, height);
}

TEST(Profile, ReadsTheLastColumnAndRowAtTheEdges) {
  const auto grid = surfaceOf([](double column, double) { return column; });
  const PinPair right = {{0.3F, 0.0F, 0.05F}, {0.3F, 0.199F, 0.05F}};
  const ProfileSection edge = sampleProfile(*grid, right, {});
  EXPECT_EQ(edge.samples.size(), 199U);
  EXPECT_EQ(edge.localMin, 299.0F);
  EXPECT_EQ(edge.localMax, 299.0F);
  // From column 300, which does not exist, to 297: at first it stays on the last column, 299.
  const ProfileSection inward = sampleProfile(*grid, {{0.3F, 0, 0}, {0.297F, 0.1F, 0}}, {});
  EXPECT_EQ(inward.samples[33].y, 299.0F);
  EXPECT_NEAR(inward.samples[34].y, 298.99F, 1e-3F);
  // 0.299 is less than 299 steps, but not in single precision.
  EXPECT_EQ(sampleProfile(*grid, {{0.299F, 0.0F, 0.05F}, {0.299F, 0.1F, 0.05F}}, {}).localMin,
            299.0F);
  // Pins of a larger measurement, and pins without a place.
  EXPECT_EQ(sampleProfile(*grid, {{7.0F, 9.0F, 0.0F}, {0.0F, NAN, 0.0F}}, {}).drawn, 360U);
}

TEST(Profile, LeavesAGapWherePointsAreMissing) {
  const auto grid = surfaceOf([](double column, double) { return column; });
  grid->values()[0] = NAN;
  grid->values()[20 * 300 + 100] = INFINITY;
  const auto along = sampleProfile(*grid, {pinOn(90, 20), pinOn(110, 20)}, {});
  EXPECT_EQ(along.drawn, 19U);
  EXPECT_TRUE(std::isnan(along.samples[10].y));
  EXPECT_EQ(along.samples[9].y, 99.0F);
  EXPECT_EQ(along.samples[11].y, 101.0F);
  EXPECT_EQ(along.localMin, 90.0F);
  EXPECT_EQ(along.sampleMin, 1.0F) << "from the first height that is there";
  const auto clipped = sampleProfile(*grid, {pinOn(90, 20), pinOn(110, 20)}, {true, 95.0F, 105.0F});
  EXPECT_EQ(clipped.localMin, 95.0F);
  EXPECT_EQ(clipped.localMax, 105.0F);
  EXPECT_EQ(clipped.drawn, 19U);

  const auto nothing = surfaceOf([](double, double) { return NAN; });
  const auto empty = sampleProfile(*nothing, {pinOn(90, 20), pinOn(110, 20)}, {});
  EXPECT_EQ(empty.samples.size(), 20U);
  EXPECT_EQ(empty.drawn, 0U);
  EXPECT_EQ(empty.sampleMax, 0.0F);
}

TEST(Profile, PrintsTheRealLengthForEveryPitch) {
  const auto grid = surfaceOf([](double, double) { return 1.0; });
  const auto distance = [&](const PinPair& pins, double pitchX, double pitchY) {
    const auto pixelSize = static_cast<float>(pixelSizeAlong(pins, pitchX, pitchY));
    return profileDistance(sampleProfile(*grid, pins, {}), pixelSize);
  };
  EXPECT_EQ(distance({pinOn(0, 0), pinOn(30, 40)}, 0.02, 0.02), 50.0F * 0.02F);
  EXPECT_NEAR(distance({pinOn(0, 0), pinOn(30, 0)}, 0.02, 0.05), 0.6F, 1e-5F);
  EXPECT_NEAR(distance({pinOn(0, 0), pinOn(0, 40)}, 0.02, 0.05), 2.0F, 1e-5F);
  EXPECT_NEAR(distance({pinOn(30, 0), pinOn(0, 40)}, 0.02, 0.05), std::hypot(0.6, 2.0), 1e-5);
  EXPECT_EQ(distance({pinOn(7, 7), pinOn(7, 7)}, 0.02, 0.05), 0.0F);
}

TEST(Profile, OfMoreSamplesThanPixelsKeepsExtremesAndGaps) {
  ProfileSection section;
  for (int i = 0; i < 1000; ++i)
    section.samples.emplace_back(0.0F, static_cast<float>(i % 7), 0.0F);
  EXPECT_EQ(drawnSamples(section).size(), 1000U);
  section.samples.assign(500'001, {0.0F, 1.0F, 0.0F});
  section.samples[123'456].y = 9.0F;
  section.samples[234'567].y = -9.0F;
  section.samples[345'678].y = NAN;
  const std::vector<std::size_t> drawn = drawnSamples(section);
  EXPECT_LT(drawn.size(), 200'000U);
  EXPECT_TRUE(std::is_sorted(drawn.begin(), drawn.end()));
  for (const std::size_t kept : {123'456U, 234'567U, 345'678U}) {
    EXPECT_TRUE(std::binary_search(drawn.begin(), drawn.end(), kept)) << kept;
  }
}

}  // namespace
}  // namespace morvane
