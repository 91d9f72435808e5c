#include "ui/controls.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Float_Input.H>
#include <FL/Fl_Hor_Nice_Slider.H>
#include <FL/Fl_Text_Buffer.H>
#include <FL/Fl_Text_Display.H>
#include <FL/Fl_Toggle_Button.H>

#include "ui/app_state.h"
#include "ui/control_rules.h"
#include "ui/file_actions.h"
#include "ui/gl_window.h"
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
  PixelArea area;
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
    const int handled = Fl_Hor_Nice_Slider::handle(event);
    if (event == FL_RELEASE) appState().glView->endMotion();
    return handled;
  }
};

void onDetails(Fl_Widget* /*widget*/, long /*action*/) { toggleDetails(); }

constexpr ButtonEntry kUpperButtons[] = {
    {control::kOpen, "open.png", "Open a measurement", openMeasurement, kOpenFromButton},
    {control::kHeatMap, "hmOn.png", "Heat map or bitmap", toggleHeatMap, 1,
     &AppState::heatMapButton, true},
    {control::kReset, "reset.png", "Reset the view", resetView, 4},
};

constexpr ButtonEntry kMinus = {control::kMinus, "minus.png", "Flatter", changeScale, -1};
constexpr ButtonEntry kPlus = {control::kPlus, "plus.png", "Steeper", changeScale, 1};

constexpr ButtonEntry kLowerButtons[] = {
    {control::kLimits, "crop.png", "Limits: automatic or typed", applyLimits, kLimitsButton,
     &AppState::cropButton},
    {control::kReport, "pdf.png", "Report as PDF", writePdfReport, 4},
    {control::kProfile, "profiler.png", "Show a section", setProfileMode, kProfileOn,
     &AppState::profileButton, false, true},
    {control::kSwapPins, "swapPins.png", "Swap the ends of the section", setProfileMode,
     kProfileSwapPins, &AppState::swapPinsButton, false, true},
    {control::kProfileOff, "noProfile.png", "Leave the section", setProfileMode, kProfileOff,
     &AppState::profileOffButton, false, true},
    {control::kDetails, "info.png", "Results", onDetails, 0, &AppState::detailsButton, false, true},
};

struct InputEntry {
  PixelArea area;
  const char* text;
  const char* tooltip;
  Fl_Float_Input* AppState::*handle;
};

constexpr InputEntry kInputs[] = {
    {control::kMaximum, "Maximum", "Upper limit of heights and colours", &AppState::maximumInput},
    {control::kMinimum, "Minimum", "Lower limit of heights and colours", &AppState::minimumInput},
};

template <class Widget>
Widget* make(const PixelArea& area) {
  return new Widget(area.x, area.y, area.w, area.h);
}

void addLogo(const LogoEntry& entry) {
  constexpr int kHeight = 40;
  auto* box = new Fl_Box(0, entry.y, kFull, kHeight);
  box->image(loadImage("Logos", entry.file, kFull, kHeight));
}

void addButton(const ButtonEntry& entry) {
  auto* button = entry.toggles ? make<Fl_Toggle_Button>(entry.area) : make<Fl_Button>(entry.area);
  styleButton(*button);
  button->image(loadImage("Icons", entry.icon));
  button->tooltip(entry.tooltip);
  button->callback(entry.callback, entry.userData);
  if (entry.hidden) button->hide();
  if (entry.handle != nullptr) appState().*entry.handle = button;
}

void addScaleControls(AppState& app) {
  auto* slider = make<ScaleSlider>(control::kSlider);
  slider->bounds(kSmallestScale, 0.4);
  slider->color(kBlack, kBlack);
  slider->tooltip("Vertical scale");
  slider->callback(changeScale, 0);
  app.scaleSlider = slider;

  addButton(kMinus);
  app.scaleReadout = new Fl_Text_Buffer;
  app.scaleReadout->text("---");
  auto* readout = make<Fl_Text_Display>(control::kReadout);
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
  auto* input = make<NumberInput>(entry.area);
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
