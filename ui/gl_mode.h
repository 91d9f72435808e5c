// The frame buffer mode of the program's GL windows.
#pragma once

#include <FL/Enumerations.H>

namespace morvane {

inline constexpr int kGlMode = FL_RGB | FL_ALPHA | FL_DOUBLE | FL_DEPTH | FL_MULTISAMPLE;

}  // namespace morvane
