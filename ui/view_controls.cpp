#include "ui/view_controls.h"

#include <FL/Fl_Button.H>
#include <FL/Fl_Float_Input.H>
#include <FL/Fl_Slider.H>
#include <FL/Fl_Text_Buffer.H>
#include <FL/Fl_Window.H>

#include <algorithm>
#include <iostream>
#include <limits>
#include <string>

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

/// Puts a limit text without its unit into an input, the cursor staying behind the same digits.
void setLimitText(Fl_Float_Input* input, const std::string& stripped) {
  const auto before = static_cast<std::size_t>(input->position());
  const std::size_t digits = stripUnit(std::string_view(input->value()).substr(0, before)).size();
  input->value((stripped + std::string(kMicrometres)).c_str());
  input->position(static_cast<int>(std::min(digits, stripped.size())));
}

void showAutomaticLimits() {
  const AppState& app = appState();
  const SurfaceLimits& limits = app.glView->model().limits();
  setLimitText(app.maximumInput, shownText(limits.trueMax, 1));
  setLimitText(app.minimumInput, shownText(limits.trueMin, 1));
}

void showScale() {
  const AppState& app = appState();
  app.scaleSlider->value(finiteScale(app.glView->zScale()));
  app.scaleSlider->redraw();
  app.scaleReadout->text(readoutText(app.glView->zScale()).c_str());
}

Crop typedLimits(const std::string& maximum, const std::string& minimum) {
  // What lies beyond single precision cannot be drawn.
  const auto limit = [](const std::string& typed) {
    constexpr float kMost = std::numeric_limits<float>::max();
    return std::clamp(leadingFloat(typed), -kMost, kMost);
  };
  return {.on = appState().glView->crop().on, .min = limit(minimum), .max = limit(maximum)};
}

/// The crop button's press; returns the limits then in force.
Crop pressCropButton(const std::string& maximum, const std::string& minimum) {
  AppState& app = appState();
  const bool automatic = app.cropMode;
  app.cropMode = !app.cropMode;
  setIcon(app.cropButton, automatic ? "crop.png" : "auto.png");
  for (Fl_Float_Input* input : {app.maximumInput, app.minimumInput}) {
    automatic ? input->deactivate() : input->activate();
  }
  if (automatic) {
    showAutomaticLimits();
    Crop crop = app.glView->crop();
    crop.on = false;
    return crop;
  }
  Crop crop = typedLimits(maximum, minimum);
  crop.on = true;
  return crop;
}

/// Kept: while the heat map is off new limits wait for the next rebuild.
void takeCrop(const Crop& crop) {
  appState().glView->setCrop(crop, appState().heatMapOn ? Rebuild::kNow : Rebuild::kLater);
}

}  // namespace

void showMeasured() {
  showScale();
  if (!appState().glView->crop().on) showAutomaticLimits();
}

void toggleHeatMap(Fl_Widget* /*widget*/, long /*action*/) {
  AppState& app = appState();
  GLWindow& view = *app.glView;
  setIcon(app.heatMapButton, app.heatMapOn ? "hmOff.png" : "hmOn.png");
  if (!app.heatMapOn) {
    view.useAutomaticScale();
  } else if (view.bitmapAvailable()) {
    view.flatten();
  }
  app.heatMapOn = !app.heatMapOn;
  view.swapColourSource();
  if (!view.bitmapAvailable()) return;
  view.requestRebuild();
  view.ensureMeasured();
}

void changeScale(Fl_Widget* /*widget*/, long action) {
  const AppState& app = appState();
  GLWindow& view = *app.glView;
  if (action == 0) {
    view.setZScale(static_cast<float>(app.scaleSlider->value()));
  } else {
    view.setZScale(
        steppedScale(static_cast<int>(action), view.sliderScale(), view.maxScale(), view.zScale()));
  }
  showScale();
}

void applyLimits(Fl_Widget* /*widget*/, long action) {
  const AppState& app = appState();
  const std::string maximum = stripUnit(app.maximumInput->value());
  const std::string minimum = stripUnit(app.minimumInput->value());
  std::cout << "cropMaxFormat:" << maximum << '\n' << "CROP MAX: " << maximum << '\n';
  if (action == kLimitsButton) {
    takeCrop(pressCropButton(maximum, minimum));
    return;
  }
  setLimitText(app.maximumInput, maximum);
  setLimitText(app.minimumInput, minimum);
  takeCrop(typedLimits(maximum, minimum));
}

void resetView(Fl_Widget* /*widget*/, long /*action*/) {
  GLWindow& view = *appState().glView;
  view.resetCamera();
  if (!view.modelLoaded()) return;
  view.useAutomaticScale();
  const SurfaceLimits& limits = view.model().limits();
  view.setCrop({.on = view.crop().on, .min = limits.trueMin, .max = limits.trueMax});
  showAutomaticLimits();
  view.requestRebuild();
  view.ensureMeasured();
}

void selectBitmap(long index) {
  const AppState& app = appState();
  app.glView->chooseBitmap(app.bitmapPaths.at(static_cast<std::size_t>(index)));
  if (app.heatMapOn) return;
  app.glView->flatten();
  app.glView->requestRebuild();
}

void setProfileMode(Fl_Widget* /*widget*/, long action) {
  AppState& app = appState();
  GLWindow& view = *app.glView;
  if (action == kProfileSwapPins) {
    if (view.visible()) view.swapPins();
    return;
  }
  const bool on = action == kProfileOn;
  if (on) std::cout << "PROFILER ENABLED\n";
  if (!on && app.resultsPanel->visible()) std::cout << "SHOWN\n";
  view.profileShown = on;
  for (Fl_Button* button : {app.swapPinsButton, app.profileOffButton}) {
    on ? button->show() : button->hide();
  }
  on ? app.profileButton->hide() : app.profileButton->show();
  if (on || view.visible()) view.setProfileMode(on);
  on&& view.glUsable() ? view.profiler().show() : view.profiler().hide();
  app.controlsPanel->show();  // on top: its right edge lies over theirs
  layoutViews();
}

}  // namespace morvane
