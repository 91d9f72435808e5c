#include "ui/owned_window.h"

#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>

#include "ui/app_state.h"

namespace morvane {

void showOwned(Fl_Window& window) {
  // FLTK makes a new non-modal window transient for the first window of its list.
  Fl::first_window(appState().mainWindow);
  if (!window.shown()) window.set_non_modal();
  window.show();
}

}  // namespace morvane
