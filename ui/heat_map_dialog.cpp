#include "ui/heat_map_dialog.h"

#include <FL/Fl_Button.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Float_Input.H>

#include "app/app_state.h"
#include "filter/number_input.h"
#include "ui/button_box.h"
#include "ui/control_rules.h"
#include "ui/look.h"
#include "view/gl_window.h"

namespace morvane {
namespace {

Fl_Float_Input* globalMax = nullptr;
Fl_Float_Input* globalMin = nullptr;

Fl_Float_Input* addInput(int y, const char* label) {
  auto* input = new NumberInput(120, y, 150, 30, label);
  input->color(kBlack);
  input->textcolor(kWhite);
  input->cursor_color(kWhite);
  input->labelcolor(kWhite);
  return input;
}

void addButton(int x, const char* label, Fl_Callback* callback) {
  auto* button = new Fl_Button(x, 110, 80, 35, label);
  button->box(buttonBox());
  button->down_box(buttonBox());
  button->color(kBlack, kBlack);
  button->labelcolor(kWhite);
  button->callback(callback);
}

void apply(Fl_Widget* /*widget*/, void* /*data*/) {
  appState().glView->setGlobalLimits(leadingFloat(globalMax->value()),
                                     leadingFloat(globalMin->value()));
}

void reset(Fl_Widget* /*widget*/, void* /*data*/) { appState().glView->clearGlobalLimits(); }

void cancel(Fl_Widget* /*widget*/, void* /*data*/) { appState().heatMapDialog->hide(); }

}  // namespace

Fl_Window* buildHeatMapDialog() {
  registerButtonBox();
  auto* window = new Fl_Double_Window(290, 160, "Edit Heatmap");
  window->color(kBlack);
  globalMax = addInput(20, "Global Max (");
  globalMin = addInput(60, "Global Min (");
  addButton(15, "Apply", apply);
  addButton(105, "Reset", reset);
  addButton(195, "Cancel", cancel);
  window->end();
  window->hide();
  return window;
}

void showHeatMapDialog() {
  const AppState& app = appState();
  const Fl_Window& window = *app.mainWindow;
  app.heatMapDialog->show();
  app.heatMapDialog->position(window.x() + window.w() / 2 - 290, window.y() + window.h() / 2 - 160);
}

}  // namespace morvane
