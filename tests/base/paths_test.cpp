#include <gtest/gtest.h>

#include "base/paths.h"

namespace morvane {
namespace {

TEST(Paths, AreCutAtTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(folderOf("C:/prog/reader.exe"), "C:/prog");
  EXPECT_EQ(folderOf("C:\\prog\\reader.exe"), "C:\\prog");
  EXPECT_EQ(folderOf("reader.exe"), "reader.exe");
  EXPECT_EQ(folderOf(""), "");
  EXPECT_EQ(fileNameOf("/data/door panel/left.res"), "left.res");
  EXPECT_EQ(fileNameOf("D:\\data/left.res"), "left.res");
  EXPECT_EQ(fileNameOf("left.res"), "left.res");
}

TEST(Paths, AreBareOnlyWithoutTheSystemsSeparators) {
  const bool windows = kPathSeparator == '\\';
  EXPECT_EQ(folderPrefix("x.res"), "");
  EXPECT_EQ(folderPrefix("C:/data/x.res"), "C:/data/");
  EXPECT_EQ(folderPrefix("C:\\data\\x.res"), windows ? "C:\\data\\" : "");
  EXPECT_EQ(folderPrefix("C:\\data/a\\x.res"), windows ? "C:\\data/a\\" : "C:\\data/");
}

TEST(Paths, ComeOutOfDroppedLinks) {
  EXPECT_EQ(pathOfLink("/data/a b%20.res"), "/data/a b%20.res");
  EXPECT_EQ(pathOfLink("relative.res"), "relative.res");
  EXPECT_EQ(pathOfLink("/one.res\r\n/two.res\r\n"), "/one.res");
  EXPECT_EQ(pathOfLink("file:///a%20b/%C3%A4%25.res\r\nfile:///c.res"), "/a b/\xC3\xA4%.res");
  EXPECT_EQ(pathOfLink("file://localhost/a.res"), "/a.res");
  EXPECT_EQ(pathOfLink("file:///C:/a.res"), kPathSeparator == '\\' ? "C:/a.res" : "/C:/a.res");
  EXPECT_EQ(pathOfLink("file:///50%/%zz%4"), "/50%/%zz%4");
  EXPECT_EQ(pathOfLink("file://"), "");
  EXPECT_EQ(pathOfLink(""), "");
}

}  // namespace
}  // namespace morvane
