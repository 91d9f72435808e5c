#include "ui/quit_dialog.h"

#include <FL/Fl.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Text_Buffer.H>
#include <FL/Fl_Text_Display.H>

#include <cstdlib>
#include <memory>

#include "base/debug_log.h"
#include "ui/window_geometry.h"
#include "widgets/button_box.h"
#include "widgets/look.h"
#include "widgets/styles.h"

namespace morvane {
namespace {

/// Owns the text buffer; FLTK's widget tree owns the display.
class QuitDialog : public Fl_Double_Window {
 public:
  QuitDialog(int x, int y) : Fl_Double_Window(x, y, 400, 100, "Quit application?") {
    color(kBlack);
    text_.text("\tAre you sure you want to quit?");
    auto* display = new Fl_Text_Display(30, 20, 340, 40);
    display->box(FL_NO_BOX);
    display->color(kBlack);
    display->textcolor(kWhite);
    display->textsize(16);
    display->hide_cursor();
    display->scrollbar_width(0);
    display->buffer(&text_);
    addButton(quit_place::kYes, "Yes", [](Fl_Widget*, void*) { std::exit(1); });
    addButton(quit_place::kNo, "No", discard);
    end();
    callback(discard);
    set_modal();
  }
  ~QuitDialog() override { clear(); }

 private:
  static void addButton(const PixelArea& area, const char* label, Fl_Callback* action) {
    auto* button = new Fl_Button(area.x, area.y, area.w, area.h, label);
    styleButton(*button);
    button->callback(action);
  }

  static void discard(Fl_Widget* widget, void* /*data*/) {
    Fl_Window* dialog = widget->as_window() != nullptr ? widget->as_window() : widget->window();
    dialog->hide();
    Fl::delete_widget(dialog);
  }

  Fl_Text_Buffer text_;
};

}  // namespace

void confirmQuit(Fl_Widget* /*window*/, void* /*data*/) {
  // FLTK also closes a window on Escape, which would be a mistake here.
  if (Fl::event() == FL_SHORTCUT && Fl::event_key() == FL_Escape) return;
  registerButtonBox();
  logStream() << "Dimensions = " << Fl::w() << '\n';
  (new QuitDialog(Fl::w() / 2 - 200, Fl::h() / 2 - 65))->show();
}

}  // namespace morvane
