// The program-wide record: what callbacks must be able to reach.
#pragma once

#include <string>

class Fl_Box;
class Fl_Double_Window;
class Fl_Menu_Bar;
class Fl_Text_Buffer;
class Fl_Window;

namespace morvane {

class GLWindow;

/// One instance for the whole run. The pointers do not own: widgets belong to the toolkit's tree.
struct AppState {
  std::string exeFolder;    ///< folder of the executable, without a trailing separator
  std::string startupFile;  ///< measurement named on the command line; empty without one

  Fl_Double_Window* mainWindow = nullptr;
  Fl_Menu_Bar* menuBar = nullptr;
  GLWindow* glView = nullptr;
  Fl_Box* logoBox = nullptr;
  Fl_Window* controlsPanel = nullptr;
  Fl_Window* consolePanel = nullptr;
  Fl_Text_Buffer* consoleText = nullptr;
};

/// The record itself.
AppState& appState();

}  // namespace morvane
