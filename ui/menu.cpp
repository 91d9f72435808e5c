#include "ui/menu.h"

#include <FL/Fl_Menu_Bar.H>

#include <cstdlib>
#include <iostream>
#include <string_view>

#include "app/app_state.h"
#include "ui/file_actions.h"

namespace morvane {
namespace {

struct MenuEntry {
  const char* path;
  const char* shortcut;
};

constexpr MenuEntry kMenu[] = {
    {"&File/&Open", "^o"},
    {"&File/&Quit", "^q"},
};

struct MenuAction {
  std::string_view label;
  void (*run)();
};

constexpr MenuAction kActions[] = {
    {"&Open", [] { openMeasurement(nullptr, kOpenFromMenu); }},
    {"&Quit", [] { std::exit(0); }},
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

}  // namespace

void buildMenu() {
  for (const MenuEntry& entry : kMenu) {
    appState().menuBar->add(entry.path, entry.shortcut, onMenu);
  }
}

void rebuildMenu() {
  appState().menuBar->clear();
  buildMenu();
}

}  // namespace morvane
