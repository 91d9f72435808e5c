// Nothing is ever half written.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "base/file_copy.h"
#include "base/safe_file.h"
#include "resfile/region_file.h"
#include "resfile/res_file.h"
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

TEST(Saving, FailsWithTheSystemsReasonAndLeavesNothing) {
  const TemporaryFolder folder;
  std::ostringstream log;
  const resFile file(log);
  const std::vector<double> values = {1, 2, 3, 4};
  EXPECT_EQ(file.writeRegion(values, 2, 2, folder.file("no such folder/cut.res")),
            "No such file or directory");
  EXPECT_EQ(folder.entries(), 0);
}

TEST(Saving, LeavesFilesWithTemporaryNamesAlone) {
  const TemporaryFolder folder;
  const std::string ours = ".morvane-" + ownMachine() + "-";
  const std::string names[] = {ours + std::to_string(ownProcess()) + "-1.part",  // being written
                               ".morvane-elsewhere-999999999-1.part", ".morvane-.part",
                               ours + "12a-1.part", "morvane-1.part"};
  for (const std::string& name : names) std::ofstream(folder.file(name)) << "open measurement";
  // As long as a name can be.
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

    std::ostringstream log;
    resFile reader(log);
    reader.update(folder.file("other.res"));
    reader.update(folder.file("source.res"));
    ASSERT_TRUE(reader.isValid());
    const Measurement source = reader.measurement();
    ASSERT_EQ(saveRegion(reader, source, *source.grid, {1, 2, 3, 2}, folder.file("cut.res")), "");

    resFile again(log);
    again.update(folder.file("cut.res"));
    ASSERT_TRUE(again.isValid()) << "version " << version;
    EXPECT_EQ(again.grid()->width(), 3U);
    for (std::size_t row = 0; row < 2; ++row) {
      for (std::size_t column = 0; column < 3; ++column) {
        EXPECT_EQ(again.grid()->row(row)[column], source.grid->row(row + 2)[column + 1]);
      }
    }
    resFile alone(log);
    alone.update(folder.file("source.res"));
    EXPECT_EQ(again.header().headerVersion, version);
    EXPECT_EQ(again.header().pixelSizeX, 0.25);
    EXPECT_EQ(fieldText(again.header().headerText3), fieldText(alone.header().headerText3));
    EXPECT_EQ(again.header().algorithmType, alone.header().algorithmType);
    EXPECT_EQ(folder.entries(), 3);
  }
  for (const char* name : {"Region", "a b-c_d.1"}) EXPECT_TRUE(isRegionName(name)) << name;
  for (const char* name : {"", "  ", "..", "a/b", "a\\b", "ä", "x:y"}) {
    EXPECT_FALSE(isRegionName(name)) << name;
  }
}

}  // namespace
}  // namespace morvane
