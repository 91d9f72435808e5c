// Loading the GL driver before the first measurement needs it.
#pragma once

class Fl_Group;

namespace morvane {

/// Has the driver loaded through a window of one black pixel in the corner of `parent`, which must
/// be shown. Drivers take a noticeable part of a second for that; the operator, who is still
/// looking for a file, does not notice. Does nothing where there is no GL.
void warmUpGl(Fl_Group& parent);

}  // namespace morvane
