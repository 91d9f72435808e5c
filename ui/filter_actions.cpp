#include "ui/filter_actions.h"

#include "base/debug_log.h"
#include "base/paths.h"
#include "ui/app_state.h"
#include "ui/console.h"
#include "ui/filter_window.h"
#include "ui/gl_window.h"
#include "ui/owned_window.h"
#include "ui/status_line.h"
#include "ui/view_layout.h"
#include "ui/wait_cursor.h"
#include "ui/window_geometry.h"

namespace morvane {
namespace {

void sayTypeIsMissing() {
  appState().filterWindow->showHint("Choose a type: nothing is filtered without one.");
}

/// For a surface that takes long; what is shown stays meanwhile.
void sayFiltering() {
  constexpr std::size_t kSlow = 2'000'000;  // points
  const Measurement& measurement = appState().glView->surface().measurement();
  if (!measurement.grid || measurement.grid->count() < kSlow) return;
  appState().statusLine->hold("Filtering " + fileNameOf(measurement.path) + "…");
}

}  // namespace

void filterShown() {
  const AppState& app = appState();
  const WaitCursor wait;
  ShownSurface& shown = app.glView->surface();
  FilterRun run = runFilter(app.filterWindow->settings(), shown.measurement(), logStream());
  if (run.status == FilterStatus::kNoMemory) {
    tellUser("There is not enough memory to filter this measurement.");
  }
  shown.setFiltered(std::move(run.filtered), std::move(run.words));
  app.mainWindow->redraw();
  const bool odd = app.filterWindow->updateHint();
  if (run.status == FilterStatus::kNoType) {
    sayTypeIsMissing();
  } else if (!odd && !shown.filterEnabled()) {
    app.filterWindow->showHint("Filtering is off: switch it on in the menu to see it.");
  }
}

void applyFilter() {
  sayFiltering();
  filterShown();
}

void toggleFilter() {
  sayFiltering();
  ShownSurface& shown = appState().glView->surface();
  shown.setFilterEnabled(!shown.filterEnabled());
  filterShown();
  // Without a type nothing would change; the window shows what is missing.
  if (shown.filterEnabled() && !typeOf(appState().filterWindow->settings())) {
    showFilterWindow();
    sayTypeIsMissing();
  }
}

void showFilterWindow() {
  constexpr int kMargin = 10;
  FilterWindow& window = *appState().filterWindow;
  // At the lower left of the view, where there is only background.
  const Fl_Window& main = *appState().mainWindow;
  window.placeOnce(main.x() + kControlsWidth + kMargin, main.y() + main.h() - window.h() - kMargin);
  window.updateHint();
  showOwned(window);
}

}  // namespace morvane
