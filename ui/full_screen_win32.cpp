#include "ui/full_screen.h"

namespace morvane {

bool canFillScreen() { return true; }

}  // namespace morvane
