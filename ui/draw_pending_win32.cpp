#include "ui/draw_pending.h"

#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <FL/x.H>

#include "ui/app_state.h"

namespace morvane {

void drawPending() {
  RedrawWindow(fl_xid(appState().mainWindow), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  Fl::flush();
  GdiFlush();
}

void drawUncovered() { drawPending(); }

}  // namespace morvane
