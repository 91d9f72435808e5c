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

void addButton(int x, const char* label, Fl_Callback* callback) {
  (new Fl_Button(x, 350, 100, 30, label))->callback(callback);
}

}  // namespace

FilterWindow::FilterWindow() : Fl_Double_Window(0, 0, 400, 400, "Filter Window") {
  addTitle(color());
  highPass_ = addType(120, "High Pass");
  lowPass_ = addType(150, "Low Pass");
  bandPass_ = addType(180, "Band Pass");
  l1_ = addInput(230, "L1");
  l2_ = addInput(300, "L2");
  for (const int y : {230, 300}) {
    (new Fl_Box(232, y, 40, 30, "mm"))->align(FL_ALIGN_LEFT | FL_ALIGN_INSIDE);
  }
  hint_ = new Fl_Box(30, 332, 340, 16);
  hint_->align(FL_ALIGN_LEFT | FL_ALIGN_INSIDE | FL_ALIGN_CLIP);
  hint_->labelsize(13);
  hint_->labelcolor(kQuiet);
  addButton(60, "Apply", [](Fl_Widget* widget, void*) {
    FilterWindow& window = windowOf(widget);
    if (window.onApply) window.onApply();
  });
  addButton(240, "Cancel", [](Fl_Widget* widget, void*) { windowOf(widget).hide(); });
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

Fl_Check_Button* FilterWindow::addType(int y, const char* label) {
  auto* button = new Fl_Check_Button(30, y, 40, 30, label);
  button->type(FL_RADIO_BUTTON);
  button->align(FL_ALIGN_RIGHT);
  button->callback(onSetting);
  return button;
}

Fl_Float_Input* FilterWindow::addInput(int y, const char* label) {
  auto* input = new NumberInput(30, y, 200, 30, label);
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
