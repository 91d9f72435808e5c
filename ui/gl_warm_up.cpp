#include "ui/gl_warm_up.h"

#include <FL/Fl_Gl_Window.H>
#include <FL/gl.h>

#include "ui/gl_mode.h"

namespace morvane {
namespace {

class OnePixel : public Fl_Gl_Window {
 public:
  OnePixel() : Fl_Gl_Window(0, 0, 1, 1) {
    mode(kGlMode);
    end();
  }

 protected:
  void draw() override {
    glClearColor(0.0F, 0.0F, 0.0F, 0.0F);
    glClear(GL_COLOR_BUFFER_BIT);
  }
};

}  // namespace

void warmUpGl(Fl_Group& parent) {
  if (Fl_Gl_Window::can_do(kGlMode) == 0) return;
  parent.begin();
  auto* pixel = new OnePixel;
  parent.end();
  pixel->show();
}

}  // namespace morvane
