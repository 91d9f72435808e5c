// Files that lie: the reader must judge them, not trust them.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <limits>
#include <sstream>

#include "resfile/little_endian.h"
#include "resfile/res_file.h"
#include "tests/support/temporary_folder.h"
#include "tools/measurement_builder.h"

namespace morvane {
namespace {

MeasurementSpec smallSpec(std::int32_t version) {
  MeasurementSpec spec;
  spec.version = version;
  spec.width = 3;
  spec.height = 2;
  spec.algorithmType = 9;
  spec.record.assign(16, 1.25F);
  spec.heights = {1, 2, 3, 4, 5, 6};
  return spec;
}

class HostileFile : public testing::Test {
 protected:
  bool opens(const std::vector<std::byte>& bytes) {
    const std::string path = folder_.file("hostile.res");
    writeBytes(path, bytes);
    return opens(path);
  }
  bool opens(const std::string& path) {
    log_.str("");
    file_.update(path);
    return file_.isValid();
  }

  TemporaryFolder folder_;
  std::ostringstream log_;
  resFile file_{log_};
};

TEST_F(HostileFile, CutAnywhereIsInvalidAndItsMissingHeightsAreZero) {
  for (const std::int32_t version : {2, 3, 4}) {
    const std::vector<std::byte> whole = encodeMeasurement(smallSpec(version));
    ASSERT_TRUE(opens(whole));
    for (std::size_t length = 0; length < whole.size(); ++length) {
      std::vector<std::byte> cut = whole;
      cut.resize(length);
      const bool valid = opens(cut);
      // A file that ends before its sizes announces no grid and keeps that word, and the length
      // of a grid of 16-bit counts is always accepted.
      const bool announcesNothing = length <= 8;
      const bool asLongAsCounts = length == kHeaderBytes + 6 * 2;
      EXPECT_EQ(valid, announcesNothing || asLongAsCounts)
          << "version " << version << ", " << length;
      EXPECT_EQ(file_.fileSize(), length);
    }
  }
  EXPECT_TRUE(opens(encodeMeasurement(smallSpec(4))));
}

TEST_F(HostileFile, SurvivesEveryHeaderByteAtItsExtremes) {
  for (const std::int32_t version : {2, 3, 4}) {
    const std::vector<std::byte> whole = encodeMeasurement(smallSpec(version));
    for (std::size_t offset = 0; offset < kHeaderBytes; ++offset) {
      for (const int value : {0, 127, 128, 255}) {
        std::vector<std::byte> bytes = whole;
        bytes[offset] = static_cast<std::byte>(value);
        if (opens(bytes)) {
          EXPECT_EQ(file_.grid()->count(), file_.pointCount());
        }
      }
    }
  }
}

TEST_F(HostileFile, ImpossibleSizesAreNamedAndCostNothing) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  for (const auto& [width, height] : {std::pair{-3, 2},
                                      {3, -2},
                                      {-3, -2},
                                      {kLeast, kLeast},
                                      {kMost, kMost},
                                      {65536, 65536},
                                      {kMost, 1},
                                      {1, kMost}}) {
    MeasurementSpec spec = smallSpec(4);
    spec.width = width;
    spec.height = height;
    EXPECT_FALSE(opens(encodeMeasurement(spec))) << width << " x " << height;
    const bool possible = width > 0 && height > 0 && std::int64_t{width} * height <= kMost;
    EXPECT_EQ(log_.str().find("DAMAGED FIELD") == std::string::npos, possible) << log_.str();
  }
}

TEST_F(HostileFile, TextLengthsAreCutToTheirFields) {
  for (int length = -128; length < 128; ++length) {
    MeasurementSpec spec = smallSpec(4);
    spec.timeStamp = "20260314101530Z";
    spec.dataType = "ABCDEFGHIJKLMNO";
    spec.partName = std::string(63, 'x');
    std::vector<std::byte> bytes = encodeMeasurement(spec);
    for (const std::size_t offset : {72, 92, 108}) {
      writeLe(bytes.data() + offset, static_cast<std::int8_t>(length));
    }
    resFile fresh(log_);
    writeBytes(folder_.file("text.res"), bytes);
    fresh.update(folder_.file("text.res"));
    const auto expected = [length](std::size_t room) {
      return length >= 0 && static_cast<std::size_t>(length) <= room
                 ? static_cast<std::size_t>(length)
                 : room;
    };
    EXPECT_EQ(fieldText(fresh.header().headerText1).size(), expected(15)) << length;
    EXPECT_EQ(fieldText(fresh.header().headerText2).size(), expected(15)) << length;
    EXPECT_EQ(fieldText(fresh.header().headerText3).size(), expected(63)) << length;
  }
}

TEST_F(HostileFile, WhatIsNoFileIsRefusedWithoutWaiting) {
  ASSERT_TRUE(opens(encodeMeasurement(smallSpec(4))));
  const std::string pipe = folder_.file("pipe.res");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& path : {folder_.path().string(), pipe, folder_.file("none.res"),
                                  std::string("/dev/zero"), std::string()}) {
    opens(path);
    EXPECT_EQ(file_.grid(), nullptr) << path;
    EXPECT_NE(log_.str().find("ERROR: FILE CANNOT BE OPENED\n  err "), std::string::npos) << path;
  }
}

TEST_F(HostileFile, CountsAreScaledAndVersionsAboveFourReadAsFour) {
  MeasurementSpec spec = smallSpec(7);
  spec.numType = -2;
  spec.heightScale = 0.5;
  spec.heights.clear();
  spec.counts = {4, -6, 0, 32767, -32768, 1};
  EXPECT_TRUE(opens(encodeMeasurement(spec)));
  const auto heights = file_.grid()->values();
  const std::vector<double> expected = {2.0, -3.0, 0.0, 16383.5, -16384.0, 0.5};
  EXPECT_TRUE(std::equal(heights.begin(), heights.end(), expected.begin(), expected.end()));
  EXPECT_EQ(file_.header().algorithmType, 9U);
  EXPECT_EQ(file_.header().headerVersion, 7);
}

}  // namespace
}  // namespace morvane
