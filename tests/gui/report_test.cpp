// The report button, from the press to the page.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "tests/gui/program.h"
#include "tests/support/golden.h"
#include "tests/support/output.h"

namespace morvane::gui {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

constexpr Point kReport{77, 484};
constexpr Point kProfile{77, 546};

Image readPpm(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::string format;
  int width = 0;
  int height = 0;
  int strongest = 0;
  file >> format >> width >> height >> strongest;
  file.get();
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) *
                                    static_cast<std::size_t>(height));
  for (std::uint32_t& pixel : pixels) {
    for (int channel = 0; channel < 3; ++channel) {
      pixel = pixel << 8 | static_cast<std::uint32_t>(file.get());
    }
  }
  return {width, height, pixels};
}

/// The first picture in a PDF file.
Image pictureIn(const std::string& path) {
  outputOf("pdfimages '" + path + "' '" + path + "'");
  return readPpm(path + "-000.ppm");
}

/// What a report shows of the main window.
Image reportPart(const Image& window) {
  return window.part({155, 25, window.width() - 155, window.height() - 25});
}

/// A JPEG file is not exact: sharp edges of colour run over a few pixels.
void expectAlike(const Image& picture, const Image& screen) {
  ASSERT_EQ(picture.width(), screen.width());
  ASSERT_EQ(picture.height(), screen.height());
  long sum = 0;
  int far = 0;
  for (int y = 0; y < screen.height(); ++y) {
    for (int x = 0; x < screen.width(); ++x) {
      const int apart = difference(picture.at({x, y}), screen.at({x, y}));
      sum += apart;
      far += apart > 64 ? 1 : 0;
    }
  }
  const double pixels = static_cast<double>(screen.width()) * screen.height();
  EXPECT_LT(static_cast<double>(sum) / pixels, 3.0);
  EXPECT_LT(far / pixels, 0.005);
}

class Report : public testing::Test {
 protected:
  /// Starts the program on a measurement through `launcher`, words that run what follows them.
  void open(const std::vector<std::string>& launcher = {"env", "MORVANE_MENU=full"},
            const std::string& measurement = golden::file("panel/measurement.res").string()) {
    std::vector<std::string> words(launcher.begin() + 1, launcher.end());
    words.insert(words.end(), {MORVANE_PROGRAM, measurement});
    program_ = std::make_unique<Program>(words, Start{.program = launcher.front()});
    program_->mainWindow().awaitPicture("the surface", [](const Image& p) {
      return p.part({650, 370, 130, 90}).count([](const Rgb& c) { return chroma(c) > 80; }) > 2000;
    });
  }
  void press(const std::string& name) {
    program_->mainWindow().click(kReport);
    program_->answerChooser(name, "Save report");
  }
  /// Waits until the report stands in the folder, and returns its path.
  std::string awaitReport(const std::string& name = "report.pdf") {
    std::string path = folder_.file(name);
    EXPECT_TRUE(eventually([&] { return std::filesystem::exists(path); })) << path;
    return path;
  }

  TemporaryFolder folder_;
  std::unique_ptr<Program> program_;
};

TEST_F(Report, IsAPageWithThePictureAndItsNumbers) {
  std::filesystem::copy_file(golden::file("panel/measurement.res"), folder_.file("plate.res"));
  open({"env"}, folder_.file("plate.res"));
  program_->mainWindow().click(kReport);
  const Window chooser = program_->window("Save report");
  chooser.key({"Return"});
  chooser.awaitGone();
  const std::string path = awaitReport("plate.pdf");
  program_->mainWindow().awaitPicture("where it lies", [](const Image& picture) {
    return picture.part({160, 750, 1110, 45}).count([](const Rgb& c) { return c == kBlack; }) >
           5000;
  });
  const std::string text = outputOf("pdftotext -layout '" + path + "' -");
  for (const char* words : {"Morvane Reader Report:", "Date: ", "Time: ", "plate.res",
                            "Scaling: 498.8x", "Crop Min: -6.1", "Crop Max: 6.2"}) {
    EXPECT_THAT(text, HasSubstr(words));
  }
  // The view without its first five columns.
  EXPECT_THAT(outputOf("pdfimages -list '" + path + "'"), ContainsRegex("image +1125 +775 +rgb"));
}

TEST_F(Report, ShowsTheViewWhateverLiesOverIt) {
  open();
  const Window window = program_->mainWindow();
  window.click(kProfile);
  const Image before = window.awaitPicture("the profile", [](const Image& p) {
    return p.part({300, 700, 800, 60}).count([](const Rgb& c) {
      return c == Rgb{255, 255, 255};
    }) > 20000;
  });
  const Area place = window.area();
  const auto cover = Screen(std::getenv("DISPLAY")).cover({place.x + 800, place.y + 400, 300, 300});
  window.hold(kReport, {kReport.x + 1, kReport.y}, {});
  constexpr Area kTip{155, kReport.y, 100, 40};
  const Image covered = window.awaitPicture(
      "the tip", [&](const Image& p) { return !(p.part(kTip) == before.part(kTip)); });
  ASSERT_EQ(covered.at({900, 500}), kBlack);
  press(folder_.file("report"));
  expectAlike(pictureIn(awaitReport()), reportPart(before));
}

TEST_F(Report, PictureFromTheMenuIsWithoutTheMenu) {
  open();
  const Window window = program_->mainWindow();
  const Image before = window.capture();
  window.click({214, 12});
  window.awaitPicture("the menu", [](const Image& p) { return p.at({300, 250}) == kBlack; });
  window.click({230, 205});
  program_->awaitLine("{### END OF SCREENSHOT ###}");
  const std::string clipboard = "xclip -selection clipboard -o -t ";
  EXPECT_EQ(outputOf(clipboard + "TARGETS"), "TARGETS\nimage/png\nimage/bmp\n");
  for (const std::string form : {"png", "bmp"}) {
    const std::string path = folder_.file("taken.ppm");
    outputOf(clipboard + "image/" + form + " | convert " + form + ":- '" + path + "'");
    EXPECT_TRUE(readPpm(path) == reportPart(before)) << form;
  }
}

TEST_F(Report, OfNothingSaysSo) {
  program_ = std::make_unique<Program>();
  press(folder_.file("empty"));
  const std::string text = outputOf("pdftotext '" + awaitReport("empty.pdf") + "' -");
  EXPECT_THAT(text, HasSubstr("Crop Min: Miniu"));
  EXPECT_THAT(text, HasSubstr("Crop Max: Maxiu"));
  EXPECT_THAT(text, Not(HasSubstr(".res")));
}

TEST_F(Report, OnAFullDiskIsSaidAndLeavesNothing) {
  // A small disk of the program's own, seen by it alone.
  const std::string mount = "mount -t tmpfs -o size=16k none '" + folder_.path().string() + "'";
  if (std::system(("unshare -rm sh -c \"" + mount + "\" 2>/dev/null").c_str()) != 0) {
    GTEST_SKIP() << "this system lets nobody mount a disk of his own";
  }
  open({"unshare", "-rm", "sh", "-c", mount + " && exec \"$@\"", "sh"});
  press(folder_.file("report"));
  program_->awaitLine("The report could not be saved: ");
  EXPECT_TRUE(std::filesystem::is_empty("/proc/" + std::to_string(program_->id()) + "/root" +
                                        folder_.path().string()));
  EXPECT_EQ(program_->quit(), 0);
}

TEST_F(Report, LeftOrImpossibleIsSaidAndWithoutAPlaceForItsPictureItIsWhole) {
  open();
  press("");
  press("/proc/report");
  program_->awaitLine("The report could not be saved: ");
  std::filesystem::remove_all(program_->home() + "/Documents");
  std::ofstream(program_->home() + "/Documents") << "no folder";
  press(folder_.file("report"));
  program_->awaitLine("The picture could not be saved: ");
  EXPECT_EQ(pictureIn(awaitReport()).width(), 1125);
  EXPECT_EQ(program_->quit(), 0);
}

}  // namespace
}  // namespace morvane::gui
