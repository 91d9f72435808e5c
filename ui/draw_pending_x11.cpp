#include "ui/draw_pending.h"

#include <FL/Fl.H>
#include <FL/x.H>
#include <poll.h>

#include <chrono>
#include <string>

namespace morvane {
namespace {

/// Whether a compositor runs. It keeps the content of covered windows, so nothing has to be
/// redrawn.
bool keepsCovered() {
  const std::string name = "_NET_WM_CM_S" + std::to_string(fl_screen);
  return XGetSelectionOwner(fl_display, XInternAtom(fl_display, name.c_str(), False)) != None;
}

/// Handles Expose events; false when there were none.
bool handleExposures() {
  XEvent event;
  bool any = false;
  while (XCheckTypedEvent(fl_display, Expose, &event) != False) any = fl_handle(event) != 0 || any;
  return any;
}

}  // namespace

void drawPending() {
  XSync(fl_display, False);
  handleExposures();
  Fl::flush();
  XSync(fl_display, False);
}

void drawUncovered() {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::milliseconds(keepsCovered() ? 0 : 100);
  // The window manager removes the frame later than the program closes the window.
  while (!handleExposures() && Clock::now() < end) {
    pollfd connection{ConnectionNumber(fl_display), POLLIN, 0};
    poll(&connection, 1, 10);
  }
  drawPending();
}

}  // namespace morvane
