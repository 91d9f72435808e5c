#include "ui/filter_window.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Check_Button.H>
#include <FL/Fl_Float_Input.H>
#include <FL/Fl_Text_Buffer.H>
#include <FL/Fl_Text_Display.H>

#include <utility>

#include "filter/filter_hint.h"
#include "ui/window_geometry.h"
#include "widgets/number_input.h"

namespace morvane {
namespace {

constexpr Fl_Color kQuiet = FL_GRAY_RAMP + 6;

FilterWindow& windowOf(const Fl_Widget* widget) {
  return *static_cast<FilterWindow*>(widget->window());
}

void onSetting(Fl_Widget* widget, void* /*data*/) { windowOf(widget).takeSettings(); }

/// Whether the pointer is on the label of a type, to the right of its check box.
bool onWordsOf(const Fl_Check_Button& type) {
  int width = 0;
  int height = 0;
  type.measure_label(width, height);
  return Fl::event_inside(type.x() + type.w(), type.y(), width, type.h()) != 0;
}

void addTitle(Fl_Color background) {
  auto* title = new Fl_Text_Display(100, 40, 200, 80);
  auto* text = new Fl_Text_Buffer;
  text->text("\nFilter Settings");
  title->textsize(20);
  title->box(FL_NO_BOX);
  title->color(background);
  title->buffer(text);
}

void addButton(const PixelArea& area, const char* label, Fl_Callback* callback) {
  (new Fl_Button(area.x, area.y, area.w, area.h, label))->callback(callback);
}

}  // namespace

FilterWindow::FilterWindow() : Fl_Double_Window(0, 0, 400, 400, "Filter Window") {
  addTitle(color());
  highPass_ = addType(filter_place::kHighPass, "High Pass");
  lowPass_ = addType(filter_place::kLowPass, "Low Pass");
  bandPass_ = addType(filter_place::kBandPass, "Band Pass");
  l1_ = addInput(filter_place::kL1, "L1");
  l2_ = addInput(filter_place::kL2, "L2");
  for (const PixelArea& input : {filter_place::kL1, filter_place::kL2}) {
    (new Fl_Box(input.x + input.w + 2, input.y, 40, input.h, "mm"))
        ->align(FL_ALIGN_LEFT | FL_ALIGN_INSIDE);
  }
  constexpr PixelArea hint = filter_place::kHint;
  hint_ = new Fl_Box(hint.x, hint.y, hint.w, hint.h);
  hint_->align(FL_ALIGN_LEFT | FL_ALIGN_INSIDE | FL_ALIGN_CLIP);
  hint_->labelsize(13);
  hint_->labelcolor(kQuiet);
  addButton(filter_place::kApply, "Apply", [](Fl_Widget* widget, void*) {
    FilterWindow& window = windowOf(widget);
    if (window.onApply) window.onApply();
  });
  addButton(filter_place::kCancel, "Cancel",
            [](Fl_Widget* widget, void*) { windowOf(widget).hide(); });
  end();
  hide();
  takeSettings();
}

int FilterWindow::handle(int event) {
  if (event == FL_PUSH) {
    for (Fl_Check_Button* type : {highPass_, lowPass_, bandPass_}) {
      if (!onWordsOf(*type)) continue;
      type->setonly();
      takeSettings();
      return 1;
    }
  }
  return Fl_Double_Window::handle(event);
}

Fl_Check_Button* FilterWindow::addType(const PixelArea& area, const char* label) {
  auto* button = new Fl_Check_Button(area.x, area.y, area.w, area.h, label);
  button->type(FL_RADIO_BUTTON);
  button->align(FL_ALIGN_RIGHT);
  button->callback(onSetting);
  return button;
}

Fl_Float_Input* FilterWindow::addInput(const PixelArea& area, const char* label) {
  auto* input = new NumberInput(area.x, area.y, area.w, area.h, label);
  input->when(FL_WHEN_CHANGED);
  input->callback(onSetting);
  return input;
}

FilterSettings FilterWindow::settings() const {
  return {.l1 = l1_->value(),
          .l2 = l2_->value(),
          .highPass = highPass_->value() != 0,
          .lowPass = lowPass_->value() != 0,
          .bandPass = bandPass_->value() != 0};
}

void FilterWindow::takeSettings() {
  bandPass_->value() != 0 ? l2_->activate() : l2_->deactivate();
  updateHint();
}

bool FilterWindow::updateHint() {
  const std::string hint = filterHint(settings(), header ? header() : ResHeader{});
  showHint(hint);
  return !hint.empty();
}

void FilterWindow::showHint(const std::string& text) {
  hint_->copy_label(text.c_str());
  hint_->parent()->redraw();
}

void FilterWindow::placeOnce(int x, int y) {
  if (!std::exchange(placed_, true)) position(x, y);
}

}  // namespace morvane
