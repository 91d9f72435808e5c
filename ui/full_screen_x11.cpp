// FLTK knows this, but declares it among its internals.
#define FL_INTERNALS
#include "ui/full_screen.h"

#include <FL/x.H>

namespace morvane {

bool canFillScreen() { return Fl_X::ewmh_supported() != 0; }

}  // namespace morvane
