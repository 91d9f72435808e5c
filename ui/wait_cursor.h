// The wait cursor.
#pragma once

#include <FL/Fl_Double_Window.H>

#include "ui/app_state.h"

namespace morvane {

/// Shows the wait cursor over the main window during its lifetime.
class WaitCursor {
 public:
  WaitCursor() { appState().mainWindow->cursor(FL_CURSOR_WAIT); }
  ~WaitCursor() { appState().mainWindow->cursor(FL_CURSOR_DEFAULT); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace morvane
