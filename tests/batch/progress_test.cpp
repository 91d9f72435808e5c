// The progress line of a run over many files.
#include <gtest/gtest.h>

#include "batch/progress.h"

namespace morvane {
namespace {

TEST(Progress, LineFitsTheTerminal) {
  const auto text = [](const std::string& file, std::size_t columns) {
    return progressLine(12, 100, file, columns).text;
  };
  EXPECT_EQ(text("folder/plate.res", 80), "12 of 100 plate.res");
  EXPECT_EQ(text("plate.res", 20), "12 of 100 plate.res");
  EXPECT_EQ(text("plate.res", 19), "12 of 100 plate.re");
  EXPECT_EQ(text("Tür.res", 14), "12 of 100 Tür");
  EXPECT_EQ(text("測定.res", 15), "12 of 100 測定");
  EXPECT_EQ(text("測定.res", 14), "12 of 100 測");
  EXPECT_EQ(text("a\x1B[2J\xFC\n", 80), "12 of 100 a?[2J??");
  EXPECT_EQ(text("plate.res", 1), "");
}

}  // namespace
}  // namespace morvane
