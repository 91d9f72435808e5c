#include "ui/gl_start.h"

#include <FL/Fl.H>
#include <GL/glew.h>

#include <array>
#include <cstdio>

#include "base/debug_log.h"

namespace morvane {
namespace {

constexpr const char* kLogFile = "GLWindow.log";

}  // namespace

std::string startGl() {
  DebugLog::write(kLogFile, "Initializing GLEW\n");
  const GLenum error = glewInit();
  if (error != GLEW_OK) {
    std::array<char, 64> message;
    std::snprintf(message.data(), message.size(), "glewInit() failed returning %u", error);
    Fl::warning("%s", message.data());
    DebugLog::write(kLogFile, message.data());
  }
  // glewInit may fail for the window system (GLX) only. What counts is whether the functions exist.
  if (glCreateShader != nullptr && glGenVertexArrays != nullptr && glMapBufferRange != nullptr) {
    return {};
  }
  const auto* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
  return std::string("the driver (OpenGL ") + (version ? version : "unknown") +
         ") lacks functions it needs";
}

}  // namespace morvane
