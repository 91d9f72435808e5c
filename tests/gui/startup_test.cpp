// The road from the command line, the menu and the Open button to a measurement on show.
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
#include <fstream>
#include <functional>
#include <initializer_list>
#include <span>

#include "tests/gui/program.h"
#include "tests/support/golden.h"
#include "tools/measurement_builder.h"

namespace morvane::gui {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

const std::string kProgram = MORVANE_PROGRAM;
constexpr Point kOpenButton{77, 140};

std::string panel() { return golden::file("panel/measurement.res"); }

/// A measurement cut short behind its header.
std::string brokenFile(const TemporaryFolder& folder) {
  std::string path = folder.file("broken.res");
  std::ofstream(path, std::ios::binary) << contentOf(panel()).substr(0, 300);
  return path;
}

/// Expects the program to print these lines in this order; others may stand between.
void expectInOrder(Program& program, std::initializer_list<std::string> lines) {
  for (const std::string& line : lines) EXPECT_EQ(program.awaitLine(line), line);
}

std::string joined(std::span<const std::string> lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

bool surfaceShown(const Image& picture) {
  return chroma(picture.at({picture.width() / 2 + 75, picture.height() / 2 + 12})) > 60;
}

TEST(StartUp, WithoutAFileSaysItsStepsAndWaits) {
  Program program;
  expectInOrder(program,
                {"Program executed from directory: " + kProgram, "Setting-up display variables...",
                 "done!", "Display MRV3 GUI...", "done!"});
  EXPECT_EQ(program.quit(), 0);
  EXPECT_THAT(program.lines(), Not(Contains(HasSubstr("ARGV"))));
  EXPECT_THAT(program.lines(), Not(Contains("Open Button Clicked")));
}

TEST(StartUp, OpensTheFirstArgumentAsADesktopHandsItOverAndIgnoresTheRest) {
  const TemporaryFolder folder;
  const std::string path = folder.file("Tür links 1.res");
  std::filesystem::create_symlink(panel(), path);
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

class CalledBy : public testing::TestWithParam<std::string> {};

TEST_P(CalledBy, FindsItsResources) {
  const std::string folder = std::filesystem::path(kProgram).parent_path();
  Program program({}, {.program = GetParam(), .folder = folder});
  program.mainWindow().awaitPicture("the Open button's icon", [](const Image& picture) {
    const Image inside = picture.part({kOpenButton.x - 30, kOpenButton.y - 25, 60, 50});
    return inside.count([](const Rgb& colour) { return colour != kBlack; }) > 50;
  });
  EXPECT_EQ(program.lines().at(0), "Program executed from directory: " + GetParam());
}

INSTANTIATE_TEST_SUITE_P(Path, CalledBy,
                         testing::Values("./morvane-reader", "resources/../morvane-reader"));

TEST(StartUp, AnswersOptionsWithoutADisplay) {
  const auto run = [](const std::string& option, Stream stream) {
    Process program({"env", "-u", "DISPLAY", MORVANE_PROGRAM, option});
    const int status = program.awaitExit();
    return std::to_string(status) + ": " + joined(program.lines(stream));
  };
  EXPECT_EQ(run("--version", Stream::kOutput), "0: morvane-reader " MORVANE_VERSION "\n");
  EXPECT_THAT(run("--help", Stream::kOutput), testing::StartsWith("0: usage: morvane-reader"));
  EXPECT_THAT(run("--panel.res", Stream::kErrors),
              testing::StartsWith("2: morvane-reader: unknown option --panel.res"));
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
  Program program({"-c", "exec \"$@\" <&- >&- 2>&-", "sh", MORVANE_PROGRAM, panel()},
                  Start{.program = "sh"});
  program.mainWindow().awaitPicture("the surface", surfaceShown);
  for (const char* stream : {"0", "1", "2"}) {
    const std::string link = "/proc/" + std::to_string(program.id()) + "/fd/" + stream;
    EXPECT_EQ(std::filesystem::read_symlink(link), "/dev/null");
  }
  EXPECT_EQ(program.quit(), 0);
}

TEST(StartUp, WhoReadsTheLogNeitherHoldsNorEndsTheProgram) {
  const TemporaryFolder folder;
  const std::string path = folder.file("log");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  const int reader = open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
  std::array<char, PIPE_BUF> piece{};
  while (write(reader, piece.data(), piece.size()) > 0) continue;
  Program program({"-c", "exec \"$@\" >" + path, "sh", MORVANE_PROGRAM, panel()},
                  Start{.program = "sh"});
  const Window window = program.mainWindow();
  const Image picture = window.awaitPicture("the surface", surfaceShown);
  const Point centre{picture.width() / 2 + 75, picture.height() / 2 + 12};

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
  Program program({panel()});
  program.awaitLine(kFrameDrawn);
  const Window main = program.mainWindow();
  const std::string flat = golden::file("flat/measurement.res");
  for (const Point part : {Point{700, 400}, Point{77, 700}, Point{700, 12}}) {
    EXPECT_TRUE(main.drop("file://" + flat + "\r\nfile://" + panel() + "\r\n", part));
    program.awaitLine(">>(resFile) -- File updated: " + flat);
    program.awaitLine(kFrameDrawn);
  }
  main.close();
  const Window question = program.window("Quit application?");
  EXPECT_FALSE(main.drop("file://" + panel(), {700, 400}));
  EXPECT_TRUE(question.shown());
}

/// Whether the line at the lower edge of the view, over the empty one, says anything.
bool saysSomething(const Image& picture) {
  return picture.part({500, 740, 430, 55}).count([](const Rgb& c) { return c != kBlack; }) > 100;
}

TEST(Open, IsSaidBeforeItBegins) {
  Program program({panel()});
  program.awaitLine(">>(resFile) -- File updated");
  ASSERT_EQ(kill(program.id(), SIGSTOP), 0);
  EXPECT_TRUE(saysSomething(program.mainWindow().capture()));
  ASSERT_EQ(kill(program.id(), SIGCONT), 0);
  program.awaitLine(kFrameDrawn);
  const auto sky = [](const Image& picture) {
    const Image edge = picture.part({500, 740, 430, 55});
    return edge.count([&](const Rgb& c) {
      return c == edge.at({0, 0}) && c != kBlack;
    }) == 430 * 55;
  };
  program.mainWindow().awaitPicture("the view alone", sky);
  const auto frames = [](const std::vector<std::string>& lines) {
    return std::count_if(lines.begin(), lines.end(),
                         [](const std::string& line) { return line.starts_with(kFrameDrawn); });
  };
  EXPECT_EQ(frames(program.lines()), 1) << "what comes and goes over the view costs no frame";
}

TEST(Open, AMissingFileIsNoReasonToStop) {
  Program program({"nowhere.res"});
  program.awaitLine("(ChooseFile) - Filename to open: nowhere.res");
  program.mainWindow().awaitPicture("what is wrong", saysSomething);
  program.mainWindow().awaitPicture("the logo alone", std::not_fn(saysSomething));
  // An alert would keep the key from the main window.
  EXPECT_EQ(program.quit(), 0);
  EXPECT_THAT(program.lines(), Not(Contains("Updating Res File...")));
}

TEST(Open, ABrokenFileIsToldAndTheNextOneOpens) {
  const TemporaryFolder folder;
  Program program({brokenFile(folder)});
  const Window alert = program.alert();
  alert.key({"Return"});
  alert.awaitGone();
  EXPECT_THAT(program.lines(), Not(Contains("Updating Res File...")));

  program.mainWindow().key({"ctrl+o"});
  program.answerChooser(panel());
  expectInOrder(program, {"(ChooseFile) - Filename to open: " + panel(), "Binding Model Data..."});
  program.awaitLine(kFrameDrawn);

  const std::string flat = golden::file("flat/measurement.res");
  program.mainWindow().click(kOpenButton);
  program.answerChooser(flat);
  expectInOrder(program, {"(ChooseFile) - Filename to open: " + flat, "Binding Model Data..."});
  program.awaitLine(kFrameDrawn);
  EXPECT_EQ(program.quit(), 0);
}

TEST(Open, WhatCannotBeOpenedLeavesThePictureAsItWas) {
  const TemporaryFolder folder;
  Program program({panel()});
  program.awaitLine(kFrameDrawn);
  const Window main = program.mainWindow();
  const auto viewOf = [](const Image& picture) {
    return picture.part({150, 25, picture.width() - 150, picture.height() - 25});
  };
  const Image before = main.awaitPicture("the surface", surfaceShown);
  const auto asBefore = [&](const Image& picture) { return viewOf(picture) == viewOf(before); };

  main.key({"ctrl+o"});
  program.answerChooser("");
  program.awaitLine("(ChooseFile) - Filename to open: ");
  main.awaitPicture("the same after a cancelled chooser", asBefore);

  main.key({"ctrl+o"});
  program.answerChooser(brokenFile(folder));
  const Window alert = program.alert();
  alert.close();
  alert.awaitGone();
  main.awaitPicture("the same after a broken file", asBefore);

  // Frames drawn from now on are still of the measurement on show.
  main.resize(1400, 900);
  main.awaitPicture("the surface in a larger window", surfaceShown);
  main.resize(before.width(), before.height());
  main.awaitPicture("the same after new frames", asBefore);
  EXPECT_EQ(program.quit(), 0);
}

// A sanitizer claims more address space than any limit leaves.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST(Open, WhatMemoryCannotHoldIsTold) {
  const TemporaryFolder folder;
  const std::string large = folder.file("large.res");
  MeasurementContent content;
  writeBytes(large, encodeMeasurement(content));
  constexpr std::int32_t kSide = 5000;
  std::fstream file(large, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(4);
  for (int i = 0; i < 2; ++i) file.write(reinterpret_cast<const char*>(&kSide), sizeof kSide);
  file.close();
  std::filesystem::resize_file(large, 256 + std::uintmax_t{8} * kSide * kSide);

  const std::string kilobytes = "2500000";
  Program program(
      {"-c", "ulimit -v " + kilobytes + " && exec \"$@\"", "sh", MORVANE_PROGRAM, large},
      Start{.program = "sh"});
  const Window alert = program.alert();
  alert.key({"Return"});
  alert.awaitGone();
  EXPECT_THAT(program.lines(), Contains("Binding Model Data...")) << "valid, but too large";
  program.mainWindow().key({"ctrl+o"});
  program.answerChooser(panel());
  program.mainWindow().awaitPicture("the surface", surfaceShown);
  EXPECT_EQ(program.quit(), 0);
}
#endif

}  // namespace
}  // namespace morvane::gui
