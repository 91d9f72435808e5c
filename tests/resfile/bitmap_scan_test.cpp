// The bitmaps beside a measurement.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "resfile/bitmap_scan.h"
#include "tests/support/temporary_folder.h"
#include "tools/measurement_builder.h"

namespace morvane {
namespace {

TEST(BitmapScan, TakesLowerCaseBitmapsInOrder) {
  const TemporaryFolder folder;
  for (const char* name : {"b.bmp", "a.bmp", "c.BMP", "d.bmp.txt", "bmp", ".bmp", "x.res"}) {
    writeBytes(folder.file(name), {});
  }
  std::ostringstream log;
  const BitmapFolder found = scanBitmaps(folder.file("x.res"), log);
  EXPECT_EQ(found.names, (std::vector<std::string>{".bmp", "a.bmp", "b.bmp"}));
  EXPECT_EQ(found.folder, folder.path().string());
  EXPECT_EQ(log.str().find("PATH TO FOLDER: " + found.folder + "\nFound Filename: .bmp\n"), 0U);
  EXPECT_EQ(scanBitmaps("x.res", log).folder, ".");
  EXPECT_TRUE(scanBitmaps(folder.file("no folder/x.res"), log).names.empty());
}

}  // namespace
}  // namespace morvane
