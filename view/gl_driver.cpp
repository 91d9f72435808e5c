#include "view/gl_driver.h"

#include <GL/glew.h>

#include <cstdio>
#include <cstring>

#include "base/paths.h"

namespace morvane {
namespace {

bool reportsWanted() {
  static const bool wanted = !environmentText("MORVANE_CHECK_GL").empty();
  return wanted;
}

}  // namespace

bool isSoftwareGl() {
  const auto* renderer = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
  return renderer != nullptr && std::strstr(renderer, "llvmpipe") != nullptr;
}

void checkGl(const char* frame) {
  if (reportsWanted()) takeGlErrors(frame);
}

void takeGlErrors(const char* frame) {
  constexpr int kMax = 8;  // a lost context reports errors without end
  for (int i = 0; i < kMax; ++i) {
    const GLenum error = glGetError();
    if (error == GL_NO_ERROR) return;
    if (reportsWanted()) {
      std::fprintf(stderr, "GL error 0x%04X in a frame of the %s\n", error, frame);
    }
  }
}

void tellFrame(bool whole) {
  if (reportsWanted()) std::fputs(whole ? "frame: whole\n" : "frame: coarse\n", stderr);
}

}  // namespace morvane
