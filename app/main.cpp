// Start-up: records where the program runs from, builds and shows the windows, opens a measurement
// named on the command line, and hands control to the event loop.
#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "base/debug_log.h"
#include "base/paths.h"
#include "base/process.h"
#include "batch/batch.h"
#include "ui/app_state.h"
#include "ui/file_actions.h"
#include "ui/gl_warm_up.h"
#include "ui/main_window.h"

namespace {

/// FLTK's fatal error handler. The only fatal error of this program is that the display cannot be
/// opened.
void stop(const char* format, ...) {
  std::va_list values;
  va_start(values, format);
  std::vfprintf(stderr, format, values);
  va_end(values);
  std::fputs("\nThe program needs a display: start it from a desktop, or set DISPLAY to one.\n",
             stderr);
  std::exit(1);
}

}  // namespace

int main(int argc, char** argv) {
  using namespace morvane;
  const std::vector<std::string> words = commandLine(argc, argv);
  openStandardStreams(hasOptions(words));
  Fl::fatal = stop;
  const std::string program = words.empty() ? "" : words[0];
  if (const std::optional<int> status = runBatch(words, folderOf(program))) return *status;

  AppState& app = appState();
  logStream() << "Program executed from directory: " << program << '\n';
  app.exeFolder = folderOf(program);

  logStream() << "Setting-up display variables...\n";
  buildMainWindow();
  logStream() << "done!\n";

  Fl::lock();  // Kept: no other thread uses FLTK.

  logStream() << "Display MRV3 GUI...\n";
  app.controlsPanel->show();
  app.mainWindow->show();
  logStream() << "done!\n";

  if (words.size() > 1) {
    logStream() << "ARGV0:" << program << '\n' << "ARGV: " << words[1] << '\n';
    app.startupFile = words[1];
    // Messages about reading the file need a visible window.
    app.mainWindow->wait_for_expose();
    openMeasurement(nullptr, kOpenStartupFile);
  } else {
    Fl::add_timeout(
        0.0, [](void* window) { warmUpGl(*static_cast<Fl_Group*>(window)); },
        static_cast<Fl_Group*>(app.mainWindow));
  }
  return Fl::run();
}
