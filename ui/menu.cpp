#include "ui/menu.h"

#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Menu_Bar.H>

#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "app/app_state.h"
#include "ui/config_manager.h"
#include "ui/file_actions.h"
#include "ui/heat_map_dialog.h"
#include "ui/view_controls.h"
#include "view/gl_window.h"

namespace morvane {
namespace {

struct MenuEntry {
  const char* path;
  int shortcut;
  int flags;
};

constexpr MenuEntry kMenu[] = {
    {"&File/&Open", FL_CTRL + 'o', 0},
    {"&File/&Save Copy as...", FL_CTRL + 's', FL_MENU_DIVIDER},
    {"&File/&Quit", FL_CTRL + 'q', 0},
    // Kept: the action's label is "&FullScreen", so this item does nothing.
    {"&Edit/&Fullscreen", FL_ALT + 'f', 0},
    {"&Options/Axis Key", 0, FL_MENU_TOGGLE | FL_MENU_VALUE},
    {"&Options/Heatmap/Scale", 0, 0},
    {"&Help/About", 0, 0},
};

constexpr const char* kBitmapMenu = "&BMPs/";

void toggleFullScreen() {
  AppState& app = appState();
  std::cout << "FULLSCREEN MODE\n";
  app.fullScreen ? app.mainWindow->fullscreen_off() : app.mainWindow->fullscreen();
  app.fullScreen = !app.fullScreen;
}

struct MenuAction {
  std::string_view label;
  void (*run)();
};

constexpr MenuAction kActions[] = {
    {"&Open", [] { openMeasurement(nullptr, kOpenFromMenu); }}, {"&Save Copy as...", saveCopy},
    {"About", [] { appState().aboutWindow->show(); }},          {"&FullScreen", toggleFullScreen},
    {"&Connections", [] { appState().configManager->show(); }}, {"Scale", showHeatMapDialog},
    {"Axis Key", [] { appState().glView->toggleAxes(); }},      {"&Quit", [] { std::exit(0); }},
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
    if (c == '/' || c == '\\') text += '\\';
    if (c == '&') text += '&';
    text += c;
  }
  return text;
}

}  // namespace

void buildMenu() {
  for (const MenuEntry& entry : kMenu) {
    appState().menuBar->add(entry.path, entry.shortcut, onMenu, nullptr, entry.flags);
  }
}

void rebuildMenu() {
  appState().menuBar->clear();
  buildMenu();
}

void addBitmapItem(const std::string& name, long index, bool chosen) {
  Fl_Menu_Bar* menu = appState().menuBar;
  const int item =
      menu->add((kBitmapMenu + menuText(name)).c_str(), 0, onBitmapItem,
                reinterpret_cast<void*>(static_cast<fl_intptr_t>(index)), FL_MENU_RADIO);
  if (!chosen) return;
  // Kept: two items may be marked, though they are radio items.
  menu->mode(item, menu->mode(item) | FL_MENU_VALUE);
  menu->value(item);
}

}  // namespace morvane
