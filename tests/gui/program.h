// Starts the real program with its own home folder; tests read its output and use its windows.
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
#include "ui/window_geometry.h"

namespace morvane::gui {

/// The last timing line of every frame, whole or coarse; use awaitWhole for the whole picture.
inline constexpr std::string_view kFrameDrawn = "Drawing Time for HM Key: ";

/// The place in the main window of a place in the control column.
constexpr Area inWindow(const Area& place) {
  return {place.x + kControlsX, place.y + kMenuHeight, place.w, place.h};
}

/// The place of the 3D view in a picture of the main window, without results and profile.
inline Area viewOf(const Image& picture) {
  return windowLayout(picture.width(), picture.height(), false, false).view;
}

/// The part of that view where the status line is.
inline Image statusOf(const Image& picture) {
  const Area view = viewOf(picture);
  return picture.part({middleOf(view).x - 215, view.y + view.h - 60, 430, 55});
}

/// Options of a start.
struct Start {
  std::string program = MORVANE_PROGRAM;      ///< what the program finds as its name
  std::vector<std::string> environment = {};  ///< "NAME=value"
  std::string folder = ".";                   ///< working folder
  std::string display = {};                   ///< empty: $DISPLAY
};

/// Writes a measurement that ends soon after its header into `folder` and returns its path.
std::string brokenFile(const TemporaryFolder& folder);

/// If the test has failed when this is destroyed, a screenshot is saved as SUITE.TEST.png in the
/// test's folder, and the program's output is printed to standard error.
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

  /// The program's home and profile folder.
  [[nodiscard]] std::string home() const { return home_.path(); }

  /// The program's windows on the screen now.
  [[nodiscard]] std::vector<Window> windows() const { return screen_.windowsOf(process_.id()); }
  /// Waits for a window of this title.
  [[nodiscard]] Window window(const std::string& title) const;
  [[nodiscard]] Window mainWindow() const { return window("Morvane Reader Software"); }
  /// Whether the last frame of the view has all points of its surface. Large surfaces are drawn
  /// with fewer points first.
  [[nodiscard]] bool wholeFrameShown() const;
  /// Waits for a picture of the main window with the whole surface.
  [[nodiscard]] Image awaitWhole(const std::string& what,
                                 const std::function<bool(const Image&)>& predicate) const;
  /// Waits for a message box.
  [[nodiscard]] Window alert() const { return window("Morvane Reader"); }
  /// Waits for a message box, presses `key` and waits until it has gone.
  void answerAlert(const std::string& key = "Return") const;
  /// Waits until a surface coloured by its heights is drawn and the status line has gone from the
  /// lower edge of the view. Returns the picture.
  [[nodiscard]] Image awaitSurface() const;

  /// Waits for the file chooser, types `path` into it and confirms, or leaves it with Escape when
  /// `path` is empty. Returns when it has gone.
  void answerChooser(const std::string& path, const std::string& title = "Open measurement") const;
  /// Opens a measurement by Ctrl+O.
  void open(const std::string& path) const;

  /// Presses a control of the column; `place` is one of `control::`.
  void press(const Area& place) const { mainWindow().click(middleOf(inWindow(place))); }
  /// Chooses an entry of the full menu by its labels, e.g. "Tools/Filter Settings". Its title is
  /// opened by Alt and the underlined letter. Returns when the menu is closed.
  void choose(const std::string& entry) const;

  /// The memory that the program holds now.
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
