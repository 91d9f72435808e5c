#include "ui/file_actions.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Menu_Bar.H>
#include <FL/Fl_Slider.H>
#include <FL/fl_ask.H>

#include <cerrno>
#include <cstring>
#include <string>

#include "base/debug_log.h"
#include "base/file_copy.h"
#include "base/file_io.h"
#include "base/folders.h"
#include "base/paths.h"
#include "base/safe_file.h"
#include "resfile/bitmap_scan.h"
#include "results/layouts.h"
#include "ui/app_state.h"
#include "ui/choosers.h"
#include "ui/console.h"
#include "ui/control_rules.h"
#include "ui/filter_actions.h"
#include "ui/filter_window.h"
#include "ui/gl_window.h"
#include "ui/menu.h"
#include "ui/results_panel.h"
#include "ui/saving.h"
#include "ui/status_line.h"
#include "ui/view_controls.h"
#include "ui/view_layout.h"
#include "ui/wait_cursor.h"

namespace morvane {
namespace {

std::string pathToOpen(long mode) {
  logStream() << "Open Button Clicked\n";
  std::string path;
  if (mode == kOpenStartupFile) {
    logStream() << "Copying Filename\n";
    path = appState().startupFile;
    if (!fileExists(path)) path = pathOfLink(path);
  } else {
    path = chooseFileToOpen({"Open measurement", "*.res", startFolder()});
  }
  logStream() << "(ChooseFile) - Filename to open: " << path << '\n';
  return path;
}

bool readMeasurement(const std::string& path) {
  const WaitCursor wait;
  resFile& file = appState().glView->file();
  file.update(path);
  // If the file vanishes right before the read, the sizes of the previous file remain, which are
  // valid.
  return file.isValid() && file.grid() != nullptr;
}

/// Lists the bitmaps beside the measurement in the menu. Kept: the choice depends on their order.
/// If "captured_white.bmp" comes first, both are marked and the later one is used.
void offerBitmaps(const BitmapFolder& bitmaps) {
  AppState& app = appState();
  ShownSurface& shown = app.glView->surface();
  app.bitmapPaths.clear();
  for (const std::string& name : bitmaps.names) {
    const bool chosen =
        name == "surface_image_f.bmp" || (name == "captured_white.bmp" && !shown.bitmapAvailable());
    addBitmapItem(name, static_cast<long>(app.bitmapPaths.size()), chosen);
    app.bitmapPaths.push_back(bitmaps.folder + "/" + name);
    if (chosen) shown.chooseBitmap(app.bitmapPaths.back());
  }
}

void showSurface() {
  const AppState& app = appState();
  app.menuBar->redraw();
  if (!app.glView->tools().profileMode()) app.profileButton->show();
  app.glView->showNow();
  app.controlsPanel->show();  // in front: its right edge overlaps the view
}

void resetControls() {
  Fl_Slider& slider = *appState().scaleSlider;
  ShownSurface& shown = appState().glView->surface();
  slider.bounds(kSmallestScale, ShownSurface::kSliderSpan * finiteScale(shown.sliderScale()));
  logStream() << "MAX SCALE: " << shown.maxScale() << '\n';
  useAutomaticLimits();
  showMeasured();
  slider.value(finiteScale(shown.sliderScale()));
}

void offerResults() {
  const AppState& app = appState();
  const Measurement& measurement = app.glView->surface().measurement();
  app.resultsPanel->take(measurement);
  if (offersResultsColumn(measurement.header.algorithmType)) {
    app.resultsPanel->showResults();
    app.detailsButton->show();
    return;
  }
  app.detailsButton->hide();
  app.resultsPanel->hide();
  layoutViews();
}

void showOpened() {
  const WaitCursor wait;
  AppState& app = appState();
  ShownSurface& shown = app.glView->surface();
  shown.show(app.glView->file().measurement());
  if (shown.filterEnabled()) {
    filterShown();
  } else {
    app.filterWindow->updateHint();
  }
  app.logoBox->hide();
  const BitmapFolder bitmaps = scanBitmaps(shown.measurement().path, logStream());
  removeAbandoned(bitmaps.folder);
  rebuildMenu();
  offerBitmaps(bitmaps);
  offerResults();
  showSurface();
  resetControls();
  if (app.glView->fitsOnOpen()) app.glView->fitView();
}

}  // namespace

std::string startFolder() {
  const std::string& path = appState().glView->surface().measurement().path;
  return path.empty() ? documentsFolder() : absoluteFolderOf(path);
}

void openMeasurement(Fl_Widget* /*widget*/, long mode) { openFile(pathToOpen(mode)); }

void openFile(const std::string& path) {
  const std::string name = fileNameOf(path);
  StatusLine& line = *appState().statusLine;
  if (!openForReading(path)) {
    const std::string reason = std::strerror(errno);
    appendConsole("File does not exist!");
    if (!path.empty()) line.say(name + ": " + reason);
    return;
  }
  line.hold("Opening " + name + "…");
  if (!readMeasurement(path)) {
    const std::string reason = name + ": " + appState().glView->file().trouble();
    line.hold(reason);
    fl_beep(FL_BEEP_DEFAULT);
    showAlert("Invalid file");
    // The three seconds start after the alert is closed.
    tellUser(reason);
    return;
  }
  showOpened();
  // A visible view removes the line with its first frame.
  if (appState().glView->visible() == 0) line.release();
}

void saveCopy() {
  const std::string folder = savedFilesFolder();
  makeFolder(folder, logStream());
  logStream() << "Updated DIRECTORY IS: " << folder << '\n';
  const std::string name = chooseFileToSave({"Save Copy as", "*.res", folder, "Untitled", true});
  if (name.empty()) {
    logStream() << "Cancelled save\n";
    return;
  }
  const std::string destination = name + ".res";
  const std::string& source = appState().glView->surface().measurement().path;
  logStream() << "filename to save as: " << destination << '\n'
              << "destination: " << destination << '\n'
              << "source: " << source << '\n';
  save({"copy", destination, [&] { return copyFile(source, destination); }});
}

}  // namespace morvane
