// Filtered grids, weights and the weight table against the reference cases.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>

#include "filter/band_filter.h"
#include "filter/filter_diagnostics.h"
#include "resfile/res_file.h"
#include "surface/surface_limits.h"
#include "tests/support/golden.h"
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
  std::ostringstream log;
  resFile measurement(log);
  measurement.update((file.parent_path() / "measurement.res").string());
  const FilterRun run = runFilter({l1, l2, type == "hpf", type == "lpf", type == "bpf"},
                                  measurement.measurement(), log);
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

constexpr double kWeightTolerance = 1e-6;  // a few roundings of single precision

struct WeightTable {
  std::string type;
  int nx, ny;
  float l1, l2, pixelX, pixelY;
  std::vector<double> weights;  ///< ny rows of spectrumColumns(nx)
};

std::vector<WeightTable> weightTables() {
  std::vector<WeightTable> tables;
  for (const std::string& line : golden::lines(golden::file("weights/weights.txt"))) {
    const auto words = golden::words(line);
    if (words[0] != "weights") {
      for (const auto& word : words) tables.back().weights.push_back(golden::number(word));
      continue;
    }
    const auto value = [&](std::size_t i) { return std::stof(words[i]); };
    EXPECT_TRUE(words[1] == "bpf" || words[5] == "0") << line;
    tables.push_back({words[1], std::stoi(words[2]), std::stoi(words[3]), value(4), value(5),
                      value(6), value(7), std::vector<double>()});
  }
  return tables;
}

TEST(GoldenWeights, FillTheGridsOfLowAndHighPass) {
  int compared = 0;
  for (const WeightTable& table : weightTables()) {
    if (table.type == "bpf") continue;
    std::vector<double> weights(table.weights.size());
    const auto fill = table.type == "lpf" ? gaussianLowPassWeights : gaussianHighPassWeights;
    fill(weights, table.nx, table.ny, table.l1, table.l1, table.pixelX, table.pixelY);
    for (std::size_t i = 0; i < weights.size(); ++i) {
      EXPECT_NEAR(weights[i], table.weights[i], kWeightTolerance) << table.type << ' ' << i;
    }
    ++compared;
  }
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
