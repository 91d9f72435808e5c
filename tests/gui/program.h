// The real program under test: started in a home of its own, read through its output, worked
// through its windows.
//
//   Program program({"plate.res"});
//   program.awaitLine(kFrameDrawn);
//   program.mainWindow().key({"ctrl+o"});
//   program.answerChooser("other.res");
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/gui/process.h"
#include "tests/gui/window.h"
#include "tests/support/temporary_folder.h"

namespace morvane::gui {

/// The last line of every full frame. The picture follows it: wait for the picture itself.
inline constexpr std::string_view kFrameDrawn = "Drawing Time for HM Key: ";

/// What a start may have otherwise than usual.
struct Start {
  std::string program = MORVANE_PROGRAM;      ///< as it stands in the program's own arguments
  std::vector<std::string> environment = {};  ///< "NAME=value"
  std::string folder = ".";                   ///< working folder
  std::string display = {};                   ///< empty: $DISPLAY
};

/// When a test has failed by the time this goes, the screen is left as SUITE.TEST.png in the
/// test's folder and what the program printed goes to standard error.
class Program {
 public:
  explicit Program(const std::vector<std::string>& arguments = {}, const Start& start = {});
  ~Program();

  /// See Process.
  std::string awaitLine(std::string_view text, Stream stream = Stream::kOutput) {
    return process_.awaitLine(text, stream);
  }
  [[nodiscard]] std::vector<std::string> lines(Stream stream = Stream::kOutput) const {
    return process_.lines(stream);
  }
  int awaitExit() { return process_.awaitExit(); }

  [[nodiscard]] pid_t id() const { return process_.id(); }

  /// The folder that the program takes as the user's home and profile.
  [[nodiscard]] std::string home() const { return home_.path(); }

  /// The program's windows on the screen now.
  [[nodiscard]] std::vector<Window> windows() const { return screen_.windowsOf(process_.id()); }
  /// Waits for a window of this title.
  [[nodiscard]] Window window(const std::string& title) const;
  [[nodiscard]] Window mainWindow() const { return window("Morvane Reader Software"); }
  /// Waits for a message box.
  [[nodiscard]] Window alert() const { return window("Morvane Reader"); }

  /// Waits for the file chooser, types `path` into it and confirms, or leaves it with Escape when
  /// `path` is empty. Returns when it has gone.
  void answerChooser(const std::string& path, const std::string& title = "Open measurement") const;

  /// Memory the program holds now.
  [[nodiscard]] long residentKilobytes() const;

  /// False once it has ended.
  [[nodiscard]] bool running() { return process_.running(); }

  /// Quits with Ctrl+Q and returns the exit status.
  int quit();

 private:
  TemporaryFolder home_;
  Screen screen_;
  Process process_;
};

}  // namespace morvane::gui
