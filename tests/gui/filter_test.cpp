// The entries of the full menu: filter, tools, region.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/gui/on_show.h"
#include "tests/support/golden.h"
#include "tests/support/reader.h"

namespace morvane::gui {
namespace {

constexpr Area kSurface{650, 370, 130, 90};
constexpr Area kBelowName{165, 57, 25, 18};  // beside the open menu
constexpr Area kKeyLabels{1150, 100, 130, 640};
constexpr Point kKeyTop{1138, 143};
constexpr Area kUpperLimit = inWindow(control::kMaximum);

class FullMenu : public OnShow {
 protected:
  void open(const std::string& path) { OnShow::open(path, {.environment = {"MORVANE_MENU=full"}}); }
  static bool isEmpty(const Image& area) {
    return area.count([&](const Rgb& c) { return difference(c, area.at({0, 0})) > 30; }) == 0;
  }
};

TEST_F(FullMenu, FiltersAsSetAndShowsTheRawHeightsAgain) {
  open(golden::measurement("panel"));
  program_->choose("Tools/Filter Settings");
  const Window filter = program_->window("Filter Window");
  const auto hinted = [&](const char* what, bool empty) {
    filter.awaitPicture(
        what, [&](const Image& p) { return isEmpty(p.part(filter_place::kHint)) == empty; });
  };
  hinted("no hint", true);
  filter.click(middleOf(filter_place::kApply));
  program_->awaitLine("Error ---- Undefined button number");
  hinted("that a type is missing", false);

  filter.click({100, middleOf(filter_place::kBandPass).y});  // on its label
  type(filter, filter_place::kL1, "2");
  type(filter, filter_place::kL2, "0.15");
  hinted("that the cut-offs are the wrong way round", false);
  type(filter, filter_place::kL1, "0,15");  // with a decimal comma
  type(filter, filter_place::kL2, "2");
  hinted("no hint", true);
  filter.click(middleOf(filter_place::kApply));
  program_->awaitLine("FILTER TYPE: bpf");
  program_->choose("Tools/Filter");
  const Image filtered = await("filtered heights", [&](const Image& p) {
    return !sameAsAtStart(p, kSurface) && !sameAsAtStart(p, kKeyLabels) &&
           !sameAsAtStart(p, kUpperLimit) && !isEmpty(p.part(kBelowName));
  });
  filter.awaitPicture("that a press on the main window left it in front", [](const Image& p) {
    return p.at({5, 5}) == Rgb{192, 192, 192};
  });
  // Applying the same again changes nothing. Nonsense is accepted as it is and breaks nothing.
  filter.click(middleOf(filter_place::kApply));
  for (const char* typed : {"1e30", "-0.15", "", "0"}) {
    type(filter, filter_place::kL1, typed);
    filter.click(middleOf(filter_place::kApply));
  }
  type(filter, filter_place::kL1, "0.15");
  filter.click(middleOf(filter_place::kApply));
  await("the same filtered heights",
        [&](const Image& p) { return p.part(kSurface) == filtered.part(kSurface); });

  // A smaller measurement is filtered with the same settings.
  program_->open(golden::measurement("small_even_rows"));
  program_->awaitLine("RES DIMENSIONS: (X) = ");
  program_->awaitLine("Drawing Time for HM Key: ");
  program_->open(golden::measurement("panel"));
  await("the same filtered heights",
        [&](const Image& p) { return p.part(kSurface) == filtered.part(kSurface); });
  program_->choose("Tools/Filter");
  await("raw heights", [&](const Image& p) {
    return sameAsAtStart(p, kSurface) && sameAsAtStart(p, kUpperLimit) &&
           isEmpty(p.part(kBelowName));
  });
}

TEST_F(FullMenu, SavesWhatLiesBetweenTheCornersOfTheGridBox) {
  std::filesystem::copy_file(golden::measurement("panel"), folder_.file("whole.res"));
  open(folder_.file("whole.res"));
  program_->choose("Tools/Grid Box");
  const auto isCorner = [](const Rgb& c) { return c.r > 200 && c.g < 60 && c.b > 200; };
  const Image boxed = await("the box over the surface", [&](const Image& p) {
    return !sameAsAtStart(p, kSurface) && p.count(isCorner) > 20;
  });
  // The lower left corner goes to the middle of the surface.
  const Area lowerLeft{600, 420, 60, 60};
  const Point corner = boxed.part(lowerLeft).centreOf(isCorner);
  window().drag({corner.x + lowerLeft.x, corner.y + lowerLeft.y}, {715, 412});
  await("a smaller box", [&](const Image& p) { return p.part(lowerLeft).count(isCorner) == 0; });

  program_->choose("Tools/Save region...");
  const auto answer = [&](const std::string& name) {
    const Window question = program_->alert();
    question.key({"ctrl+a"});
    question.type(name);
    question.key({"Return"});
    question.awaitGone();
  };
  answer("a/b");
  program_->answerAlert();
  program_->choose("Tools/Save region...");
  answer("cut");
  program_->answerAlert("Escape");

  const Reader wholeReader(folder_.file("whole.res"));
  Reader cutReader(folder_.file("cut.res"));
  ASSERT_TRUE(cutReader.file.isValid());
  const resFile &whole = wholeReader.file, &cut = cutReader.file;
  // Half of the columns and rows. A pixel of the screen covers several.
  EXPECT_NEAR(2 * cut.header().width, whole.header().width, 16);
  EXPECT_NEAR(2 * cut.header().height, whole.header().height, 16);
  // The region ends at the last column and row.
  EXPECT_EQ(cut.grid()->values().back(), whole.grid()->values().back());
}

TEST_F(FullMenu, SwitchesWhatTheViewShows) {
  open(golden::measurement("panel"));
  for (const char* entry : {"Tools/Surface as Points", "Tools/Lighting"}) {
    program_->choose(entry);
    await("another surface", [&](const Image& p) { return !sameAsAtStart(p, kSurface); });
    program_->choose(entry);
    await("the surface again", [&](const Image& p) { return sameAsAtStart(p, kSurface); });
  }
  program_->choose("Tools/Heat Map Key");
  await("no key", [&](const Image& p) { return !sameAsAtStart(p, kKeyLabels); });
  program_->choose("Tools/Heat Map Key");
  await("the key again", [&](const Image& p) { return sameAsAtStart(p, kKeyLabels); });
  for (const char* entry :
       {"Tools/Colours/1 % to 99 % of the Heights", "Tools/Colours/Same Range for All Files"}) {
    program_->choose(entry);
    await("words on the range", [&](const Image& p) { return !isEmpty(p.part(kBelowName)); });
    program_->choose(entry);
    await("the heights' own range", [&](const Image& p) {
      return isEmpty(p.part(kBelowName)) && sameAsAtStart(p, kUpperLimit);
    });
  }
  for (const auto& [entry, top] : {std::pair{"Tools/Colours/Viridis", Rgb{252, 231, 36}},
                                   {"Tools/Colours/Grey", Rgb{254, 254, 254}}}) {
    program_->choose(entry);
    await("the map's highest colour on the key, and its surface", [&, &top = top](const Image& p) {
      return difference(p.at(kKeyTop), top) < 6 && !sameAsAtStart(p, kSurface);
    });
  }
  program_->choose("Tools/Colours/Standard");
  await("the standard map", [&](const Image& p) {
    return sameAsAtStart(p, kSurface) && p.at(kKeyTop) == start_.at(kKeyTop);
  });
}

TEST_F(FullMenu, FitsTheViewAndNamesThePointUnderTheCursor) {
  open(golden::measurement("panel"));
  const auto isSurface = [](const Rgb& c) { return chroma(c) > 80; };
  const Area leftOfKey{155, 60, 950, 700};
  const int before = start_.part(leftOfKey).count(isSurface);
  program_->choose("Tools/Views/Fit on open");
  await("a larger surface",
        [&](const Image& p) { return p.part(leftOfKey).count(isSurface) > 3 * before; });
  window().wheel(middleOf(kFirstLayout.view), 60);  // zooming stops in front of the surface
  await("the surface from close to it", [&](const Image& p) {
    return p.part(leftOfKey).count(isSurface) > leftOfKey.w * leftOfKey.h * 9 / 10;
  });
  program_->choose("Tools/Views/Top");
  program_->choose("Tools/Views/Undo");
  program_->choose("Tools/Views/Undo");
  program_->choose("Tools/Height under Cursor");
  window().hold(middleOf(kFirstLayout.view), middleOf(kFirstLayout.view), {});
  window().awaitPicture("the height", [](const Image& p) {
    const Image readout = p.part({155, kFirstLayout.view.y + kFirstLayout.view.h - 20, 200, 18});
    const int black = readout.count([](const Rgb& c) { return c == kBlack; });
    return black > 2000 && black < 3500;
  });
}

}  // namespace
}  // namespace morvane::gui
