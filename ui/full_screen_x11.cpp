// The toolkit knows, but keeps it with what is its own.
#define FL_INTERNALS
#include "ui/full_screen.h"

#include <FL/x.H>

namespace morvane {

bool canFillScreen() { return Fl_X::ewmh_supported() != 0; }

}  // namespace morvane
