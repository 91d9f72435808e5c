#include "ui/view_layout.h"

#include <FL/Fl_Button.H>
#include <FL/Fl_Double_Window.H>

#include "base/debug_log.h"
#include "ui/app_state.h"
#include "ui/gl_window.h"
#include "ui/results_panel.h"
#include "ui/status_line.h"

namespace morvane {
namespace {

constexpr int kConsoleX = 135;
constexpr int kConsoleHeight = 150;
constexpr int kConsoleOverhang = 15;  // kept: the strip is wider than the room beside the controls

void logGeometry(const char* width, const char* height, const char* x, const char* y,
                 const Fl_Widget& widget) {
  logStream() << width << widget.w() << '\n'
              << height << widget.h() << '\n'
              << x << widget.x() << '\n'
              << y << widget.y() << '\n';
}

}  // namespace

void layoutViews() {
  const AppState& app = appState();
  const int results = app.resultsPanel->visible() ? kResultsWidth : 0;
  const int profile = app.glView->profileShown ? kProfileHeight : 0;
  const int width = app.mainWindow->w() - kControlsWidth - results;
  const int height = app.mainWindow->h() - kMenuHeight - profile;
  app.glView->resize(kControlsWidth, kMenuHeight, width, height);
  app.glView->profiler().resize(kControlsWidth, app.mainWindow->h() - kProfileHeight, width,
                                kProfileHeight);
  app.resultsPanel->resize(kControlsWidth + width, kMenuHeight, kResultsWidth,
                           app.mainWindow->h() - kMenuHeight);
  app.controlsPanel->resize(2, kMenuHeight, kControlsWidth, app.mainWindow->h() - kMenuHeight);
  app.consolePanel->resize(kConsoleX, app.mainWindow->h() - kConsoleHeight,
                           app.mainWindow->w() - kConsoleX + kConsoleOverhang, kConsoleHeight);
  app.statusLine->place();
  // What was placed by hand is the new starting point of the toolkit's own resizing.
  app.mainWindow->init_sizes();
  app.mainWindow->redraw();
}

void toggleDetails() {
  AppState& app = appState();
  app.detailsShown ? app.resultsPanel->show() : app.resultsPanel->hide();
  layoutViews();
  if (app.detailsShown && !app.glView->profileShown) {
    logGeometry("OPGL WIDTH: ", "OPGL Height: ", "OPGL X: ", "OPGL y: ", *app.glView);
    logGeometry("WINDOW WIDTH: ", "WINDOW Height: ", "WINDOW x: ", "WINDOW y: ", *app.mainWindow);
    logGeometry(
        "Details Width: ", "Details Height: ", "Details X: ", "Details Y: ", *app.resultsPanel);
  }
  app.detailsShown = !app.detailsShown;
}

void toggleResultsColumn() {
  AppState& app = appState();
  if (!app.glView->modelLoaded()) return;
  app.detailsShown = app.resultsPanel->visible() == 0;
  if (app.detailsShown) {
    app.resultsPanel->showResults();
    app.detailsButton->show();
  }
  toggleDetails();
}

}  // namespace morvane
