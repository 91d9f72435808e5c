// Start-up: records where the program runs from, builds and shows the windows, opens a measurement
// named on the command line, and hands control to the event loop.
#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>

#include <cstdio>
#include <iostream>

#include "app/app_state.h"
#include "app/paths.h"
#include "ui/file_actions.h"
#include "ui/main_window.h"
#include "view/gl_warm_up.h"

int main(int argc, char** argv) {
  using namespace morvane;
  // Whoever reads the log through a pipe sees each line when it is written.
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);

  AppState& app = appState();
  const char* program = argc > 0 ? argv[0] : "";
  std::cout << "Program executed from directory: " << program << '\n';
  app.exeFolder = folderOf(program);

  std::cout << "Setting-up display variables...\n";
  buildMainWindow();
  std::cout << "done!\n";

  Fl::lock();

  std::cout << "Display MRV3 GUI...\n";
  app.controlsPanel->show();
  app.mainWindow->show();
  std::cout << "done!\n";

  if (argc > 1) {
    std::cout << "ARGV0:" << program << '\n' << "ARGV: " << argv[1] << '\n';
    app.startupFile = argv[1];
    openMeasurement(nullptr, kOpenStartupFile);
  } else {
    Fl::add_timeout(
        0.0, [](void* window) { warmUpGl(*static_cast<Fl_Group*>(window)); },
        static_cast<Fl_Group*>(app.mainWindow));
  }
  return Fl::run();
}
