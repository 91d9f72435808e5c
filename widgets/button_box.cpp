#include "widgets/button_box.h"

#include <FL/Fl.H>
#include <FL/fl_draw.H>

#include "widgets/look.h"

namespace morvane {
namespace {

void drawButtonBox(int x, int y, int w, int h, Fl_Color colour) {
  fl_color(colour);
  fl_rectf(x, y, w, h);
  fl_color(kWhite);
  fl_rect(x, y, w, h);
}

}  // namespace

Fl_Boxtype buttonBox() { return FL_FREE_BOXTYPE; }

void registerButtonBox() { Fl::set_boxtype(buttonBox(), drawButtonBox, 1, 1, 2, 2); }

}  // namespace morvane
