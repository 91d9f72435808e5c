// Saved files are complete or not written at all.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "base/file_copy.h"
#include "base/safe_file.h"
#include "resfile/region_file.h"
#include "tests/support/reader.h"
#include "tests/support/temporary_folder.h"
#include "tools/measurement_builder.h"

namespace morvane {
namespace {

TEST(Saving, ReplacesTheTargetOnlyWhenComplete) {
  const TemporaryFolder folder;
  const std::string target = folder.file("copy.res");
  {
    SafeFile first(target);
    first.write("old", 3);
    EXPECT_EQ(first.commit(), "");
    SafeFile abandoned(target);
    abandoned.write("half", 4);
    EXPECT_EQ(contentOf(target), "old");
  }
  EXPECT_EQ(contentOf(target), "old");
  EXPECT_EQ(folder.entries(), 1);
}

TEST(Saving, LeavesFilesWithTemporaryNamesAlone) {
  const TemporaryFolder folder;
  const std::string ours = ".morvane-" + ownMachine() + "-";
  const std::string names[] = {ours + std::to_string(ownProcess()) + "-1.part",  // being written
                               ".morvane-elsewhere-999999999-1.part", ".morvane-.part",
                               ours + "12a-1.part", "morvane-1.part"};
  for (const std::string& name : names) std::ofstream(folder.file(name)) << "open measurement";
  // The longest name that is possible.
  const std::string copy = folder.file(std::string(251, 'a') + ".res");
  EXPECT_EQ(copyFile(folder.file(names[0]), copy), "");
  EXPECT_EQ(contentOf(copy), "open measurement");
  removeAbandoned(folder.path().string());
  for (const std::string& name : names) EXPECT_EQ(contentOf(folder.file(name)), "open measurement");
  EXPECT_EQ(folder.entries(), 6);
}

TEST(Saving, ACopyIsTheSameBytes) {
  const TemporaryFolder folder;
  std::string bytes;
  for (int i = 0; i < 700'000; ++i) bytes += static_cast<char>(i * 37);
  SafeFile source(folder.file("source.res"));
  source.write(bytes.data(), bytes.size());
  ASSERT_EQ(source.commit(), "");
  EXPECT_EQ(copyFile(folder.file("source.res"), folder.file("copy.res")), "");
  EXPECT_TRUE(contentOf(folder.file("copy.res")) == bytes);

  EXPECT_NE(copyFile(folder.file("gone.res"), folder.file("copy.res")), "");
  EXPECT_TRUE(contentOf(folder.file("copy.res")) == bytes);
  EXPECT_EQ(copyFile("", folder.file("empty.res")), "");
  EXPECT_EQ(contentOf(folder.file("empty.res")), "");
  EXPECT_EQ(folder.entries(), 3);
}

// A region opens again with the heights, texts and results of its source, whatever that was and
// whatever the reader read before it.
TEST(Region, OpensAgainAsAPieceOfItsSource) {
  const TemporaryFolder folder;
  for (const auto& [version, numType] : {std::pair{4, kNumTypeDoubles},
                                         {4, kNumTypeCounts16},
                                         {3, kNumTypeDoubles},
                                         {2, kNumTypeCounts16}}) {
    MeasurementContent other;
    other.width = other.height = 2;
    other.heights = {9, 9, 9, 9};
    other.partName = "another part";
    writeBytes(folder.file("other.res"), encodeMeasurement(other));
    MeasurementContent content;
    content.version = version;
    content.numType = numType;
    content.width = 5;
    content.height = 4;
    content.pixelSizeX = 0.25;
    content.heightScale = 0.5;
    content.algorithmType = 9;
    content.record.assign(16, 1.25F);
    content.partName = "plate 7";
    for (int i = 0; i < 20; ++i) {
      content.heights.push_back(i * 0.1);
      content.counts.push_back(static_cast<std::int16_t>(i * 3));
    }
    writeBytes(folder.file("source.res"), encodeMeasurement(content));

    Reader reader(folder.file("other.res"));
    reader.file.update(folder.file("source.res"));
    ASSERT_TRUE(reader.file.isValid());
    const Measurement source = reader.file.measurement();
    ASSERT_EQ(saveRegion(reader.file, source, *source.grid, {1, 2, 3, 2}, folder.file("cut.res")),
              "");

    EXPECT_EQ(saveRegion(reader.file, source, *source.grid, {1, 2, 3, 2}, folder.file("no/cut")),
              "No such file or directory");

    const Reader again(folder.file("cut.res"));
    ASSERT_TRUE(again.file.isValid()) << "version " << version;
    EXPECT_EQ(again.file.grid()->width(), 3U);
    for (std::size_t row = 0; row < 2; ++row) {
      EXPECT_TRUE(
          std::ranges::equal(again.file.grid()->row(row), source.grid->row(row + 2).subspan(1, 3)));
    }
    const ResHeader& header = again.file.header();
    const Reader alone(folder.file("source.res"));
    EXPECT_EQ(header.headerVersion, version);
    EXPECT_EQ(header.pixelSizeX, 0.25);
    EXPECT_EQ(fieldText(header.headerText3), fieldText(alone.file.header().headerText3));
    EXPECT_EQ(header.algorithmType, alone.file.header().algorithmType);
    EXPECT_EQ(folder.entries(), 3);
  }
  for (const char* name : {"Region", "a b-c_d.1", "azAZ09"}) {
    EXPECT_TRUE(isRegionName(name)) << name;
  }
  for (const char* name : {"", "  ", "..", "a/b", "a\\b", "ä", "x:y"}) {
    EXPECT_FALSE(isRegionName(name)) << name;
  }
}

}  // namespace
}  // namespace morvane
