#include "ui/status_line.h"

#include <FL/Fl.H>
#include <FL/fl_draw.H>

#include <algorithm>

#include "ui/app_state.h"
#include "ui/draw_pending.h"
#include "ui/gl_window.h"
#include "ui/wrapped_text.h"
#include "widgets/look.h"

namespace morvane {
namespace {

constexpr double kSeconds = 3.0;
constexpr int kTextSize = 16;
constexpr int kPadding = 8;  // around the text
constexpr int kMargin = 12;  // to the view's edges

}  // namespace

StatusLine::StatusLine() : Fl_Window(0, 0, 1, 1) {
  color(kBlack);
  end();
  hide();
}

void StatusLine::say(const std::string& text) {
  held_ = false;
  put(text);
  Fl::add_timeout(kSeconds, expire, this);
}

void StatusLine::hold(const std::string& text) {
  held_ = true;
  put(text);
  drawPending();
}

void StatusLine::release() {
  if (!held_) return;
  held_ = false;
  Fl::add_timeout(0.0, expire, this);
}

void StatusLine::put(const std::string& text) {
  Fl::remove_timeout(expire, this);
  text_ = text;
  showInPlace();
}

void StatusLine::place() {
  if (visible() != 0) showInPlace();
}

void StatusLine::showInPlace() {
  const AppState& app = appState();
  const GLWindow& view = *app.glView;
  fl_font(FL_HELVETICA, kTextSize);
  lines_ = wrappedText(text_, view.w() - 2 * (kMargin + kPadding));
  int width = 0;
  int height = 0;
  fl_measure(lines_.c_str(), width, height, 0);
  width += 2 * kPadding;
  height += 2 * kPadding;
  int bottom = view.y() + view.h();
  if (app.consolePanel->visible() != 0) bottom = std::min(bottom, app.consolePanel->y());
  resize(view.x() + (view.w() - width) / 2, bottom - kMargin - height, width, height);
  show();  // in front
  redraw();
}

int StatusLine::handle(int event) {
  if (event != FL_PUSH && event != FL_MOUSEWHEEL) return Fl_Window::handle(event);
  hide();
  return 1;
}

void StatusLine::draw() {
  fl_rectf(0, 0, w(), h(), kBlack);
  fl_color(kWhite);
  fl_rect(0, 0, w(), h());
  fl_font(FL_HELVETICA, kTextSize);
  fl_draw(lines_.c_str(), kPadding, kPadding, w() - 2 * kPadding, h() - 2 * kPadding,
          FL_ALIGN_CENTER, nullptr, 0);
}

void StatusLine::expire(void* line) { static_cast<StatusLine*>(line)->hide(); }

}  // namespace morvane
