#include "ui/controls.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>

#include "ui/button_box.h"
#include "ui/file_actions.h"
#include "ui/images.h"
#include "ui/look.h"

namespace morvane {
namespace {

constexpr int kPanelWidth = 150;

struct LogoEntry {
  int y;
  const char* file;
};

constexpr LogoEntry kLogos[] = {
    {5, "Morvane-RS-150x40px_REVERSED.png"},
    {45, "CX-Logo-white150-40.png"},
};

struct ButtonEntry {
  int x, y, w, h;
  const char* icon;
  const char* tooltip;
  void (*callback)(Fl_Widget*, long);
  long userData;
};

constexpr ButtonEntry kButtons[] = {
    {0, 85, kPanelWidth, 60, "open.png", "Open a measurement", openMeasurement, kOpenFromButton},
};

void addLogo(const LogoEntry& entry) {
  constexpr int kHeight = 40;
  auto* box = new Fl_Box(0, entry.y, kPanelWidth, kHeight);
  box->image(loadImage("Logos", entry.file, kPanelWidth, kHeight));
}

void addButton(const ButtonEntry& entry) {
  auto* button = new Fl_Button(entry.x, entry.y, entry.w, entry.h);
  button->box(buttonBox());
  button->down_box(buttonBox());
  button->color(kBlack, kBlack);
  button->image(loadImage("Icons", entry.icon));
  button->tooltip(entry.tooltip);
  button->callback(entry.callback, entry.userData);
}

}  // namespace

void buildControls() {
  for (const LogoEntry& logo : kLogos) addLogo(logo);
  for (const ButtonEntry& button : kButtons) addButton(button);
}

}  // namespace morvane
