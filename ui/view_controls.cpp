#include "ui/view_controls.h"

#include <FL/Fl_Button.H>
#include <FL/Fl_Float_Input.H>
#include <FL/Fl_Slider.H>
#include <FL/Fl_Text_Buffer.H>
#include <FL/Fl_Window.H>

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "base/debug_log.h"
#include "results/layouts.h"
#include "ui/app_state.h"
#include "ui/control_rules.h"
#include "ui/gl_window.h"
#include "ui/images.h"
#include "ui/results_panel.h"
#include "ui/view_layout.h"

namespace morvane {
namespace {

constexpr int kIconWidth = 40;
constexpr int kIconHeight = 36;

void setIcon(Fl_Button* button, const char* icon) {
  button->image(loadImage("Icons", icon, kIconWidth, kIconHeight));
  button->redraw();
}

/// Sets a limit text without its unit in an input. The cursor stays after the same digits.
void setLimitText(Fl_Float_Input* input, const std::string& stripped) {
  const auto before = static_cast<std::size_t>(input->position());
  const std::size_t digits = stripUnit(std::string_view(input->value()).substr(0, before)).size();
  input->value((stripped + std::string(kMicrometres)).c_str());
  input->position(static_cast<int>(std::min(digits, stripped.size())));
}

ShownSurface& shown() { return appState().glView->surface(); }

void showAutomaticLimits() {
  const AppState& app = appState();
  const HeightRange limits = shown().measured().automaticLimits();
  setLimitText(app.maximumInput, shownText(limits.max, 1));
  setLimitText(app.minimumInput, shownText(limits.min, 1));
}

void showScale() {
  const AppState& app = appState();
  const float scale = shown().zScale();
  app.scaleSlider->value(finiteScale(scale));
  app.scaleSlider->redraw();
  app.scaleReadout->text(readoutText(scale).c_str());
}

/// The texts of the limit inputs, without units.
struct LimitTexts {
  std::string maximum;
  std::string minimum;
};

/// Reads the limit texts and logs the upper one.
LimitTexts takeLimitTexts() {
  const AppState& app = appState();
  LimitTexts texts = {stripUnit(app.maximumInput->value()), stripUnit(app.minimumInput->value())};
  logStream() << "cropMaxFormat:" << texts.maximum << '\n' << "CROP MAX: " << texts.maximum << '\n';
  return texts;
}

Crop cropOf(const LimitTexts& texts, bool on) {
  // A value too large for a float cannot be drawn.
  const auto limit = [](const std::string& typed) {
    constexpr float kMax = std::numeric_limits<float>::max();
    return std::clamp(leadingFloat(typed), -kMax, kMax);
  };
  return {.on = on, .min = limit(texts.minimum), .max = limit(texts.maximum)};
}

/// Shows button and inputs for typed or for automatic limits.
void showLimitMode(bool typed) {
  const AppState& app = appState();
  setIcon(app.cropButton, typed ? "auto.png" : "crop.png");
  for (Fl_Float_Input* input : {app.maximumInput, app.minimumInput}) {
    typed ? input->activate() : input->deactivate();
  }
}

void useTypedLimits() {
  const LimitTexts texts = takeLimitTexts();
  showLimitMode(true);
  shown().setCrop(cropOf(texts, true));
}

}  // namespace

void useAutomaticLimits() {
  takeLimitTexts();
  showLimitMode(false);
  showAutomaticLimits();
  Crop crop = shown().crop();
  crop.on = false;
  shown().setCrop(crop);
}

void togglePercentiles() {
  const bool on = !shown().percentilesInForce();
  if (shown().crop().on) useAutomaticLimits();
  shown().setPercentages(on ? std::optional(Percentages{}) : std::nullopt);
}

void showMeasured() {
  showScale();
  if (!shown().crop().on) showAutomaticLimits();
}

void toggleHeatMap(Fl_Widget* /*widget*/, long /*action*/) {
  const bool toBitmap = shown().colourSource() == ColourSource::kHeatMap;
  setIcon(appState().heatMapButton, toBitmap ? "hmOff.png" : "hmOn.png");
  shown().setColourSource(toBitmap ? ColourSource::kBitmap : ColourSource::kHeatMap);
}

void changeScale(Fl_Widget* /*widget*/, long action) {
  ShownSurface& surface = shown();
  surface.setZScale(action == 0 ? static_cast<float>(appState().scaleSlider->value())
                                : steppedScale(static_cast<int>(action), surface.sliderScale(),
                                               surface.maxScale(), surface.zScale()));
  showScale();
}

void applyLimits(Fl_Widget* /*widget*/, long action) {
  if (action == kLimitsButton) {
    shown().crop().on ? useAutomaticLimits() : useTypedLimits();
    return;
  }
  const LimitTexts texts = takeLimitTexts();
  setLimitText(appState().maximumInput, texts.maximum);
  setLimitText(appState().minimumInput, texts.minimum);
  shown().setCrop(cropOf(texts, shown().crop().on));
}

void resetView(Fl_Widget* /*widget*/, long /*action*/) {
  appState().glView->resetCamera();
  if (!shown().modelLoaded()) return;
  shown().resetScaleAndLimits();
  showAutomaticLimits();
}

void selectBitmap(long index) {
  shown().chooseBitmap(appState().bitmapPaths.at(static_cast<std::size_t>(index)));
}

void setProfileMode(Fl_Widget* /*widget*/, long action) {
  const AppState& app = appState();
  GLWindow& view = *app.glView;
  if (action == kProfileSwapPins) {
    if (view.visible()) view.swapPins();
    return;
  }
  const bool on = action == kProfileOn;
  if (on) logStream() << "PROFILER ENABLED\n";
  if (!on && app.resultsPanel->visible()) logStream() << "SHOWN\n";
  view.setProfileMode(on);
  for (Fl_Button* button : {app.swapPinsButton, app.profileOffButton}) {
    on ? button->show() : button->hide();
  }
  on ? app.profileButton->hide() : app.profileButton->show();
  on&& view.glUsable() ? view.profiler().show() : view.profiler().hide();
  app.controlsPanel->show();  // in front: its right edge overlaps both
  layoutViews();
}

}  // namespace morvane
