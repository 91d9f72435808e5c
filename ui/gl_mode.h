// The frame buffer the program's GL windows ask for.
#pragma once

#include <FL/Enumerations.H>

namespace morvane {

inline constexpr int kGlMode = FL_RGB | FL_ALPHA | FL_DOUBLE | FL_DEPTH | FL_MULTISAMPLE;

}  // namespace morvane
