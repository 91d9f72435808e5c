// Errors of OpenGL, told where they arise, for tests and trials.
#pragma once

namespace morvane {

/// Writes one line to standard error for each error that OpenGL has recorded, when the environment
/// variable MORVANE_CHECK_GL is set; `frame` says which window's frame has just been drawn. Needs a
/// current context.
void checkGl(const char* frame);

}  // namespace morvane
