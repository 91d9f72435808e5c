// The driver behind OpenGL: what it is, and what it complains of. A context must be current.
#pragma once

namespace morvane {

/// Whether the processor itself draws, so that what is kept for drawing is kept in main memory.
bool isSoftwareGl();

/// Writes one line to standard error for each error that OpenGL has recorded, when the environment
/// variable MORVANE_CHECK_GL is set; `frame` says which window's frame has just been drawn.
void checkGl(const char* frame);

/// Takes the errors recorded so far, so that those of what follows stand alone; told as above.
void takeGlErrors(const char* frame);

}  // namespace morvane
