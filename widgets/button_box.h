// The program's own button box: a filled rectangle with a one-pixel white outline.
#pragma once

#include <FL/Enumerations.H>

namespace morvane {

/// The number of the box type: the first one that FLTK leaves free.
Fl_Boxtype buttonBox();

/// Registers the box type with FLTK. May be called more than once.
void registerButtonBox();

}  // namespace morvane
