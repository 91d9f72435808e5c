// Saving copies, leaving the program, and opening another file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/gui/program.h"
#include "tests/support/golden.h"

namespace morvane::gui {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

namespace fs = std::filesystem;

std::string panel() { return golden::file("panel/measurement.res").string(); }
std::string flat() { return golden::file("flat/measurement.res").string(); }

/// Asks for a copy of the open measurement under a path.
void saveAs(Program& program, const std::string& path) {
  program.mainWindow().key({"ctrl+s"});
  program.awaitLine("Updated DIRECTORY IS: ");
  program.answerChooser(path, "Save Copy as");
}

class Copy : public testing::Test {
 protected:
  Copy() { program_.awaitLine(kFrameDrawn); }
  /// Asks for a copy under `name` in the folder for saved files.
  void save(const std::string& name) {
    program_.mainWindow().key({"ctrl+s"});
    program_.awaitLine("Updated DIRECTORY IS: " + folder());
    program_.answerChooser(name.empty() ? name : folder() + "/" + name, "Save Copy as");
  }
  std::string folder() const { return program_.home() + "/Documents/Morvane_Reader/Saved Files"; }

  Program program_{{panel()}};
};

TEST_F(Copy, IsByteForByteAndAlwaysGetsItsExtension) {
  program_.mainWindow().key({"ctrl+s"});
  program_.window("Save Copy as").key({"Return"});
  program_.awaitLine("destination: " + folder() + "/Untitled.res");  // the name that is offered
  save("x.res");
  program_.awaitLine("destination: " + folder() + "/x.res.res");
  program_.awaitLine("source: " + panel());
  EXPECT_EQ(program_.quit(), 0);
  EXPECT_TRUE(contentOf(folder() + "/x.res.res") == contentOf(panel()));
  EXPECT_THAT(program_.lines(), Contains("CANNOT ACCESS: " + folder()));
}

TEST_F(Copy, CancelledOrRefusedWritesNothing) {
  save("");
  program_.awaitLine("Cancelled save");
  EXPECT_TRUE(fs::is_empty(folder()));

  // The name the copy would get exists though the chooser could not know it.
  std::ofstream(folder() + "/kept.res") << "kept";
  save("kept");
  program_.alert().key({"Escape"});
  EXPECT_EQ(program_.quit(), 0);
  EXPECT_EQ(contentOf(folder() + "/kept.res"), "kept");
}

TEST(CopyOverItself, IsRefused) {
  const TemporaryFolder folder;
  const std::string path = folder.file("own.res");
  fs::copy_file(panel(), path);
  Program program({path});
  program.awaitLine(kFrameDrawn);
  saveAs(program, folder.file("own"));
  const Window refusal = program.alert();
  refusal.key({"Return"});
  refusal.awaitGone();
  EXPECT_TRUE(contentOf(path) == contentOf(panel()));
}

TEST(OpenMeasurement, MayGoWhileItIsShown) {
  const TemporaryFolder folder;
  const std::string path = folder.file("gone.res");
  fs::copy_file(panel(), path);
  Program program({path});
  program.awaitLine(kFrameDrawn);
  fs::remove(path);
  saveAs(program, folder.file("copy"));
  const Window refusal = program.alert();
  refusal.key({"Return"});
  refusal.awaitGone();
  EXPECT_EQ(folder.entries(), 0) << "nothing was written";
  // Built anew from what is held.
  const Window main = program.mainWindow();
  main.resize(1300, 820);
  main.click({77, 264});
  program.awaitLine("Model Binding Time: ");
  // Another file in its place is another measurement only once it is opened.
  fs::copy_file(flat(), path);
  main.click({117, 411});
  main.awaitPicture("the first one's colours", [](const Image& picture) {
    return picture.part({650, 370, 130, 90}).count([](const Rgb& c) { return chroma(c) > 80; }) >
           2000;
  });
  EXPECT_EQ(program.quit(), 0);
}

TEST(Quit, ByTheCloseBoxAsksFirst) {
  Program program;
  program.mainWindow().close();
  const Window no = program.window("Quit application?");
  no.click({260, 75});
  no.awaitGone();
  program.mainWindow().close();
  program.window("Quit application?").click({140, 75});
  EXPECT_EQ(program.awaitExit(), 1);
}

TEST(SecondFile, RebuildsTheMenu) {
  Program program({panel()});
  program.awaitLine(kFrameDrawn);
  const Area bitmapMenu{205, 0, 60, 25};
  const auto lit = [](const Rgb& colour) { return colour != kBlack; };
  program.mainWindow().awaitPicture("the bitmap menu", [&](const Image& picture) {
    return picture.part(bitmapMenu).count(lit) > 20;
  });
  EXPECT_THAT(program.lines(), Contains("Found Filename: surface_image_f.bmp"));
  program.mainWindow().key({"ctrl+o"});
  program.answerChooser(flat());
  program.mainWindow().awaitPicture("no bitmap menu", [&](const Image& picture) {
    return picture.part(bitmapMenu).count(lit) == 0;
  });
}

}  // namespace
}  // namespace morvane::gui
