// Loads the GL driver before the first measurement needs it.
#pragma once

class Fl_Group;

namespace morvane {

/// Loads the driver with a window of one black pixel in the corner of `parent`, which must be
/// shown. That takes a noticeable part of a second, and the operator is still choosing a file. Does
/// nothing without GL.
void warmUpGl(Fl_Group& parent);

}  // namespace morvane
