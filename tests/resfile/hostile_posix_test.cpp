// Files that lie, as far as only this system shows what they cost or has them at all.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "tests/resfile/hostile_file.h"

namespace morvane {
namespace {

long peakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}

TEST_F(HostileFile, ImpossibleSizesAreNamedAndCostNothing) {
  const long before = peakMegabytes();
  for (const auto& [width, height] : {std::pair{-3, 2},
                                      {3, -2},
                                      {-3, -2},
                                      {kLeast, kLeast},
                                      {kMost, kMost},
                                      {65536, 65536},
                                      {kMost, 1},
                                      {1, kMost}}) {
    MeasurementContent content = smallContent(4);
    content.width = width;
    content.height = height;
    EXPECT_FALSE(opens(encodeMeasurement(content))) << width << " x " << height;
    const bool possible = width > 0 && height > 0 && std::int64_t{width} * height <= kMost;
    EXPECT_EQ(log_.str().find("DAMAGED FIELD") == std::string::npos, possible) << log_.str();
  }
  EXPECT_LT(peakMegabytes() - before, 64);
}

TEST_F(HostileFile, WhatIsNoFileIsRefusedWithoutWaiting) {
  ASSERT_TRUE(opens(encodeMeasurement(smallContent(4))));
  const std::string pipe = folder_.file("pipe.res");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& path : {folder_.path().string(), pipe, folder_.file("none.res"),
                                  std::string("/dev/zero"), std::string()}) {
    opens(path);
    EXPECT_EQ(file_.grid(), nullptr) << path;
    EXPECT_NE(log_.str().find("ERROR: FILE CANNOT BE OPENED\n  err "), std::string::npos) << path;
  }
}

}  // namespace
}  // namespace morvane
