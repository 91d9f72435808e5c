#include "ui/menu.h"

#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Menu_Bar.H>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "base/debug_log.h"
#include "base/paths.h"
#include "ui/app_state.h"
#include "ui/config_manager.h"
#include "ui/console.h"
#include "ui/export_actions.h"
#include "ui/file_actions.h"
#include "ui/filter_actions.h"
#include "ui/full_screen.h"
#include "ui/gl_window.h"
#include "ui/heat_map_dialog.h"
#include "ui/owned_window.h"
#include "ui/readout.h"
#include "ui/region_actions.h"
#include "ui/report_actions.h"
#include "ui/results_panel.h"
#include "ui/view_controls.h"
#include "ui/view_layout.h"
#include "widgets/styles.h"

namespace morvane {
namespace {

constexpr const char* kBitmapMenu = "&BMPs/";
constexpr const char* kColourMenu = "&Tools/Colours";

/// Asks the window, since the window manager can leave full screen too.
bool fillsScreen() { return appState().mainWindow->fullscreen_active() != 0; }

void toggleFullScreen() {
  AppState& app = appState();
  logStream() << "FULLSCREEN MODE\n";
  if (!canFillScreen()) {
    tellUser("The window manager offers no full screen.");
    return;
  }
  fillsScreen() ? app.mainWindow->fullscreen_off() : app.mainWindow->fullscreen();
}

void toggleConsole() {
  Fl_Window& console = *appState().consolePanel;
  console.visible() ? console.hide() : console.show();
}

void toggleGridBox() {
  GLWindow& view = *appState().glView;
  view.setGridMode(!view.tools().gridMode());
}

void toggleWholeLine() {
  bool& wholeLine = appState().glView->tools().profileLineMode;
  wholeLine = !wholeLine;
}

void toggleKeptRange() {
  ShownSurface& surface = appState().glView->surface();
  surface.setRangeKept(!surface.rangeKept());
}

template <ViewDirection direction>
void seeFrom() {
  appState().glView->seeFrom(direction);
}

void toggleFitOnOpen() {
  GLWindow& view = *appState().glView;
  view.setFitsOnOpen(!view.fitsOnOpen());
  if (view.fitsOnOpen()) view.fitView();
}

void toggleReadout() {
  Readout& readout = *appState().readout;
  readout.setOn(!readout.isOn());
}

template <bool SceneOptions::*option>
bool isOn() {
  return appState().glView->options().*option;
}

template <bool SceneOptions::*option>
void toggle() {
  appState().glView->setOption(option, !isOn<option>());
}

/// Which menus an entry belongs to.
enum class MenuSet { kStandard, kFull };

/// One entry of the menu: everything about it.
struct MenuEntry {
  std::string path;
  std::function<void()> run;
  MenuSet set = MenuSet::kStandard;
  int flags = 0;
  std::function<bool()> state = nullptr;  ///< of a check box or radio item
  int shortcut = 0;

  /// What the item shows and is found by.
  [[nodiscard]] std::string_view label() const {
    return std::string_view(path).substr(path.rfind('/') + 1);
  }
};

constexpr MenuSet kFull = MenuSet::kFull;
constexpr MenuSet kStandard = MenuSet::kStandard;

const MenuEntry kFixed[] = {
    {"&File/&Open", [] { openMeasurement(nullptr, kOpenFromMenu); }, kStandard, 0, nullptr,
     FL_CTRL + 'o'},
    {"&File/&Save Copy as...", saveCopy, kStandard, FL_MENU_DIVIDER, nullptr, FL_CTRL + 's'},
    {"&File/&Quit", [] { std::exit(0); }, kStandard, 0, nullptr, FL_CTRL + 'q'},
    // Kept: it does nothing; "&FullScreen" has the action.
    {"&Edit/&Fullscreen", nullptr, kStandard, 0, nullptr, FL_ALT + 'f'},
    {"&Options/Axis Key", toggle<&SceneOptions::axesVisible>, kStandard, FL_MENU_TOGGLE,
     isOn<&SceneOptions::axesVisible>},
    {"&Options/Heatmap/Scale", showHeatMapDialog},
    {"&Help/About", [] { showOwned(*appState().aboutWindow); }},
    // In the full menu only.
    {"&Tools/&Filter", toggleFilter, kFull, FL_MENU_TOGGLE,
     [] { return appState().glView->surface().filterEnabled(); }},
    {"&Tools/&Filter Settings", showFilterWindow, kFull, FL_MENU_DIVIDER},
    {"&Tools/Surface as Points", toggle<&SceneOptions::filledPolygons>, kFull, FL_MENU_TOGGLE,
     [] { return !isOn<&SceneOptions::filledPolygons>(); }},
    {"&Tools/Lighting", toggle<&SceneOptions::lightingOn>, kFull, FL_MENU_TOGGLE,
     isOn<&SceneOptions::lightingOn>},
    {"&Tools/Light Direction...", [] { showOwned(*appState().lightWindow); }, kFull},
    {"&Tools/&Heat Map Key", toggle<&SceneOptions::keyVisible>, kFull, FL_MENU_TOGGLE,
     isOn<&SceneOptions::keyVisible>},
    {kColourMenu, nullptr, kFull, FL_SUBMENU | FL_MENU_DIVIDER},
    {"&Tools/Colours/1 % to 99 % of the Heights", togglePercentiles, kFull, FL_MENU_TOGGLE,
     [] { return appState().glView->surface().percentilesInForce(); }},
    {"&Tools/Colours/Same Range for All Files", toggleKeptRange, kFull, FL_MENU_TOGGLE,
     [] { return appState().glView->surface().rangeKept(); }},
    {"&Tools/Views/Fit", [] { appState().glView->fitView(); }, kFull, 0, nullptr, FL_CTRL + '0'},
    {"&Tools/Views/Top", seeFrom<ViewDirection::kTop>, kFull, 0, nullptr, FL_CTRL + '1'},
    {"&Tools/Views/Front", seeFrom<ViewDirection::kFront>, kFull, 0, nullptr, FL_CTRL + '2'},
    {"&Tools/Views/Side", seeFrom<ViewDirection::kSide>, kFull, 0, nullptr, FL_CTRL + '3'},
    {"&Tools/Views/Isometric", seeFrom<ViewDirection::kIsometric>, kFull, FL_MENU_DIVIDER, nullptr,
     FL_CTRL + '4'},
    {"&Tools/Views/Undo", [] { appState().glView->undoCamera(); }, kFull, FL_MENU_DIVIDER, nullptr,
     FL_CTRL + 'z'},
    {"&Tools/Views/Fit on open", toggleFitOnOpen, kFull, FL_MENU_TOGGLE,
     [] { return appState().glView->fitsOnOpen(); }},
    {"&Tools/Height under Cursor", toggleReadout, kFull, FL_MENU_TOGGLE | FL_MENU_DIVIDER,
     [] { return appState().readout->isOn(); }},
    {"&Tools/Whole Profile Line", toggleWholeLine, kFull, FL_MENU_TOGGLE,
     [] { return appState().glView->tools().profileLineMode; }},
    {"&Tools/Grid Box", toggleGridBox, kFull, FL_MENU_TOGGLE,
     [] { return appState().glView->tools().gridMode(); }},
    {"&Tools/Save region...", saveShownRegion, kFull},
    {"&Tools/Screenshot", takeScreenshot, kFull, FL_MENU_DIVIDER},
    {"&Tools/Save picture as/Size of the view...", [] { savePicture(1); }, kFull},
    {"&Tools/Save picture as/Double size...", [] { savePicture(2); }, kFull},
    {"&Tools/Save picture as/Fourfold size...", [] { savePicture(4); }, kFull},
    {"&Tools/Save section as...", saveSection, kFull},
    {"&Tools/Copy section", copySection, kFull},
    {"&Tools/Save results as...", saveResults, kFull},
    {"&Tools/Copy results", copyResults, kFull},
    {"&Tools/Save heights as...", saveHeights, kFull, FL_MENU_DIVIDER},
    {"&Tools/Results Column", toggleResultsColumn, kFull, FL_MENU_TOGGLE,
     [] { return appState().resultsPanel->visible() != 0; }},
    {"&Tools/Console", toggleConsole, kFull, FL_MENU_TOGGLE,
     [] { return appState().consolePanel->visible() != 0; }},
    {"&Tools/&FullScreen", toggleFullScreen, kFull, FL_MENU_TOGGLE, fillsScreen},
    {"&Tools/&Connections", [] { showOwned(*appState().configManager); }, kFull},
};

/// The fixed entries, and one for each colour map at the top of its submenu.
std::vector<MenuEntry> makeEntries() {
  std::vector<MenuEntry> maps;
  for (const ColourMap& map : colourMaps()) {
    maps.push_back({std::string(kColourMenu) + '/' + map.name,
                    [&map] { appState().glView->surface().setColourMap(map); }, kFull,
                    FL_MENU_RADIO,
                    [&map] { return &appState().glView->surface().colourMap() == &map; }});
  }
  maps.back().flags |= FL_MENU_DIVIDER;
  std::vector<MenuEntry> entries(std::begin(kFixed), std::end(kFixed));
  const auto title = std::ranges::find(entries, kColourMenu, &MenuEntry::path);
  entries.insert(title + 1, maps.begin(), maps.end());
  return entries;
}

/// All entries.
const std::vector<MenuEntry>& menuEntries() {
  static const std::vector<MenuEntry> entries = makeEntries();
  return entries;
}

/// The callback of all fixed items. It finds the entry by the item's label.
void onMenu(Fl_Widget* /*widget*/, void* /*data*/) {
  const Fl_Menu_Item* item = appState().menuBar->mvalue();
  std::cerr << '\n';
  if (item == nullptr || item->label() == nullptr) return;
  // A copy, as the item is freed when an action rebuilds the menu.
  const std::string label = item->label();
  for (const MenuEntry& entry : menuEntries()) {
    if (label == entry.label() && entry.run) entry.run();
  }
}

void onBitmapItem(Fl_Widget* /*widget*/, void* index) {
  selectBitmap(static_cast<long>(reinterpret_cast<fl_intptr_t>(index)));
}

}  // namespace

std::vector<std::string> menuPaths() {
  std::vector<std::string> paths;
  for (const MenuEntry& entry : menuEntries()) paths.push_back(entry.path);
  return paths;
}

void buildMenu() {
  const bool full = environmentText("MORVANE_MENU") == "full";
  for (const MenuEntry& entry : menuEntries()) {
    if (entry.set == kFull && !full) continue;
    appState().menuBar->add(entry.path.c_str(), entry.shortcut, onMenu, nullptr, entry.flags);
  }
  checkMenuBoxes();
}

void checkMenuBoxes() {
  Fl_Menu_Bar* menu = appState().menuBar;
  for (const MenuEntry& entry : menuEntries()) {
    const int item = menu->find_index(entry.path.c_str());
    if (!entry.state || item < 0) continue;
    const int others = menu->mode(item) & ~FL_MENU_VALUE;
    menu->mode(item, others | (entry.state() ? FL_MENU_VALUE : 0));
  }
}

void rebuildMenu() {
  appState().menuBar->clear();
  // A new measurement shows its axes.
  appState().glView->setOption(&SceneOptions::axesVisible, true);
  buildMenu();
}

void addBitmapItem(const std::string& name, long index, bool chosen) {
  Fl_Menu_Bar* menu = appState().menuBar;
  // Inserted by index: a name may equal another one, or look like a menu path.
  const int item =
      menu->add((kBitmapMenu + std::to_string(index)).c_str(), 0, onBitmapItem,
                // NOLINTNEXTLINE(performance-no-int-to-ptr): FLTK's way to pass a number
                reinterpret_cast<void*>(static_cast<fl_intptr_t>(index)), FL_MENU_RADIO);
  menu->replace(item, labelText(name, "&@").c_str());
  if (!chosen) return;
  // Kept: two items may be marked, although they are radio items.
  menu->mode(item, menu->mode(item) | FL_MENU_VALUE);
  menu->value(item);
}

}  // namespace morvane
