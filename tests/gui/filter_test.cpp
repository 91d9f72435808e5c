// The entries of the full menu: filter, tools, region.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "resfile/res_file.h"
#include "tests/gui/on_show.h"
#include "tests/support/golden.h"

namespace morvane::gui {
namespace {

constexpr Point kTools{215, 12};
constexpr Area kSurface{650, 370, 130, 90};
constexpr Area kBelowName{165, 57, 200, 18};
constexpr Area kKeyLabels{1150, 100, 130, 640};
constexpr Area kUpperLimit{3, 375, 86, 32};

// Places in the filter window.
constexpr Point kBandPass{100, 195};  // on its words
constexpr Point kL1{100, 245};
constexpr Point kL2{100, 315};
constexpr Point kApply{110, 365};
constexpr Area kHint{30, 332, 340, 16};

// Places in the menu, counted in presses of the arrow key from its top.
enum Entry {
  kFilter = 1,
  kFilterSettings,
  kPoints,
  kLighting,
  kKey,
  kWholeLine,
  kGridBox,
  kRegion
};

class FullMenu : public OnShow {
 protected:
  void open(const std::string& path) {
    const auto shows = [](const Image& p) {
      return p.part(kSurface).count([](const Rgb& c) { return chroma(c) > 80; }) > 2000;
    };
    OnShow::open(path, shows, {.environment = {"MORVANE_MENU=full"}});
  }
  void choose(Entry entry) {
    window().click(kTools);
    std::vector<std::string> keys(static_cast<std::size_t>(entry), "Down");
    keys.emplace_back("Return");
    window().key(keys);
  }
  static bool isEmpty(const Image& area) {
    return area.count([&](const Rgb& c) { return difference(c, area.at({0, 0})) > 30; }) == 0;
  }
};

TEST_F(FullMenu, FiltersAsSetAndComesBack) {
  open(golden::file("panel/measurement.res").string());
  choose(kFilterSettings);
  const Window filter = program_->window("Filter Window");
  const auto hinted = [&](const char* what, bool empty) {
    filter.awaitPicture(what, [&](const Image& p) { return isEmpty(p.part(kHint)) == empty; });
  };
  hinted("no hint", true);
  filter.click(kApply);
  program_->awaitLine("Error ---- Undefined button number");
  hinted("that a type is missing", false);

  filter.click(kBandPass);
  type(filter, kL1, "2");
  type(filter, kL2, "0.15");
  hinted("that the cut-offs are the wrong way round", false);
  type(filter, kL1, "0,15");  // by an operator whose decimal sign is the comma
  type(filter, kL2, "2");
  hinted("no hint", true);
  filter.click(kApply);
  program_->awaitLine("FILTER TYPE: bpf");
  choose(kFilter);
  const Image filtered = await("filtered heights", [&](const Image& p) {
    return !sameAsAtStart(p, kSurface) && !sameAsAtStart(p, kKeyLabels) &&
           !sameAsAtStart(p, kUpperLimit) && !isEmpty(p.part(kBelowName));
  });
  filter.awaitPicture("that a press on the main window left it in front", [](const Image& p) {
    return p.at({5, 5}) == Rgb{192, 192, 192};
  });
  // The same again changes nothing; nonsense is taken as it stands and breaks nothing.
  filter.click(kApply);
  for (const char* typed : {"1e30", "-0.15", "", "0"}) {
    type(filter, kL1, typed);
    filter.click(kApply);
  }
  type(filter, kL1, "0.15");
  filter.click(kApply);
  await("the same filtered heights",
        [&](const Image& p) { return p.part(kSurface) == filtered.part(kSurface); });

  // A smaller measurement is filtered with the same settings.
  window().key({"ctrl+o"});
  program_->answerChooser(golden::file("small_even_rows/measurement.res").string());
  program_->awaitLine("RES DIMENSIONS: (X) = ");
  program_->awaitLine("Drawing Time for HM Key: ");
  window().key({"ctrl+o"});
  program_->answerChooser(golden::file("panel/measurement.res").string());
  await("the same filtered heights",
        [&](const Image& p) { return p.part(kSurface) == filtered.part(kSurface); });
  choose(kFilter);
  await("raw heights", [&](const Image& p) {
    return sameAsAtStart(p, kSurface) && sameAsAtStart(p, kUpperLimit) &&
           isEmpty(p.part(kBelowName));
  });
}

TEST_F(FullMenu, SavesWhatLiesBetweenTheCornersOfTheGridBox) {
  std::filesystem::copy_file(golden::file("panel/measurement.res"), folder_.file("whole.res"));
  open(folder_.file("whole.res"));
  choose(kGridBox);
  const auto isCorner = [](const Rgb& c) { return c.r > 200 && c.g < 60 && c.b > 200; };
  const Image boxed = await("the box over the surface", [&](const Image& p) {
    return !sameAsAtStart(p, kSurface) && p.count(isCorner) > 20;
  });
  // The lower left corner goes to the middle of the surface.
  const Area lowerLeft{600, 420, 60, 60};
  const Point corner = boxed.part(lowerLeft).centreOf(isCorner);
  window().drag({corner.x + lowerLeft.x, corner.y + lowerLeft.y}, {715, 412});
  await("a smaller box", [&](const Image& p) { return p.part(lowerLeft).count(isCorner) == 0; });

  choose(kRegion);
  const auto answer = [&](const std::string& name) {
    const Window question = program_->alert();
    question.key({"ctrl+a"});
    question.type(name);
    question.key({"Return"});
    question.awaitGone();
  };
  answer("a/b");
  const Window refusal = program_->alert();
  refusal.key({"Return"});
  refusal.awaitGone();
  choose(kRegion);
  answer("cut");
  const Window offer = program_->alert();
  offer.key({"Escape"});
  offer.awaitGone();

  std::ostringstream log;
  resFile whole(log);
  whole.update(folder_.file("whole.res"));
  resFile cut(log);
  cut.update(folder_.file("cut.res"));
  ASSERT_TRUE(cut.isValid());
  // Half the columns and rows, give or take what a pixel of the screen covers.
  EXPECT_NEAR(2 * cut.header().width, whole.header().width, 16);
  EXPECT_NEAR(2 * cut.header().height, whole.header().height, 16);
  EXPECT_EQ(cut.grid()->row(0)[0],
            whole.grid()->row(static_cast<std::size_t>(
                whole.header().height -
                cut.header()
                    .height))[static_cast<std::size_t>(whole.header().width - cut.header().width)]);
}

TEST_F(FullMenu, SwitchesWhatTheViewShows) {
  open(golden::file("panel/measurement.res").string());
  for (const Entry entry : {kPoints, kLighting}) {
    choose(entry);
    await("another surface", [&](const Image& p) { return !sameAsAtStart(p, kSurface); });
    choose(entry);
    await("the surface again", [&](const Image& p) { return sameAsAtStart(p, kSurface); });
  }
  choose(kKey);
  await("no key", [&](const Image& p) { return !sameAsAtStart(p, kKeyLabels); });
  choose(kKey);
  await("the key again", [&](const Image& p) { return sameAsAtStart(p, kKeyLabels); });
}

}  // namespace
}  // namespace morvane::gui
