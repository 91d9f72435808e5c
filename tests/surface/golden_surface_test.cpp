// Statistics, limits, cells and key against the reference cases.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "surface/surface_model.h"
#include "tests/support/golden.h"
#include "tests/support/reader.h"

namespace morvane {
namespace {

class GoldenSurface : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    model_.setRaw(Reader(golden::measurement(GetParam())).file.grid());
    model_.measure();
  }
  void setCrop(const std::string& min, const std::string& max) {
    model_.crop = {true, static_cast<float>(golden::number(min)),
                   static_cast<float>(golden::number(max))};
    model_.measure();
  }

  std::ostringstream log_;
  SurfaceModel model_{log_};
};

TEST_P(GoldenSurface, HasItsStatistics) {
  for (const std::string& line : golden::lines(golden::file(GetParam()) / "stats.txt")) {
    const auto words = golden::words(line);
    const double value = words[0] == "mean"       ? model_.mean()
                         : words[0] == "variance" ? model_.variance()
                         : words[0] == "sd"       ? model_.sd()
                                                  : model_.autoScale();
    const double expected = golden::number(words[1]);
    const double tolerance = golden::number(words[2]);
    EXPECT_TRUE(value == expected || std::abs(value - expected) <= tolerance)
        << line << ", found " << value;
    EXPECT_TRUE(tolerance < 2.01e-6 * expected || tolerance == 1e-30 || std::isinf(value)) << line;
  }
}

TEST_P(GoldenSurface, HasItsLimits) {
  for (const std::string& line : golden::lines(golden::file(GetParam()) / "limits.txt")) {
    const auto words = golden::words(line);
    model_.crop = {};
    if (words[0] != "0") setCrop(words[1], words[2]);
    model_.measure();
    const SurfaceLimits& limits = model_.limits();
    const Crop& crop = model_.crop;
    const float found[] = {crop.on ? 1.0F : 0.0F, crop.min,    crop.max,   limits.trueMin,
                           limits.trueMax,        limits.zMin, limits.zMax};
    ASSERT_EQ(words.size(), std::size(found));
    for (std::size_t i = 0; i < words.size(); ++i) {
      EXPECT_TRUE(golden::isExactly(found[i], words[i])) << line << ", found " << found[i];
    }
  }
}

TEST_P(GoldenSurface, HasItsCells) {
  const std::size_t cells = cellCount(*model_.shown());
  std::vector<float> positions(cells * 18);
  std::vector<float> normals(cells * 18);
  std::vector<float> colours(cells * 18);
  std::vector<float> faces(cells * 6);
  const auto lines = golden::lines(golden::file(GetParam()) / "cells.txt");
  ASSERT_EQ(lines.size() % 5, 0U);
  for (std::size_t i = 0; i < lines.size(); i += 5) {
    const auto words = golden::words(lines[i]);
    model_.crop = {};
    ASSERT_TRUE(words[0] == "cell" && words.size() == (words[3] == "nocrop" ? 4 : 6)) << lines[i];
    if (words[3] != "nocrop") setCrop(words[4], words[5]);
    model_.measure();
    model_.build({positions, normals, colours, faces});
    const std::size_t cell =
        std::stoul(words[1]) * (model_.shown()->width() - 1) + std::stoul(words[2]);
    SCOPED_TRACE(lines[i]);
    golden::expectFloats("pos", std::span(positions).subspan(cell * 18, 18), lines[i + 1], 0.0);
    golden::expectFloats("face", std::span(faces).subspan(cell * 6, 6), lines[i + 2], 2e-4);
    golden::expectFloats("norm", std::span(normals).subspan(cell * 18, 18), lines[i + 3], 2e-4);
    golden::expectFloats("col", std::span(colours).subspan(cell * 18, 18), lines[i + 4], 2e-4,
                         0.5F);
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenSurface, testing::ValuesIn(golden::casesWith("cells.txt")));

TEST(GoldenKey, HasItsGeometryAndLabels) {
  const KeyGeometry key = keyGeometry(standardColours());
  for (const std::string& line : golden::lines(golden::file("view/key.txt"))) {
    const auto words = golden::words(line);
    if (words[0] == "pos") {
      golden::expectFloats("pos", key.positions, line, 1e-6);
    } else if (words[0] == "col") {
      golden::expectFloats("col", key.colours, line, 1e-6);
    } else {
      ASSERT_EQ(words[0], "labels");
      const auto labels =
          keyLabels({standardColours(), static_cast<float>(golden::number(words[2])),
                     static_cast<float>(golden::number(words[1]))});
      const auto same = [](const KeyLabel& label, const std::string& text) {
        return label.text == text;
      };
      EXPECT_TRUE(std::equal(labels.begin(), labels.end(), words.begin() + 3, words.end(), same))
          << line;
    }
  }
}

}  // namespace
}  // namespace morvane
