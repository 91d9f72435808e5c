#include <gtest/gtest.h>

#include "app/paths.h"

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

TEST(Paths, OfResourcesStandBesideTheProgram) {
  const std::string s(1, kPathSeparator);
  EXPECT_EQ(resourcePath("/opt/reader", "Icons", "open.png"),
            "/opt/reader" + s + "resources" + s + "Icons" + s + "open.png");
}

}  // namespace
}  // namespace morvane
