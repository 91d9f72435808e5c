#include "ui/controls.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Float_Input.H>
#include <FL/Fl_Hor_Nice_Slider.H>
#include <FL/Fl_Text_Buffer.H>
#include <FL/Fl_Text_Display.H>
#include <FL/Fl_Toggle_Button.H>

#include "ui/app_state.h"
#include "ui/file_actions.h"
#include "ui/images.h"
#include "ui/report_actions.h"
#include "ui/view_controls.h"
#include "ui/view_layout.h"
#include "ui/window_geometry.h"
#include "widgets/look.h"
#include "widgets/number_input.h"
#include "widgets/styles.h"

namespace morvane {
namespace {

constexpr int kFull = kControlsWidth;

struct LogoEntry {
  int y;
  const char* file;
};

constexpr LogoEntry kLogos[] = {
    {5, "Morvane-RS-150x40px_REVERSED.png"},
    {45, "CX-Logo-white150-40.png"},
};

using Callback = void (*)(Fl_Widget*, long);

struct ButtonEntry {
  int x, y, w, h;
  const char* icon;
  const char* tooltip;
  Callback callback;
  long userData;
  Fl_Button* AppState::*handle = nullptr;
  bool toggles = false;
  bool hidden = false;
};

/// Handles a release as a last drag: while a frame is drawn FLTK queues motions, and it delivers
/// the release before them.
class ScaleSlider : public Fl_Hor_Nice_Slider {
 public:
  using Fl_Hor_Nice_Slider::Fl_Hor_Nice_Slider;
  int handle(int event) override {
    if (event == FL_RELEASE) Fl_Hor_Nice_Slider::handle(FL_DRAG);
    return Fl_Hor_Nice_Slider::handle(event);
  }
};

void onDetails(Fl_Widget* /*widget*/, long /*action*/) { toggleDetails(); }

constexpr ButtonEntry kUpperButtons[] = {
    {0, 85, kFull, 60, "open.png", "Open a measurement", openMeasurement, kOpenFromButton},
    {0, 147, kFull, 60, "hmOn.png", "Heat map or bitmap", toggleHeatMap, 1,
     &AppState::heatMapButton, true},
    {0, 209, kFull, 60, "reset.png", "Reset the view", resetView, 4},
};

constexpr ButtonEntry kMinus = {0, 303, 30, 40, "minus.png", "Flatter", changeScale, -1};
constexpr ButtonEntry kPlus = {120, 303, 30, 40, "plus.png", "Steeper", changeScale, 1};

// Row 491 is shared: either the wide profile button or the pair of narrow ones is shown.
constexpr ButtonEntry kLowerButtons[] = {
    {80, 345, 70, 82, "crop.png", "Limits: automatic or typed", applyLimits, kLimitsButton,
     &AppState::cropButton},
    {0, 429, kFull, 60, "pdf.png", "Report as PDF", writePdfReport, 4},
    {0, 491, kFull, 60, "profiler.png", "Show a section", setProfileMode, kProfileOn,
     &AppState::profileButton, false, true},
    {75, 491, 75, 60, "swapPins.png", "Swap the ends of the section", setProfileMode,
     kProfileSwapPins, &AppState::swapPinsButton, false, true},
    {0, 491, 75, 60, "noProfile.png", "Leave the section", setProfileMode, kProfileOff,
     &AppState::profileOffButton, false, true},
    {0, 553, kFull, 60, "info.png", "Results", onDetails, 0, &AppState::detailsButton, false, true},
};

struct InputEntry {
  int y;
  const char* text;
  const char* tooltip;
  Fl_Float_Input* AppState::*handle;
};

constexpr InputEntry kInputs[] = {
    {345, "Maximum", "Upper limit of heights and colours", &AppState::maximumInput},
    {387, "Minimum", "Lower limit of heights and colours", &AppState::minimumInput},
};

void addLogo(const LogoEntry& entry) {
  constexpr int kHeight = 40;
  auto* box = new Fl_Box(0, entry.y, kFull, kHeight);
  box->image(loadImage("Logos", entry.file, kFull, kHeight));
}

void addButton(const ButtonEntry& entry) {
  auto* button = entry.toggles ? new Fl_Toggle_Button(entry.x, entry.y, entry.w, entry.h)
                               : new Fl_Button(entry.x, entry.y, entry.w, entry.h);
  styleButton(*button);
  button->image(loadImage("Icons", entry.icon));
  button->tooltip(entry.tooltip);
  button->callback(entry.callback, entry.userData);
  if (entry.hidden) button->hide();
  if (entry.handle != nullptr) appState().*entry.handle = button;
}

void addScaleControls(AppState& app) {
  auto* slider = new ScaleSlider(0, 271, kFull, 30);
  slider->bounds(1e-10, 0.4);
  slider->color(kBlack, kBlack);
  slider->tooltip("Vertical scale");
  slider->callback(changeScale, 0);
  app.scaleSlider = slider;

  addButton(kMinus);
  app.scaleReadout = new Fl_Text_Buffer;
  app.scaleReadout->text("---");
  auto* readout = new Fl_Text_Display(30, 303, 90, 40);
  readout->buffer(app.scaleReadout);
  readout->box(FL_FLAT_BOX);
  readout->color(kBlack);
  readout->textcolor(kWhite);
  readout->textsize(24);
  readout->scrollbar_width(0);
  readout->hide_cursor();
  readout->clear_visible_focus();
  addButton(kPlus);
}

void addInput(const InputEntry& entry) {
  auto* input = new NumberInput(0, entry.y, 80, 40);
  input->value(entry.text);
  styleInput(*input);
  input->tooltip(entry.tooltip);
  input->when(FL_WHEN_CHANGED);
  input->callback(applyLimits, kLimitsTyped);
  appState().*entry.handle = input;
}

}  // namespace

// From top to bottom, which is also the order of the Tab key.
void buildControls() {
  for (const LogoEntry& logo : kLogos) addLogo(logo);
  for (const ButtonEntry& button : kUpperButtons) addButton(button);
  addScaleControls(appState());
  for (const InputEntry& input : kInputs) addInput(input);
  for (const ButtonEntry& button : kLowerButtons) addButton(button);
}

}  // namespace morvane
