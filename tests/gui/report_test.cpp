// The report button, from the press to the page.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/gui/on_show.h"
#include "tests/support/golden.h"
#include "tests/support/output.h"

namespace morvane::gui {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

/// The first picture in a PDF file.
Image pictureIn(const std::string& path) {
  outputOf("pdfimages '" + path + "' '" + path + "'");
  return Image::ofPpm(contentOf(path + "-000.ppm"));
}

/// The part of the main window that a report shows.
Image reportPart(const Image& window) {
  constexpr int kLeft = kControlsWidth + kCoveredWidth;
  return window.part({kLeft, kMenuHeight, window.width() - kLeft, window.height() - kMenuHeight});
}

/// Compares with a JPEG picture, in which sharp edges of colours are blurred.
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

class Report : public OnShow {
 protected:
  /// Saves a report as `name` in the test's folder and returns its path.
  std::string save(const std::string& name = "report") {
    program_->press(control::kReport);
    program_->answerChooser(folder_.file(name), "Save report");
    return awaitReport(name);
  }
  std::string awaitReport(const std::string& name) {
    std::string path = folder_.file(name + ".pdf");
    EXPECT_TRUE(eventually([&] { return std::filesystem::exists(path); })) << path;
    return path;
  }
};

TEST_F(Report, IsAPageWithThePictureAndItsNumbers) {
  std::filesystem::copy_file(golden::measurement("panel"), folder_.file("plate.res"));
  open(folder_.file("plate.res"));
  program_->press(control::kReport);
  const Window chooser = program_->window("Save report");
  chooser.key({"Return"});
  chooser.awaitGone();
  const std::string path = awaitReport("plate");
  window().awaitPicture("where the report is", [](const Image& picture) {
    return statusOf(picture).count([](const Rgb& c) { return c == kBlack; }) > 5000;
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
  open(golden::measurement("panel"));
  program_->press(control::kProfile);
  const Image before = await("the profile", [](const Image& p) {
    return p.part({300, 700, 800, 60}).count([](const Rgb& c) {
      return c == Rgb{255, 255, 255};
    }) > 20000;
  });
  const Area place = window().area();
  const auto cover = Screen(std::getenv("DISPLAY")).cover({place.x + 800, place.y + 400, 300, 300});
  const Point button = middleOf(inWindow(control::kReport));
  window().hold(button, {button.x + 1, button.y}, {});
  const Area tip{155, button.y, 100, 40};
  const Image covered = window().awaitPicture(
      "the tip", [&](const Image& p) { return !(p.part(tip) == before.part(tip)); });
  ASSERT_EQ(covered.at({900, 500}), kBlack);
  expectAlike(pictureIn(save()), reportPart(before));
}

TEST_F(Report, PictureFromTheMenuIsWithoutTheMenu) {
  open(golden::measurement("panel"), {.environment = {"MORVANE_MENU=full"}});
  program_->choose("Tools/Screenshot");
  program_->awaitLine("{### END OF SCREENSHOT ###}");
  const std::string clipboard = "xclip -selection clipboard -o -t ";
  EXPECT_EQ(outputOf(clipboard + "TARGETS"), "TARGETS\nimage/png\nimage/bmp\n");
  for (const std::string form : {"png", "bmp"}) {
    const std::string ppm =
        outputOf(clipboard + "image/" + form + " | convert " + form + ":- ppm:-");
    EXPECT_TRUE(Image::ofPpm(ppm) == reportPart(start_)) << form;
  }
}

TEST_F(Report, WithoutAMeasurementSaysSo) {
  program_ = std::make_unique<Program>();
  const std::string text = outputOf("pdftotext '" + save() + "' -");
  EXPECT_THAT(text, HasSubstr("Crop Min: Miniu"));
  EXPECT_THAT(text, HasSubstr("Crop Max: Maxiu"));
  EXPECT_THAT(text, Not(HasSubstr(".res")));
}

TEST_F(Report, ThatCannotBeSavedIsReportedAndWithoutAFolderForItsPictureItIsComplete) {
  open(golden::measurement("panel"));
  for (const char* path : {"", "/proc/report"}) {
    program_->press(control::kReport);
    program_->answerChooser(path, "Save report");
  }
  program_->awaitLine("The report could not be saved: ");
  std::filesystem::remove_all(program_->home() + "/Documents");
  std::ofstream(program_->home() + "/Documents") << "no folder";
  const std::string path = save();
  program_->awaitLine("The picture could not be saved: ");
  EXPECT_EQ(pictureIn(path).width(), 1125);
  EXPECT_EQ(program_->quit(), 0);
}

}  // namespace
}  // namespace morvane::gui
