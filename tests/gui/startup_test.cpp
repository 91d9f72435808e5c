// From the command line, the menu and the Open button to an open measurement.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <csignal>
#include <filesystem>
#include <functional>
#include <initializer_list>

#include "tests/gui/program.h"
#include "tests/support/golden.h"
#include "tools/measurement_builder.h"

namespace morvane::gui {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

const std::string kProgram = MORVANE_PROGRAM;
const std::string kPanel = golden::measurement("panel");
const std::string kFlat = golden::measurement("flat");

/// Expects the program to print these lines in this order; other lines may be between them.
void expectInOrder(Program& program, std::initializer_list<std::string> lines) {
  for (const std::string& line : lines) EXPECT_EQ(program.awaitLine(line), line);
}

TEST(StartUp, WithoutAFileSaysItsStepsAndWaits) {
  Program program;
  expectInOrder(program,
                {"Program executed from directory: " + kProgram, "Setting-up display variables...",
                 "Hello Vertices", "done!", "Display MRV3 GUI...", "done!"});
  EXPECT_EQ(program.quit(), 0);
  EXPECT_THAT(program.lines(), Not(Contains(HasSubstr("ARGV"))));
  EXPECT_THAT(program.lines(), Not(Contains("Open Button Clicked")));
}

TEST(StartUp, OpensTheFirstArgumentAsADesktopHandsItOverAndIgnoresTheRest) {
  const TemporaryFolder folder;
  const std::string path = folder.file("Tür links 1.res");
  std::filesystem::create_symlink(kPanel, path);
  const std::string link = "file://" + folder.file("T%C3%BCr%20links%201.res");
  Program program({link, "second.res"});
  expectInOrder(program,
                {"Display MRV3 GUI...", "done!", "ARGV0:" + kProgram, "ARGV: " + link,
                 "Open Button Clicked", "Copying Filename",
                 "(ChooseFile) - Filename to open: " + path, ">>(resFile) -- File updated: " + path,
                 "Updating Res File...", "Updating Profile Res File...", "Updating Autoscaling...",
                 "GENERATING BUFFERS......", "Compiling shader : ModelVS", "Linking program",
                 "Compiling shader : KeyFS", "Linking program"});
  for (const char* step : {"Buffer Generation Time: ", "Model Binding Time: ", "Drawing Time: "}) {
    EXPECT_THAT(program.awaitLine(step), testing::EndsWith(" milliseconds"));
  }
  program.awaitLine(kFrameDrawn);
  EXPECT_EQ(program.quit(), 0);
  EXPECT_THAT(program.lines(), Not(Contains(HasSubstr("second.res"))));
}

TEST(StartUp, FindsItsResourcesHoweverItIsCalled) {
  for (const std::string name : {"./morvane-reader", "resources/../morvane-reader"}) {
    const std::string folder = std::filesystem::path(kProgram).parent_path();
    Program program({}, {.program = name, .folder = folder});
    program.mainWindow().awaitPicture("the Open button's icon", [](const Image& picture) {
      const auto [x, y] = middleOf(inWindow(control::kOpen));
      return picture.part({x - 30, y - 25, 60, 50}).count([](const Rgb& c) {
        return c != kBlack;
      }) > 50;
    });
    EXPECT_EQ(program.lines().at(0), "Program executed from directory: " + name);
  }
}

TEST(StartUp, NeedsADisplayAndNothingElse) {
  Process blind({"env", "-u", "DISPLAY", MORVANE_PROGRAM});
  blind.awaitLine("The program needs a display", Stream::kErrors);
  EXPECT_EQ(blind.awaitExit(), 1);

  const TemporaryFolder folder;
  std::filesystem::copy_file(MORVANE_PROGRAM, folder.file("alone"));
  Program withoutResources({}, Start{.program = folder.file("alone")});
  withoutResources.awaitLine("Display MRV3 GUI...");
  EXPECT_EQ(withoutResources.quit(), 0);
}

TEST(StartUp, WithClosedStandardStreamsOpensAndWorks) {
  Program program({"-c", "exec \"$@\" <&- >&- 2>&-", "sh", MORVANE_PROGRAM, kPanel},
                  Start{.program = "sh"});
  program.mainWindow().awaitPicture("the surface", [](const Image& picture) {
    return chroma(picture.at(middleOf(viewOf(picture)))) > 60;
  });
  for (const char* stream : {"0", "1", "2"}) {
    const std::string link = "/proc/" + std::to_string(program.id()) + "/fd/" + stream;
    EXPECT_EQ(std::filesystem::read_symlink(link), "/dev/null");
  }
  EXPECT_EQ(program.quit(), 0);
}

TEST(StartUp, AReaderOfTheLogNeitherBlocksNorEndsTheProgram) {
  const TemporaryFolder folder;
  const std::string path = folder.file("log");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  const int reader = open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
  std::array<char, PIPE_BUF> piece{};
  while (write(reader, piece.data(), piece.size()) > 0) continue;
  Program program({"-c", "exec \"$@\" >" + path, "sh", MORVANE_PROGRAM, kPanel},
                  Start{.program = "sh"});
  const Window window = program.mainWindow();
  const Point centre = middleOf(viewOf(program.awaitSurface()));

  std::string log;
  const auto readOn = [&] {
    ssize_t got = 0;
    while ((got = read(reader, piece.data(), piece.size())) > 0) {
      log.append(piece.data(), static_cast<std::size_t>(got));
    }
    return log.find("SCALE: ") != std::string::npos;
  };
  EXPECT_FALSE(readOn());
  window.wheel(centre, 1);
  EXPECT_TRUE(eventually(readOn));
  EXPECT_LT(log.find("(log) -- lines dropped: "), log.find("SCALE: "));

  close(reader);
  window.wheel(centre, 1);
  EXPECT_EQ(program.quit(), 0);
}

TEST(Open, TakesWhatIsDroppedOnAnyPartOfTheWindow) {
  Program program({kPanel});
  program.awaitLine(kFrameDrawn);
  const Window main = program.mainWindow();
  for (const Point part : {Point{700, 400}, Point{77, 700}, Point{700, 12}}) {
    EXPECT_TRUE(main.drop("file://" + kFlat + "\r\nfile://" + kPanel + "\r\n", part));
    program.awaitLine(">>(resFile) -- File updated: " + kFlat);
    program.awaitLine(kFrameDrawn);
  }
  main.close();
  const Window question = program.window("Quit application?");
  EXPECT_FALSE(main.drop("file://" + kPanel, {700, 400}));
  EXPECT_TRUE(question.shown());
}

/// Whether there is a status line over the empty view.
bool saysSomething(const Image& picture) {
  return statusOf(picture).count([](const Rgb& c) { return c != kBlack; }) > 100;
}

TEST(Open, IsAnnouncedBeforeItBegins) {
  // A small surface: its first frame is whole.
  Program program({golden::measurement("float_sum")});
  program.awaitLine(">>(resFile) -- File updated");
  ASSERT_EQ(kill(program.id(), SIGSTOP), 0);
  EXPECT_TRUE(saysSomething(program.mainWindow().capture()));
  ASSERT_EQ(kill(program.id(), SIGCONT), 0);
  (void)program.awaitSurface();
  const auto isFrame = [](const std::string& line) { return line.starts_with(kFrameDrawn); };
  EXPECT_EQ(std::ranges::count_if(program.lines(), isFrame), 1) << "the status line costs no frame";
}

TEST(Open, AMissingFileDoesNotStopTheProgram) {
  Program program({"nowhere.res"});
  program.awaitLine("(ChooseFile) - Filename to open: nowhere.res");
  program.mainWindow().awaitPicture("what is wrong", saysSomething);
  program.mainWindow().awaitPicture("the logo alone", std::not_fn(saysSomething));
  // A modal dialog would take the key.
  EXPECT_EQ(program.quit(), 0);
  EXPECT_THAT(program.lines(), Not(Contains("Updating Res File...")));
}

TEST(Open, WhatCannotBeOpenedLeavesThePictureAsItWasAndTheNextOneOpens) {
  const TemporaryFolder folder;
  Program program({brokenFile(folder)});
  program.answerAlert();
  EXPECT_THAT(program.lines(), Not(Contains("Updating Res File...")));
  program.open(kPanel);
  expectInOrder(program, {"(ChooseFile) - Filename to open: " + kPanel, "Binding Model Data..."});
  const Window main = program.mainWindow();
  const Image before = program.awaitSurface();
  const auto asBefore = [&](const Image& picture) {
    return picture.part(viewOf(picture)) == before.part(viewOf(before));
  };

  program.open("");
  program.awaitLine("(ChooseFile) - Filename to open: ");
  main.awaitPicture("the same after a cancelled chooser", asBefore);

  program.press(control::kOpen);
  program.answerChooser(brokenFile(folder));
  const Window alert = program.alert();
  alert.close();
  alert.awaitGone();
  main.awaitPicture("the same after a broken file", asBefore);

  // New frames still show the open measurement.
  main.resize(1400, 900);
  (void)program.awaitSurface();
  main.resize(before.width(), before.height());
  main.awaitPicture("the same after new frames", asBefore);
  EXPECT_EQ(program.quit(), 0);
}

// Sanitizers reserve terabytes of address space, so the program could not start under this limit.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST(Open, WhatMemoryCannotHoldIsShownWithFewerPoints) {
  const TemporaryFolder folder;
  const std::string large = folder.file("large.res");
  constexpr std::int32_t kSide = 3000;
  MeasurementContent content;
  content.width = content.height = kSide;
  writeBytes(large, encodeMeasurement(content));
  std::filesystem::resize_file(large, 256 + std::uintmax_t{8} * kSide * kSide);
  Program program({"-c", "ulimit -v 2000000 && exec \"$@\"", "sh", MORVANE_PROGRAM, large},
                  Start{.program = "sh"});
  (void)program.awaitWhole("a grey surface and a short line below the name", [](const Image& p) {
    const auto isText = [](const Rgb& c) { return c.r < 120; };
    // "shown at every 2nd point". In a coarse frame " until all are drawn" follows.
    constexpr Area kLine{165, 58, 175, 18};
    constexpr Area kBeyond{345, 58, 150, 18};
    return difference(p.at({300, 300}), {190, 190, 190}) < 20 &&
           p.part(kLine).count(isText) > 150 && p.part(kBeyond).count(isText) == 0;
  });
  program.open(kPanel);
  (void)program.awaitSurface();
  EXPECT_EQ(program.quit(), 0);
}
#endif

}  // namespace
}  // namespace morvane::gui
