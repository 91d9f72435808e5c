#include "ui/readout.h"

#include <FL/fl_draw.H>

#include <algorithm>

#include "ui/app_state.h"
#include "ui/gl_window.h"
#include "widgets/look.h"

namespace morvane {
namespace {

constexpr int kTextSize = 14;
constexpr int kPadding = 6;  // beside the text
constexpr int kHeight = 22;

}  // namespace

Readout::Readout() : Fl_Window(0, 0, 1, 1) {
  color(kBlack);
  end();
  hide();
}

void Readout::setOn(bool on) {
  on_ = on;
  update();
}

void Readout::update() {
  const AppState& app = appState();
  const GLWindow& view = *app.glView;
  text_ = on_ ? app.glView->pointUnderCursor() : "";
  if (text_.empty()) return hide();
  fl_font(FL_HELVETICA, kTextSize);
  const int wanted = static_cast<int>(fl_width(text_.c_str())) + 2 * kPadding;
  // It does not shrink while it is visible, so that it does not flicker.
  const int width = std::min(visible() != 0 ? std::max(w(), wanted) : wanted, view.w());
  int bottom = view.y() + view.h();
  if (app.consolePanel->visible() != 0) bottom = std::min(bottom, app.consolePanel->y());
  resize(view.x(), bottom - kHeight, width, kHeight);
  if (visible() == 0) show();
  redraw();
}

void Readout::draw() {
  fl_rectf(0, 0, w(), h(), kBlack);
  fl_color(kWhite);
  fl_font(FL_HELVETICA, kTextSize);
  fl_draw(text_.c_str(), kPadding, 0, w() - 2 * kPadding, h(), FL_ALIGN_LEFT, nullptr, 0);
}

}  // namespace morvane
