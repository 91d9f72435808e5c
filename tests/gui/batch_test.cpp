// The program from the command line, without a display.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/number_text.h"
#include "tests/gui/on_show.h"
#include "tests/support/golden.h"
#include "tests/support/output.h"

namespace morvane::gui {
namespace {

using testing::HasSubstr;

struct Outcome {
  int status;
  std::string errors;  // what standard error got
};

class Batch : public OnShow {
 protected:
  /// Runs the program with `options`, words for the shell, in the test's folder.
  Outcome run(const std::string& options) const {
    // Memory that GL drivers keep until the end is not a leak of the program.
    const std::string errors = folder_.file("errors");
    const std::string command =
        "cd '" + folder_.path().string() +
        "' && env -u DISPLAY ASAN_OPTIONS=\"$ASAN_OPTIONS:detect_leaks=0\" " MORVANE_PROGRAM " " +
        options + " 2>'" + errors + "'";
    const int status = std::system(command.c_str());
    return {WEXITSTATUS(status), contentOf(errors)};
  }
  [[nodiscard]] Image pictureIn(const std::string& name) const {
    return Image::ofPpm(outputOf("convert 'png:" + folder_.file(name) + "' ppm:-"));
  }
  [[nodiscard]] bool exists(const std::string& name) const {
    return std::filesystem::exists(folder_.file(name));
  }
};

TEST_F(Batch, PictureIsThatOfTheWindow) {
  const std::string panel = golden::measurement("panel");
  OnShow::open(panel);
  const Outcome outcome = run("'" + panel + "' --picture window.png --size 1130x775");
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  Area view = viewOf(start_);
  view.x += kCoveredWidth;  // by the control column
  view.w -= kCoveredWidth;
  const Image picture = pictureIn("window.png");
  const Image shown = start_.part(view);
  ASSERT_EQ(picture.width(), view.w + kCoveredWidth);
  // One of the pictures has its samples mirrored in each pixel, which shows at edges and on rough
  // surfaces.
  int different = 0;
  for (int y = 0; y < view.h; ++y) {
    for (int x = 0; x < view.w; ++x) {
      const int apart = difference(picture.at({x + kCoveredWidth, y}), shown.at({x, y}));
      EXPECT_LE(apart, 100) << x << ", " << y;
      different += apart > 0 ? 1 : 0;
    }
  }
  EXPECT_LT(different, view.w * view.h / 50);
}

TEST_F(Batch, SmallPictureIsFullAndLooksLikeALargeOne) {
  const std::string use =
      "'" MORVANE_SAMPLES "/panel.res' --zoom fit --no-key --no-axes --picture ";
  EXPECT_EQ(run(use + "small.png --size 256x256").status, 0);
  EXPECT_EQ(run(use + "large.png --size 1024x1024").status, 0);
  const std::string cut = outputOf("convert '" + folder_.file("small.png") +
                                   "' -fuzz 5% -trim -format '%[fx:w>225&&h>225]' info:");
  EXPECT_EQ(cut, "1") << "fills the picture";
  const std::string apart =
      outputOf("convert '" + folder_.file("small.png") + "' '(' '" + folder_.file("large.png") +
               "' -resize 25% ')' -compose difference -composite -format '%[fx:mean]' info:");
  EXPECT_LT(leadingNumber(apart), 0.03);
}

TEST_F(Batch, WritesForEveryFileItCanAndNamesTheOthers) {
  std::filesystem::copy_file(golden::measurement("float_sum"), folder_.file("good.res"));
  std::filesystem::copy_file(golden::measurement("flat"), folder_.file("flat.res"));
  std::filesystem::rename(brokenFile(folder_), folder_.file("broken.res"));
  std::ofstream(folder_.file("empty.res")).close();
  std::filesystem::create_directory(folder_.file("folder.png"));
  Outcome outcome =
      run("good.res none.res empty.res . broken.res flat.res --picture '{name}.png' "
          "--report '{name}.pdf' --low-pass 0.1 --view iso --size 200x150");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, testing::ContainsRegex("^none.res: No such file[^\n]*\n"
                                                     "empty.res: it holds no heights\n"
                                                     ".: Is a directory\n"
                                                     "broken.res: it holds [^\n]*\n$"));
  for (const char* name : {"good.png", "good.pdf", "flat.png", "flat.pdf"}) {
    EXPECT_TRUE(exists(name)) << name;
  }
  EXPECT_FALSE(exists("broken.png"));
  outputOf("qpdf --check '" + folder_.file("good.pdf") + "'");

  outcome = run("good.res --picture good.png");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("good.png: exists"));
  EXPECT_EQ(
      run("good.res --picture good.png --size 100x80 --force --colours grey --range 1,99.5").status,
      0);
  const Image grey = pictureIn("good.png");
  EXPECT_EQ(grey.width(), 100);
  EXPECT_EQ(grey.count([](const Rgb& c) { return chroma(c) > 60; }), 0);
  EXPECT_EQ(run("good.res --picture none/good.png").status, 1);
  outcome = run("good.res --picture folder.png --force");
  EXPECT_THAT(outcome.errors, HasSubstr("folder.png: Is a directory"));
  EXPECT_EQ(run("good.res --picture - >out").status, 0);
  EXPECT_EQ(pictureIn("out").width(), 1125);
}

TEST_F(Batch, WritesNumbersAndTheSectionInThePicture) {
  std::filesystem::copy_file(golden::measurement("float_sum"), folder_.file("a.res"));
  std::filesystem::copy_file(golden::measurement("v3_reflective"), folder_.file("b.res"));
  const std::string section = " --section s.csv --from 0.1,0.1 --to 2,1 --picture s.png";
  const Outcome outcome = run("a.res --info --heights a.gsf" + section + " >info");
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_THAT(contentOf(folder_.file("info")), HasSubstr("\"width\": 200"));
  EXPECT_THAT(contentOf(folder_.file("a.gsf")), testing::StartsWith("Gwyddion Simple Field"));
  EXPECT_THAT(contentOf(folder_.file("s.csv")), testing::StartsWith("x_mm,y_mm,distance_mm"));
  const auto isCurve = [](const Rgb& c) { return c.b > c.r + 70 && c.b > c.g + 40; };
  EXPECT_GT(pictureIn("s.png").part({150, 540, 950, 180}).count(isCurve), 200) << "the plot";
  EXPECT_EQ(run("a.res b.res none.res --results r.csv --semicolon").status, 1);
  EXPECT_THAT(contentOf(folder_.file("r.csv")),
              testing::ContainsRegex("^file;part;[^\n]*\na.res;[^\n]*\nb.res;[^\n]*\n$"));
  for (const char* options :
       {"a.res --section s2.csv --from 0,0 --to 500,1",
        "a.res --section s2.csv --from 1,1 --to 1,1", "a.res --picture s2.png --bitmap a.res",
        "a.res --picture s2.png --low-pass 500", "a.res --info >/dev/full", "a.res --info >&-",
        "--help >/dev/full", "none.res --info --results s2.csv >info"}) {
    EXPECT_EQ(run(options).status, 1) << options;
  }
  EXPECT_EQ(run("b.res --heights ./b.res --force").status, 2);
  EXPECT_EQ(contentOf(folder_.file("info")) + contentOf(folder_.file("s2.csv")), "");
  EXPECT_EQ(run("--scale 2 none.res a.res --limits -1,1 --info >info").status, 1);
  EXPECT_THAT(contentOf(folder_.file("info")), testing::StartsWith("[{\n")) << "of several files";
}

TEST_F(Batch, ShowsItsProgressOnATerminalOnly) {
  std::filesystem::copy_file(golden::measurement("flat"), folder_.file("a.res"));
  EXPECT_EQ(run("a.res none.res --info >info").errors, "none.res: No such file or directory\n");
  if (std::system("script -qec true /dev/null </dev/null >/dev/null 2>&1") != 0) {
    GTEST_SKIP() << "no pseudo-terminals here";
  }
  const std::string use = MORVANE_PROGRAM " a.res none.res a.res --info";
  const std::string seen = outputOf("cd '" + folder_.path().string() + "' && script -qec '" + use +
                                    "' /dev/null </dev/null | head -n 2");
  const auto wiped = [](std::size_t columns) { return "\r" + std::string(columns, ' ') + "\r"; };
  EXPECT_THAT(seen, testing::StartsWith("1 of 3 a.res" + wiped(12) + "2 of 3 none.res" + wiped(15) +
                                        "none.res: No such file or directory\r\n3 of 3 a.res" +
                                        wiped(12) + "[{"));
}

TEST_F(Batch, TellsItsVersionAndItsOptions) {
  EXPECT_EQ(run("--version >version").status, 0);
  EXPECT_EQ(contentOf(folder_.file("version")), "morvane-reader " MORVANE_VERSION "\n");
  EXPECT_EQ(run("--help >help").status, 0);
  std::istringstream help(contentOf(folder_.file("help")));
  for (std::string line; std::getline(help, line);) EXPECT_LE(line.size(), 80U) << line;
}

TEST_F(Batch, BashCompletesOptionsChoicesAndFiles) {
  for (const char* name : {"a b.res", "c.RES", "d.bmp"}) std::ofstream(folder_.file(name)).close();
  // The words of a command line, and the possible completions of the last one.
  for (const auto& [words, completions] : {std::pair{"--vi", "--view\n"},
                                           {"--view ''", "top\nfront\nside\niso\n"},
                                           {"--view = s", "side\n"},
                                           {"--view =", "top\nfront\nside\niso\n"},
                                           {"--info ''", "a b.res\nc.RES\n"},
                                           {"--bitmap ''", "d.bmp\n"},
                                           {"--report d", "d.bmp\n"},
                                           {"--limits ''", "\n"}}) {
    const std::string script =
        ". " MORVANE_COMPLETION "; cd \"" + folder_.path().string() +
        "\"; COMP_WORDS=(" MORVANE_PROGRAM " " + words +
        "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _morvane_reader \"${COMP_WORDS[0]}\" "
        "\"${COMP_WORDS[-1]}\" \"${COMP_WORDS[-2]}\"; printf \"%s\\n\" \"${COMPREPLY[@]}\"";
    std::ofstream(folder_.file("script")) << script;
    EXPECT_EQ(outputOf("bash '" + folder_.file("script") + "'"), completions) << words;
  }
}

TEST_F(Batch, RefusesWrongUsageAndNamesWhatIsWrong) {
  struct Case {
    const char* options;
    const char* named;
  };
  for (const auto& [options, named] :
       {Case{"--report", "--report"},
        {"a.res --bad", "--bad"},
        {"--picture a.png", "FILE"},
        {"a.res --picture a.gif", "a.gif"},
        {"a.res --report a.png", ".pdf"},
        {"a.res b.res --report a.pdf", "{name}"},
        {"a.res b/a.res --report {name}.pdf", "b/a.res"},
        {"a.res --picture a.png --view up", "up"},
        {"a.res --picture a.png --colours red", "viridis"},
        {"a.res --picture a.png --range 99,1", "--range"},
        {"a.res --picture a.png --range 1,99 --limits 1,2", "--limits"},
        {"a.res --picture a.png --size 5x5", "5x5"},
        {"a.res --picture a.png --limits 3,1", "--limits"},
        {"a.res --picture a.png --limits 3,x", "3,x"},
        {"a.res --picture a.png --limits 3,4,5", "3,4,5"},
        {"a.res --picture a.png --low-pass nan", "--low-pass"},
        {"a.res --picture a.png --band-pass 1", "--band-pass"},
        {"a.res --picture a.png --low-pass 1 --high-pass 1", "--high-pass"},
        {"a.res --picture a.png --zoom 0", "--zoom"},
        {"a.res --heights a.txt", ".sdf"},
        {"a.res --section s.csv --from 1,1", "--to"},
        {"a.res --info --results s.csv --section s.csv --from 1,1 --to 2,2", "--section"},
        {"a.res --report a.pdf --report b.pdf", "twice"},
        {"a.res --report - --picture -", "standard output"}}) {
    const Outcome outcome = run(options);
    EXPECT_EQ(outcome.status, 2) << options;
    EXPECT_THAT(outcome.errors, HasSubstr(named)) << options;
  }
}

}  // namespace
}  // namespace morvane::gui
