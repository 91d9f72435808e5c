// Filtered grids, weights and the weight table against the reference cases.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "filter/band_filter.h"
#include "filter/filter_diagnostics.h"
#include "filter/gaussian_weights.h"
#include "surface/surface_limits.h"
#include "tests/support/golden.h"
#include "tests/support/reader.h"
#include "tests/support/temporary_folder.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> filterFiles() {
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(golden::file(""))) {
    if (!entry.path().filename().string().starts_with("filter_")) continue;
    names.push_back(fs::relative(entry.path(), golden::file("")).string());
  }
  std::ranges::sort(names);
  return names;
}

class GoldenFilter : public testing::TestWithParam<std::string> {};

TEST_P(GoldenFilter, HasItsHeights) {
  const fs::path file = golden::file(GetParam());
  std::map<std::string, std::vector<std::string>> head;
  std::vector<std::vector<std::string>> heights;
  for (const std::string& line : golden::lines(file)) {
    const auto words = golden::words(line);
    if (words[0] == "row" || words[0] == "at") {
      heights.push_back(words);
    } else {
      head[words[0]] = words;
    }
  }
  const std::string &type = head["type"].at(1), l1 = head["L1"].at(1), l2 = head["L2"].at(1);
  EXPECT_EQ(file.filename(), "filter_" + type + "_" + l1 + "_" + l2 + ".txt");
  Reader reader(golden::measurement(fs::path(GetParam()).parent_path().string()));
  const resFile& measurement = reader.file;
  const FilterRun run = runFilter({l1, l2, type == "hpf", type == "lpf", type == "bpf"},
                                  measurement.measurement(), reader.log);
  ASSERT_EQ(run.status, FilterStatus::kDone);
  const HeightGrid& grid = *run.filtered;
  ASSERT_EQ(std::to_string(grid.width()), head["size"][1]);
  ASSERT_EQ(std::to_string(grid.height()), head["size"][2]);
  EXPECT_TRUE(golden::isExactly(measurement.header().pixelSizeX, head["pixel"][1]));
  EXPECT_TRUE(golden::isExactly(measurement.header().pixelSizeY, head["pixel"][2]));
  const double tolerance = golden::number(head["tolerance"][1]);
  const SurfaceLimits raw = findLimits(*measurement.grid(), {});
  EXPECT_LT(tolerance, 3e-5 * std::max(std::abs(raw.trueMin), std::abs(raw.trueMax)));
  const auto isNear = [&](double found, const std::string& name, std::size_t word = 1) {
    EXPECT_NEAR(found, golden::number(head[name][word]), tolerance) << name;
  };
  double sum = 0.0;
  double squares = 0.0;
  for (const double height : grid.values()) {
    sum += height;
    squares += height * height;
  }
  isNear(sum / static_cast<double>(grid.count()), "mean");
  isNear(std::sqrt(squares / static_cast<double>(grid.count())), "rms");
  isNear(std::ranges::min(grid.values()), "min");
  isNear(std::ranges::max(grid.values()), "max");
  isNear(findLimits(grid, {}).trueMin, "limits", 1);
  isNear(findLimits(grid, {}).trueMax, "limits", 2);
  ASSERT_TRUE(heights.size() == grid.height() || heights.size() == 40U);
  for (const auto& words : heights) {
    const auto row = grid.row(std::stoul(words[1]));
    const bool whole = words[0] == "row";
    ASSERT_EQ(words.size(), whole ? row.size() + 2 : 4U);
    for (std::size_t x = 0; x < (whole ? row.size() : 1); ++x) {
      const double found = whole ? row[x] : row[std::stoul(words[2])];
      EXPECT_NEAR(found, golden::number(words[whole ? x + 2 : 3]), tolerance) << words[1];
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenFilter, testing::ValuesIn(filterFiles()));

// The weights of the band pass have no function of their own.
TEST(GoldenWeights, FillTheGridsOfLowAndHighPass) {
  std::vector<double> weights;
  std::size_t next = 0;  // of the table's numbers
  int compared = 0;
  for (const std::string& line : golden::lines(golden::file("weights/weights.txt"))) {
    const auto words = golden::words(line);
    if (words[0] == "weights") {
      ASSERT_EQ(next, weights.size());
      const auto value = [&](std::size_t i) { return std::stof(words[i]); };
      const int nx = std::stoi(words[2]);
      const int ny = std::stoi(words[3]);
      next = 0;
      weights.clear();
      if (words[1] == "bpf") continue;
      EXPECT_EQ(words[5], "0") << line;
      weights.resize(spectrumColumns(nx) * static_cast<std::size_t>(ny));
      const auto fill = words[1] == "lpf" ? gaussianLowPassWeights : gaussianHighPassWeights;
      fill(weights, nx, ny, value(4), value(4), value(6), value(7));
      ++compared;
    } else if (!weights.empty()) {
      for (const auto& word : words) {
        ASSERT_LT(next, weights.size());
        // A few roundings of single precision.
        EXPECT_NEAR(weights[next++], golden::number(word), 1e-6) << line;
      }
    }
  }
  EXPECT_EQ(next, weights.size());
  EXPECT_GE(compared, 2);
}

TEST(GoldenWeights, AreWrittenAsATable) {
  const auto expected = golden::lines(golden::file("weights/fg_export_9_7.txt"));
  EXPECT_EQ(expected[0], "nx 9 ny 7 cut 0.3 0.3 pixel 0.1 0.2");
  const TemporaryFolder folder;
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  std::vector<double> weights(35);
  ASSERT_EQ(exportGaussianWeights(weights, 9, 7, 0.3F, 0.3F, 0.1F, 0.2F), "");
  const auto written = golden::lines("fg_export.csv");
  EXPECT_TRUE(std::equal(written.begin(), written.end(), expected.begin() + 1, expected.end()))
      << contentOf("fg_export.csv");
  EXPECT_NE(exportGaussianWeights(weights, 9, 8, 0.3F, 0.3F, 0.1F, 0.2F), "");
  fs::current_path(before);
}

}  // namespace
}  // namespace morvane
