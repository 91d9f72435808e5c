#include "ui/owned_window.h"

#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>

#include "ui/app_state.h"

namespace morvane {

void showOwned(Fl_Window& window) {
  // The toolkit gives such a window to the one that is first when it is made.
  Fl::first_window(appState().mainWindow);
  if (!window.shown()) window.set_non_modal();
  window.show();
}

}  // namespace morvane
