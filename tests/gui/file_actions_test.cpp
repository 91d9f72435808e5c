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

namespace fs = std::filesystem;

const std::string kPanel = golden::measurement("panel");

class Copy : public testing::Test {
 protected:
  Copy() { program_.awaitLine(kFrameDrawn); }
  /// Asks for a copy of the open measurement under a path.
  void saveAs(const std::string& path) {
    program_.mainWindow().key({"ctrl+s"});
    program_.awaitLine("Updated DIRECTORY IS: " + folder());
    program_.answerChooser(path, "Save Copy as");
  }
  std::string folder() const { return program_.home() + "/Documents/Morvane_Reader/Saved Files"; }

  TemporaryFolder source_;
  std::string path_ = [this] {
    fs::copy_file(kPanel, source_.file("own.res"));
    return source_.file("own.res");
  }();
  Program program_{{path_}};
};

TEST_F(Copy, IsByteForByteAndAlwaysGetsItsExtension) {
  program_.mainWindow().key({"ctrl+s"});
  program_.window("Save Copy as").key({"Return"});
  program_.awaitLine("destination: " + folder() + "/Untitled.res");  // the suggested name
  saveAs(folder() + "/x.res");
  program_.awaitLine("destination: " + folder() + "/x.res.res");
  program_.awaitLine("source: " + path_);
  EXPECT_EQ(program_.quit(), 0);
  EXPECT_TRUE(contentOf(folder() + "/x.res.res") == contentOf(kPanel));
  EXPECT_THAT(program_.lines(), Contains("CANNOT ACCESS: " + folder()));
}

TEST_F(Copy, CancelledOrRefusedWritesNothing) {
  saveAs("");
  program_.awaitLine("Cancelled save");
  EXPECT_TRUE(fs::is_empty(folder()));
  // The chooser cannot know that the name exists, since the program adds the extension.
  std::ofstream(folder() + "/kept.res") << "kept";
  saveAs(folder() + "/kept");
  program_.answerAlert("Escape");
  EXPECT_EQ(contentOf(folder() + "/kept.res"), "kept");
  saveAs(source_.file("own"));
  program_.answerAlert();
  EXPECT_TRUE(contentOf(path_) == contentOf(kPanel)) << "a copy over itself";
}

TEST_F(Copy, OfAMeasurementThatIsGoneWhileItIsShown) {
  fs::remove(path_);
  saveAs(source_.file("copy"));
  program_.answerAlert();
  EXPECT_EQ(source_.entries(), 0) << "nothing was written";
  // The mesh is built again from the measurement in memory.
  program_.mainWindow().resize(1300, 820);
  program_.press(control::kReset);
  program_.awaitLine("Model Binding Time: ");
  // A new file under the same path is not shown before it is opened.
  fs::copy_file(golden::measurement("flat"), path_);
  program_.press(control::kLimits);
  (void)program_.awaitSurface();
  EXPECT_EQ(program_.quit(), 0);
}

TEST(Quit, ByTheCloseBoxAsksFirst) {
  Program program;
  program.mainWindow().close();
  const Window no = program.window("Quit application?");
  no.click(middleOf(quit_place::kNo));
  no.awaitGone();
  program.mainWindow().close();
  program.window("Quit application?").click(middleOf(quit_place::kYes));
  EXPECT_EQ(program.awaitExit(), 1);
}

TEST(SecondFile, RebuildsTheMenu) {
  Program program({kPanel});
  const auto bitmapMenu = [](const Image& picture) {
    const Area place{205, 0, 60, kMenuHeight};
    return picture.part(place).count([](const Rgb& c) { return c != kBlack; });
  };
  program.mainWindow().awaitPicture("the bitmap menu",
                                    [&](const Image& p) { return bitmapMenu(p) > 20; });
  program.awaitLine("Found Filename: surface_image_f.bmp");
  program.open(golden::measurement("flat"));
  program.mainWindow().awaitPicture("no bitmap menu",
                                    [&](const Image& p) { return bitmapMenu(p) == 0; });
}

}  // namespace
}  // namespace morvane::gui
