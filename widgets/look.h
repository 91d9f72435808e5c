// The colours of the program's windows.
#pragma once

#include <FL/Enumerations.H>

namespace morvane {

inline constexpr Fl_Color kBlack = 56;
inline constexpr Fl_Color kWhite = 255;

}  // namespace morvane
