// The number texts and scale steps of the controls against the reference cases.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "tests/support/golden.h"
#include "ui/control_rules.h"

namespace morvane {
namespace {

std::vector<std::string> columns(const std::string& line) {
  std::vector<std::string> all;
  std::istringstream in(line);
  for (std::string column; std::getline(in, column, '\t');) all.push_back(column);
  return all;
}

float narrow(const std::string& word) { return static_cast<float>(golden::number(word)); }

TEST(GoldenControls, LimitsAndScaleSteps) {
  int limits = 0;
  int scales = 0;
  for (const std::string& line : golden::lines(golden::file("view/controls.txt"))) {
    const auto column = columns(line);
    if (column[0] == "limit") {
      EXPECT_EQ(stripUnit(column[1]), column[2]) << line;
      EXPECT_EQ(leadingNumber(column[2]), golden::number(column[3])) << line;
      ++limits;
    } else if (column[0] == "scale") {
      const float scale = steppedScale(std::stoi(column[1]), narrow(column[2]), narrow(column[3]),
                                       narrow(column[4]));
      EXPECT_TRUE(golden::isClose(scale, golden::number(column[5]))) << line;
      EXPECT_EQ(readoutText(scale), column[6]) << line;
      ++scales;
    } else {
      EXPECT_EQ(column[0], "time") << line;
    }
  }
  EXPECT_GT(limits, 0);
  EXPECT_GT(scales, 0);
}

TEST(Controls, TakeNoWordsForNumbers) {
  EXPECT_EQ(stripUnit("12.5 µm"), "12.5 ");
  for (const char* text : {"nan", "inf", "-inf", "+-5", "e5", "0x", " ", "-", ""}) {
    EXPECT_EQ(leadingNumber(text), 0.0) << text;
  }
  const std::pair<const char*, double> numbers[] = {
      {" -2.5e1mm", -25.0}, {"  .5", 0.5}, {"+2", 2.0}, {"1e", 1.0}, {"1e400", HUGE_VAL}};
  for (const auto& [text, number] : numbers) EXPECT_EQ(leadingNumber(text), number) << text;
}

TEST(Controls, PlusStopsAtTheMaximum) {
  EXPECT_EQ(steppedScale(1, 100.0F, 200.0F, 199.0F), 204.0F);
  EXPECT_EQ(steppedScale(1, 100.0F, 200.0F, 204.0F), 200.0F);
}

TEST(Scale, StepsDownToTheSmallestNeverToNothing) {
  EXPECT_EQ(steppedScale(-1, 100.0F, 200.0F, 5.0F), 1e-10F);
  EXPECT_EQ(steppedScale(-1, 100.0F, 200.0F, 6.0F), 1.0F);
}

}  // namespace
}  // namespace morvane
