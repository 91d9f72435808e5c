// The program-wide record: what callbacks need to access.
#pragma once

#include <string>
#include <vector>

class Fl_Box;
class Fl_Button;
class Fl_Double_Window;
class Fl_Float_Input;
class Fl_Menu_Bar;
class Fl_Slider;
class Fl_Text_Buffer;
class Fl_Window;

namespace morvane {

class ConfigManagerWindow;
class FilterWindow;
class GLWindow;
class Readout;
class ResultsPanel;
class StatusLine;

/// There is one instance. Its pointers do not own the widgets; FLTK's widget tree does.
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
  Fl_Window* aboutWindow = nullptr;
  Fl_Window* heatMapDialog = nullptr;
  Fl_Window* lightWindow = nullptr;
  FilterWindow* filterWindow = nullptr;
  ConfigManagerWindow* configManager = nullptr;
  ResultsPanel* resultsPanel = nullptr;
  StatusLine* statusLine = nullptr;
  Readout* readout = nullptr;

  Fl_Button* heatMapButton = nullptr;
  Fl_Slider* scaleSlider = nullptr;
  Fl_Text_Buffer* scaleReadout = nullptr;
  Fl_Float_Input* maximumInput = nullptr;
  Fl_Float_Input* minimumInput = nullptr;
  Fl_Button* cropButton = nullptr;
  Fl_Button* profileButton = nullptr;
  Fl_Button* swapPinsButton = nullptr;
  Fl_Button* profileOffButton = nullptr;
  Fl_Button* detailsButton = nullptr;

  std::vector<std::string> bitmapPaths;  ///< the bitmaps of the "&BMPs" menu, in its order
};

/// The record itself.
AppState& appState();

}  // namespace morvane
