#include "ui/file_actions.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Menu_Bar.H>

#include <iostream>
#include <string>

#include "app/app_state.h"
#include "resfile/file_io.h"
#include "ui/choosers.h"
#include "ui/console.h"
#include "ui/menu.h"
#include "view/gl_window.h"

namespace morvane {
namespace {

/// Shows the wait cursor while it lives.
class WaitCursor {
 public:
  WaitCursor() { appState().mainWindow->cursor(FL_CURSOR_WAIT); }
  ~WaitCursor() { appState().mainWindow->cursor(FL_CURSOR_DEFAULT); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

bool readMeasurement(const std::string& path) {
  const WaitCursor wait;
  resFile& file = appState().glView->file();
  file.update(path);
  return file.isValid();
}

void showOpened() {
  const WaitCursor wait;
  AppState& app = appState();
  app.glView->updateMeasurement();
  app.logoBox->hide();
  rebuildMenu();
  app.menuBar->redraw();
  app.glView->showMeasurement();
}

}  // namespace

void openMeasurement(Fl_Widget* /*widget*/, long mode) {
  std::cout << "Open Button Clicked\n";
  std::string path;
  if (mode == kOpenStartupFile) {
    std::cout << "Copying Filename\n";
    path = appState().startupFile;
  } else {
    path = chooseFileToOpen("*.res");
  }
  std::cout << "(ChooseFile) - Filename to open: " << path << '\n';
  if (!openForReading(path)) {
    appendConsole("File does not exist!");
    return;
  }
  if (!readMeasurement(path)) {
    showAlert("Invalid file");
    return;
  }
  showOpened();
}

}  // namespace morvane
