// The program's own button box: a filled rectangle with a one-pixel white outline.
#pragma once

#include <FL/Enumerations.H>

namespace morvane {

/// Number of the box type: the first one the toolkit leaves free.
Fl_Boxtype buttonBox();

/// Makes the toolkit know the box; may be called again.
void registerButtonBox();

}  // namespace morvane
