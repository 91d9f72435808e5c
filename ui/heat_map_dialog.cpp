#include "ui/heat_map_dialog.h"

#include <FL/Fl_Button.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Float_Input.H>

#include "ui/app_state.h"
#include "ui/control_rules.h"
#include "ui/gl_window.h"
#include "ui/owned_window.h"
#include "widgets/button_box.h"
#include "widgets/look.h"
#include "widgets/number_input.h"
#include "widgets/styles.h"

namespace morvane {
namespace {

constexpr int kWidth = 290;
constexpr int kHeight = 160;

class HeatMapDialog : public Fl_Double_Window {
 public:
  HeatMapDialog() : Fl_Double_Window(kWidth, kHeight, "Edit Heatmap") {
    color(kBlack);
    max_ = addInput(20, "Global Max (");
    min_ = addInput(60, "Global Min (");
    addButton(15, "Apply", [](Fl_Widget*, void* dialog) {
      const auto& self = *static_cast<HeatMapDialog*>(dialog);
      appState().glView->surface().setGlobalLimits(
          HeightRange{leadingFloat(self.min_->value()), leadingFloat(self.max_->value())});
    });
    addButton(105, "Reset",
              [](Fl_Widget*, void*) { appState().glView->surface().setGlobalLimits({}); });
    addButton(195, "Cancel",
              [](Fl_Widget*, void* dialog) { static_cast<HeatMapDialog*>(dialog)->hide(); });
    end();
    hide();
  }

 private:
  static Fl_Float_Input* addInput(int y, const char* label) {
    auto* input = new NumberInput(120, y, 150, 30, label);
    styleInput(*input);
    return input;
  }

  void addButton(int x, const char* label, Fl_Callback* action) {
    auto* button = new Fl_Button(x, 110, 80, 35, label);
    styleButton(*button);
    button->callback(action, this);
  }

  Fl_Float_Input* max_;
  Fl_Float_Input* min_;
};

}  // namespace

Fl_Window* buildHeatMapDialog() {
  registerButtonBox();
  return new HeatMapDialog;
}

void showHeatMapDialog() {
  const AppState& app = appState();
  const Fl_Window& window = *app.mainWindow;
  showOwned(*app.heatMapDialog);
  app.heatMapDialog->position(window.x() + window.w() / 2 - kWidth,
                              window.y() + window.h() / 2 - kHeight);
}

}  // namespace morvane
