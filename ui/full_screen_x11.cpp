// The toolkit knows, but keeps it with what is its own.
#define FL_INTERNALS
#include <FL/x.H>

#include "ui/full_screen.h"

namespace morvane {

bool canFillScreen() { return Fl_X::ewmh_supported() != 0; }

}  // namespace morvane
