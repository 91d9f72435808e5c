#include "ui/menu.h"

#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Menu_Bar.H>

#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "base/debug_log.h"
#include "base/paths.h"
#include "ui/app_state.h"
#include "ui/config_manager.h"
#include "ui/console.h"
#include "ui/file_actions.h"
#include "ui/filter_actions.h"
#include "ui/full_screen.h"
#include "ui/gl_window.h"
#include "ui/heat_map_dialog.h"
#include "ui/owned_window.h"
#include "ui/region_actions.h"
#include "ui/report_actions.h"
#include "ui/results_panel.h"
#include "ui/view_controls.h"
#include "ui/view_layout.h"

namespace morvane {
namespace {

struct MenuEntry {
  const char* path;
  int shortcut;
  int flags;
  bool (*state)();  ///< of a check box
};

constexpr MenuEntry kMenu[] = {
    {"&File/&Open", FL_CTRL + 'o', 0, nullptr},
    {"&File/&Save Copy as...", FL_CTRL + 's', FL_MENU_DIVIDER, nullptr},
    {"&File/&Quit", FL_CTRL + 'q', 0, nullptr},
    // Kept: the action's label is "&FullScreen", so this item does nothing.
    {"&Edit/&Fullscreen", FL_ALT + 'f', 0, nullptr},
    {"&Options/Axis Key", 0, FL_MENU_TOGGLE, [] { return appState().glView->axesVisible(); }},
    {"&Options/Heatmap/Scale", 0, 0, nullptr},
    {"&Help/About", 0, 0, nullptr},
};

/// Asked of the window: its manager may have left full screen by itself.
bool fillsScreen() { return appState().mainWindow->fullscreen_active() != 0; }

// What the standard menu leaves out.
constexpr MenuEntry kFullMenu[] = {
    {"&Tools/&Filter", 0, FL_MENU_TOGGLE, [] { return appState().glView->filterEnabled(); }},
    {"&Tools/&Filter Settings", 0, FL_MENU_DIVIDER, nullptr},
    {"&Tools/Surface as Points", 0, FL_MENU_TOGGLE,
     [] { return !appState().glView->filledPolygons(); }},
    {"&Tools/Lighting", 0, FL_MENU_TOGGLE, [] { return appState().glView->lightingOn(); }},
    {"&Tools/&Heat Map Key", 0, FL_MENU_TOGGLE | FL_MENU_DIVIDER,
     [] { return appState().glView->keyVisible(); }},
    {"&Tools/Whole Profile Line", 0, FL_MENU_TOGGLE,
     [] { return appState().glView->profileLineMode; }},
    {"&Tools/Grid Box", 0, FL_MENU_TOGGLE, [] { return appState().glView->gridMode(); }},
    {"&Tools/Save region...", 0, 0, nullptr},
    {"&Tools/Screenshot", 0, FL_MENU_DIVIDER, nullptr},
    {"&Tools/Results Column", 0, FL_MENU_TOGGLE,
     [] { return appState().resultsPanel->visible() != 0; }},
    {"&Tools/Console", 0, FL_MENU_TOGGLE, [] { return appState().consolePanel->visible() != 0; }},
    {"&Tools/&FullScreen", 0, FL_MENU_TOGGLE, fillsScreen},
    {"&Tools/&Connections", 0, 0, nullptr},
};

constexpr const char* kBitmapMenu = "&BMPs/";

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
  view.setGridMode(!view.gridMode());
}

void toggleWholeLine() {
  GLWindow& view = *appState().glView;
  view.profileLineMode = !view.profileLineMode;
}

struct MenuAction {
  std::string_view label;
  void (*run)();
};

constexpr MenuAction kActions[] = {
    {"&Open", [] { openMeasurement(nullptr, kOpenFromMenu); }},
    {"&Save Copy as...", saveCopy},
    {"About", [] { showOwned(*appState().aboutWindow); }},
    {"&FullScreen", toggleFullScreen},
    {"&Connections", [] { showOwned(*appState().configManager); }},
    {"&Filter", toggleFilter},
    {"&Filter Settings", showFilterWindow},
    {"Scale", showHeatMapDialog},
    {"Axis Key", [] { appState().glView->setAxesVisible(!appState().glView->axesVisible()); }},
    {"&Quit", [] { std::exit(0); }},
    {"Surface as Points",
     [] { appState().glView->setFilledPolygons(!appState().glView->filledPolygons()); }},
    {"Lighting", [] { appState().glView->setLighting(!appState().glView->lightingOn()); }},
    {"&Heat Map Key", [] { appState().glView->setKeyVisible(!appState().glView->keyVisible()); }},
    {"Whole Profile Line", toggleWholeLine},
    {"Grid Box", toggleGridBox},
    {"Save region...", saveShownRegion},
    {"Screenshot", takeScreenshot},
    {"Results Column", toggleResultsColumn},
    {"Console", toggleConsole},
};

/// The one callback of every fixed item: acts by the item's own label.
void onMenu(Fl_Widget* /*widget*/, void* /*data*/) {
  const Fl_Menu_Item* item = appState().menuBar->mvalue();
  std::cerr << '\n';
  if (item == nullptr || item->label() == nullptr) return;
  // The item goes when an action rebuilds the menu.
  const std::string label = item->label();
  for (const MenuAction& action : kActions) {
    if (label == action.label) action.run();
  }
}

void onBitmapItem(Fl_Widget* /*widget*/, void* index) {
  selectBitmap(static_cast<long>(reinterpret_cast<fl_intptr_t>(index)));
}

/// A file name as a menu label: what the toolkit would take for a sign of its own is masked.
std::string menuText(const std::string& name) {
  std::string text;
  for (const char c : name) {
    if (c == '&' || c == '@') text += c;
    text += c;
  }
  return text;
}

}  // namespace

void buildMenu() {
  const auto add = [](const MenuEntry& entry) {
    appState().menuBar->add(entry.path, entry.shortcut, onMenu, nullptr, entry.flags);
  };
  for (const MenuEntry& entry : kMenu) add(entry);
  if (environmentText("MORVANE_MENU") == "full") {
    for (const MenuEntry& entry : kFullMenu) add(entry);
  }
  checkMenuBoxes();
}

void checkMenuBoxes() {
  Fl_Menu_Bar* menu = appState().menuBar;
  const auto check = [menu](const MenuEntry& entry) {
    const int item = menu->find_index(entry.path);
    if (entry.state == nullptr || item < 0) return;
    const int others = menu->mode(item) & ~FL_MENU_VALUE;
    menu->mode(item, others | (entry.state() ? FL_MENU_VALUE : 0));
  };
  for (const MenuEntry& entry : kMenu) check(entry);
  for (const MenuEntry& entry : kFullMenu) check(entry);
}

void rebuildMenu() {
  appState().menuBar->clear();
  // A new measurement shows its axes, as the menu then says.
  appState().glView->setAxesVisible(true);
  buildMenu();
}

void addBitmapItem(const std::string& name, long index, bool chosen) {
  Fl_Menu_Bar* menu = appState().menuBar;
  // Added by its number: a name may look like another's, or like a path of menus.
  const int item =
      menu->add((kBitmapMenu + std::to_string(index)).c_str(), 0, onBitmapItem,
                // NOLINTNEXTLINE(performance-no-int-to-ptr): the toolkit's way to hand on a number
                reinterpret_cast<void*>(static_cast<fl_intptr_t>(index)), FL_MENU_RADIO);
  menu->replace(item, menuText(name).c_str());
  if (!chosen) return;
  // Kept: two items may be marked, though they are radio items.
  menu->mode(item, menu->mode(item) | FL_MENU_VALUE);
  menu->value(item);
}

}  // namespace morvane
