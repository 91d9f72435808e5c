// Damaged files: the reader must check what they announce.
#include <gtest/gtest.h>

#include <fstream>
#include <limits>
#include <sstream>

#include "base/little_endian.h"
#include "resfile/res_file.h"
#include "tests/support/temporary_folder.h"
#include "tools/measurement_builder.h"

namespace morvane {
namespace {

MeasurementContent smallContent(std::int32_t version) {
  MeasurementContent content;
  content.version = version;
  content.width = 3;
  content.height = 2;
  content.algorithmType = 9;
  content.record.assign(16, 1.25F);
  content.heights = {1.1, 2.2, 3.3, 4.4, 5.5, 6.6};
  return content;
}

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();

class HostileFile : public testing::Test {
 protected:
  // Thousands of files are written, so without the builder's wait for the disk.
  std::string write(const std::vector<std::byte>& bytes) {
    std::string path = folder_.file("hostile.res");
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return path;
  }
  bool opens(const std::vector<std::byte>& bytes) { return opens(write(bytes)); }
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
    const MeasurementContent content = smallContent(version);
    const std::vector<std::byte> whole = encodeMeasurement(content);
    ASSERT_TRUE(opens(whole));
    for (std::size_t length = 0; length < whole.size(); ++length) {
      std::vector<std::byte> cut = whole;
      cut.resize(length);
      const bool valid = opens(cut);
      // A file that ends before its sizes announces no grid, so nothing is missing. The length of a
      // grid of 16-bit counts is always accepted.
      const bool announcesNothing = length <= 8;
      const bool asLongAsCounts = length == kHeaderBytes + std::size_t{6} * 2;
      EXPECT_EQ(valid, announcesNothing || asLongAsCounts)
          << "version " << version << ", " << length;
      EXPECT_EQ(file_.trouble().empty(), valid);
      EXPECT_EQ(file_.fileSize(), length);
      for (std::size_t i = 0; i < file_.pointCount(); ++i) {
        const bool isThere = kHeaderBytes + 8 * (i + 1) <= length;
        EXPECT_EQ(file_.grid()->values()[i], isThere ? content.heights[i] : 0.0)
            << "height " << i << " of " << length << " bytes";
      }
    }
  }
}

TEST_F(HostileFile, IsNotReadForAReason) {
  const auto troubleOf = [this](auto change) {
    MeasurementContent content = smallContent(4);
    change(content);
    std::vector<std::byte> bytes = encodeMeasurement(content);
    bytes.resize(std::min<std::size_t>(bytes.size(), 300));
    opens(bytes);
    return file_.trouble();
  };
  EXPECT_EQ(troubleOf([](MeasurementContent&) {}), "it holds 300 of 304 bytes");
  EXPECT_EQ(troubleOf([](MeasurementContent& c) { c.numType = 5; }),
            "its element type 5 is unknown");
  EXPECT_EQ(troubleOf([](MeasurementContent& c) { c.width = -3; }),
            "its header announces -3 x 2 points");
  opens(folder_.file("none.res"));
  EXPECT_EQ(file_.trouble(), "No such file or directory");
}

TEST_F(HostileFile, ImpossibleSizesAreNamed) {
  for (const auto& [width, height] : {std::pair{-3, 2},
                                      {3, -2},
                                      {-3, -2},
                                      {kMin, kMin},
                                      {kMax, kMax},
                                      {65536, 65536},
                                      {kMax, 1},
                                      {1, kMax}}) {
    MeasurementContent content = smallContent(4);
    content.width = width;
    content.height = height;
    EXPECT_FALSE(opens(encodeMeasurement(content))) << width << " x " << height;
    const bool possible = width > 0 && height > 0 && std::int64_t{width} * height <= kMax;
    EXPECT_EQ(log_.str().find("DAMAGED FIELD") == std::string::npos, possible) << log_.str();
  }
}

TEST_F(HostileFile, TextLengthsAreCutToTheirFields) {
  for (int length = -128; length < 128; ++length) {
    MeasurementContent content = smallContent(4);
    content.timeStamp = "20260314101530Z";
    content.dataType = "ABCDEFGHIJKLMNO";
    content.partName = std::string(63, 'x');
    std::vector<std::byte> bytes = encodeMeasurement(content);
    for (const std::size_t offset : {72U, 92U, 108U}) {
      writeLe(bytes.data() + offset, static_cast<std::int8_t>(length));
    }
    resFile fresh(log_);
    fresh.update(write(bytes));
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

TEST_F(HostileFile, CountsAreScaledAndVersionsAboveFourReadAsFour) {
  MeasurementContent content = smallContent(7);
  content.numType = -2;
  content.heightScale = 0.5;
  content.heights.clear();
  content.counts = {4, -6, 0, 32767, -32768, 1};
  EXPECT_TRUE(opens(encodeMeasurement(content)));
  const auto heights = file_.grid()->values();
  const std::vector<double> expected = {2.0, -3.0, 0.0, 16383.5, -16384.0, 0.5};
  EXPECT_TRUE(std::equal(heights.begin(), heights.end(), expected.begin(), expected.end()));
  EXPECT_EQ(file_.header().algorithmType, 9U);
  EXPECT_EQ(file_.header().headerVersion, 7);
}

}  // namespace
}  // namespace morvane
