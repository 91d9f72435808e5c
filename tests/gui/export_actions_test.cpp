// Numbers and pictures that an operator saves or copies from the Tools menu.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "tests/gui/on_show.h"
#include "tests/support/golden.h"
#include "tests/support/output.h"

namespace morvane::gui {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Export : public OnShow {
 protected:
  Export() {
    std::filesystem::copy_file(golden::measurement("panel"), folder_.file("plate.res"));
    program_ = std::make_unique<Program>(std::vector<std::string>{},
                                         Start{.environment = {"MORVANE_MENU=full", "LC_ALL=C"}});
  }
  /// Chooses "Tools/Save ..." and answers its chooser with `name` in the test's folder.
  void save(const std::string& entry, const std::string& name, const std::string& title) {
    program_->choose("Tools/" + entry);
    program_->answerChooser(folder_.file(name), title);
  }
  std::string saved(const std::string& name) {
    const std::string path = folder_.file(name);
    EXPECT_TRUE(eventually([&] { return std::filesystem::exists(path); })) << path;
    return contentOf(path);
  }
  Image picture(const std::string& name) {
    (void)saved(name);
    return Image::ofPpm(outputOf("convert '" + folder_.file(name) + "' ppm:-"));
  }
  std::string copied(const std::string& entry, const std::string& start) {
    program_->choose("Tools/" + entry);
    std::string text;
    const auto arrived = [&] {
      text = outputOf("xclip -selection clipboard -o 2>/dev/null || true");
      return text.starts_with(start);
    };
    EXPECT_TRUE(eventually(arrived)) << text;
    EXPECT_EQ(outputOf("xclip -selection primary -o"), text);
    return text;
  }
};

/// How much darker than its upper left corner a part of a picture is, in pixels of the window.
double ink(const Image& picture, const Area& area, int factor) {
  const Image part =
      picture.part({area.x * factor, area.y * factor, area.w * factor, area.h * factor});
  const int paper = part.at({0, 0}).g;
  double sum = 0.0;
  for (int level = 0; level < paper; ++level) {
    sum += (paper - level) * part.count([=](const Rgb& c) { return c.g == level; });
  }
  return sum / (factor * factor);
}

TEST_F(Export, SaysWhatIsMissingAndSavesAndCopiesWhatIsShown) {
  for (const char* entry : {"Copy section", "Save results as...", "Save heights as...",
                            "Save picture as/Double size..."}) {
    program_->choose(std::string("Tools/") + entry);
    program_->answerAlert();
  }
  program_->open(folder_.file("plate.res"));
  start_ = program_->awaitSurface();
  program_->choose("Tools/Save section as...");
  program_->answerAlert();
  program_->press(control::kProfile);
  program_->awaitLine("Loading new Pins");

  save("Save section as...", "s", "Save section as");
  std::string table = saved("s.csv");
  EXPECT_THAT(table, StartsWith("x_mm,y_mm,distance_mm,height_um,cut\n0,0,0,"));
  std::ranges::replace(table, ',', '\t');
  EXPECT_EQ(copied("Copy section", "x_mm"), table);
  EXPECT_THAT(copied("Copy results", "Band 1 Type\t"), HasSubstr("\tmm\nBand 1 Sa\t"));
  program_->choose("Tools/Save results as...");
  const Window chooser = program_->window("Save results as");
  chooser.click({150, 28});
  chooser.key({"Down", "Return"});  // the filter for decimal commas
  chooser.click({296, 322});
  program_->answerChooser(folder_.file("r.CSV"), "Save results as");
  EXPECT_THAT(saved("r.CSV"), StartsWith("file;part;date;time;algorithm;"));

  save("Save heights as...", "h", "Save heights as");
  EXPECT_THAT(saved("h.sdf"), StartsWith("aISO-1.0\r\n"));
  save("Save heights as...", "h.gsf", "Save heights as");
  EXPECT_THAT(saved("h.gsf"), StartsWith("Gwyddion Simple Field"));
  save("Save heights as...", "plate.res", "Save heights as");
  program_->answerAlert();
  EXPECT_EQ(contentOf(folder_.file("plate.res")), contentOf(golden::measurement("panel")));
}

TEST_F(Export, PictureHasTheProportionsOfTheWindowAtEverySize) {
  program_->open(folder_.file("plate.res"));
  start_ = program_->awaitSurface();
  program_->press(control::kProfile);
  const Image shown = await("the profile", [](const Image& p) {
    return p.part({300, 700, 800, 60}).count([](const Rgb& c) {
      return c == Rgb{255, 255, 255};
    }) > 20000;
  });
  save("Save picture as/Size of the view...", "1.PNG", "Save picture as, 1130 × 775 pixels");
  const Image once = picture("1.PNG");
  ASSERT_EQ(once.width(), 1130);
  save("Save picture as/Fourfold size...", "4.png", "Save picture as, 4520 × 3100 pixels");
  const Image large = picture("4.png");
  ASSERT_EQ(large.width(), 4 * 1130);
  ASSERT_EQ(large.height(), 4 * 775);
  int different = 0;
  for (int y = 0; y < once.height(); ++y) {
    for (int x = kCoveredWidth; x < once.width(); ++x) {
      const Rgb screen = shown.at({kControlsWidth + x, kMenuHeight + y});
      different += difference(once.at({x, y}), screen) > 8 ? 1 : 0;
    }
  }
  // The places of the samples in a pixel may be mirrored.
  EXPECT_LT(different, once.width() * once.height() / 50);
  constexpr Area kParts[] = {{10, 10, 80, 30},      // the name of the file
                             {1010, 60, 115, 400},  // the key's numbers
                             {478, 220, 40, 100},   // numbers of the axes
                             {605, 305, 40, 20},    // and the end of one
                             {142, 535, 960, 190},  // the plot
                             {100, 730, 1020, 35}};
  for (const Area& part : kParts) {
    EXPECT_NEAR(ink(large, part, 4) / ink(once, part, 1), 1.0, 0.1) << part.x << ", " << part.y;
  }
}

}  // namespace
}  // namespace morvane::gui
