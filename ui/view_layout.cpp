#include "ui/view_layout.h"

#include <FL/Fl_Button.H>
#include <FL/Fl_Double_Window.H>

#include "base/debug_log.h"
#include "ui/app_state.h"
#include "ui/gl_window.h"
#include "ui/readout.h"
#include "ui/results_panel.h"
#include "ui/status_line.h"
#include "ui/window_geometry.h"

namespace morvane {
namespace {

void place(Fl_Widget& widget, const PixelArea& area) {
  widget.resize(area.x, area.y, area.w, area.h);
}

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
  const WindowLayout layout =
      windowLayout(app.mainWindow->w(), app.mainWindow->h(), app.resultsPanel->visible() != 0,
                   app.glView->tools().profileMode());
  place(*app.glView, layout.view);
  place(app.glView->profiler(), layout.profile);
  place(*app.resultsPanel, layout.results);
  place(*app.controlsPanel, layout.controls);
  place(*app.consolePanel, layout.console);
  app.statusLine->place();
  app.readout->update();
  // FLTK's resizing must start from these places.
  app.mainWindow->init_sizes();
  app.mainWindow->redraw();
}

void toggleDetails() {
  const AppState& app = appState();
  const bool show = app.resultsPanel->visible() == 0;
  show ? app.resultsPanel->show() : app.resultsPanel->hide();
  layoutViews();
  if (show && !app.glView->tools().profileMode()) {
    logGeometry("OPGL WIDTH: ", "OPGL Height: ", "OPGL X: ", "OPGL y: ", *app.glView);
    logGeometry("WINDOW WIDTH: ", "WINDOW Height: ", "WINDOW x: ", "WINDOW y: ", *app.mainWindow);
    logGeometry(
        "Details Width: ", "Details Height: ", "Details X: ", "Details Y: ", *app.resultsPanel);
  }
}

void toggleResultsColumn() {
  const AppState& app = appState();
  if (!app.glView->surface().modelLoaded()) return;
  if (app.resultsPanel->visible() == 0) {
    app.resultsPanel->showResults();
    app.detailsButton->show();
  }
  toggleDetails();
}

}  // namespace morvane
