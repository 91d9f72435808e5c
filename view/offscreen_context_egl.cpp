#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/glew.h>

#include <cstring>

#include "view/offscreen_context.h"

namespace morvane {
namespace {

bool hasWord(const char* words, const char* word) {
  return words != nullptr && std::strstr(words, word) != nullptr;
}

/// A display without a screen where the driver has one; else the default display.
EGLDisplay openDisplay() {
  if (hasWord(eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS), "EGL_MESA_platform_surfaceless")) {
    return eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA,
                                 reinterpret_cast<void*>(EGL_DEFAULT_DISPLAY), nullptr);
  }
  return eglGetDisplay(EGL_DEFAULT_DISPLAY);
}

class EglContext : public OffscreenContext {
 public:
  ~EglContext() override {
    if (display_ == EGL_NO_DISPLAY) return;
    eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    if (context_ != EGL_NO_CONTEXT) eglDestroyContext(display_, context_);
    eglTerminate(display_);
  }

  /// Returns the step that failed; null on success.
  const char* open() {
    display_ = openDisplay();
    if (display_ == EGL_NO_DISPLAY || eglInitialize(display_, nullptr, nullptr) == EGL_FALSE) {
      display_ = EGL_NO_DISPLAY;
      return "EGL has no display";
    }
    if (eglBindAPI(EGL_OPENGL_API) == EGL_FALSE) return "EGL has no OpenGL";
    constexpr EGLint kWanted[] = {EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_SURFACE_TYPE,
                                  EGL_DONT_CARE, EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    eglChooseConfig(display_, kWanted, &config, 1, &count);
    if (count == 0) return "EGL has no configuration for OpenGL";
    context_ = eglCreateContext(display_, config, EGL_NO_CONTEXT, nullptr);
    if (context_ == EGL_NO_CONTEXT) return "EGL makes no context";
    if (eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, context_) == EGL_FALSE) {
      return "EGL needs a surface";
    }
    return nullptr;
  }

 private:
  EGLDisplay display_ = EGL_NO_DISPLAY;
  EGLContext context_ = EGL_NO_CONTEXT;
};

}  // namespace

std::unique_ptr<OffscreenContext> OffscreenContext::create(std::string& trouble) {
  auto context = std::make_unique<EglContext>();
  if (const char* step = context->open()) {
    trouble = step;
    return nullptr;
  }
  glewInit();  // its error is only that there is no GLX display
  if (glCreateShader == nullptr || glRenderbufferStorageMultisample == nullptr) {
    trouble = "the driver lacks OpenGL 3.0";
    return nullptr;
  }
  return context;
}

}  // namespace morvane
