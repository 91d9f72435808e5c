// Nothing is ever half written.
#include <gtest/gtest.h>
#include <unistd.h>

#include <sstream>

#include "resfile/file_copy.h"
#include "resfile/res_file.h"
#include "resfile/safe_file.h"
#include "tests/support/temporary_folder.h"

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
  // /dev/full takes every byte and keeps none.
  ASSERT_EQ(symlink("/dev/full", folder.file("cut.res.part").c_str()), 0);
  EXPECT_EQ(file.writeRegion(values, 2, 2, folder.file("cut.res")), "No space left on device");
  EXPECT_EQ(folder.entries(), 0);
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

}  // namespace
}  // namespace morvane
