// The OpenGL driver: its kind and its errors. A context must be current.
#pragma once

namespace morvane {

/// Whether the driver is a software rasteriser, whose buffers are in main memory.
bool isSoftwareGl();

/// Writes a line to standard error for each error that OpenGL has recorded, if the environment
/// variable MORVANE_CHECK_GL is set. `frame` names the window whose frame has just been drawn.
void checkGl(const char* frame);

/// Clears the recorded errors, so that later errors can be told apart. They are reported as above.
void takeGlErrors(const char* frame);

/// Says on standard error that a frame of the view is on the screen, whole or coarse, if the
/// environment variable MORVANE_CHECK_GL is set.
void tellFrame(bool whole);

}  // namespace morvane
