#include <windows.h>
// After windows.h, whose names it uses.
#include <GL/glew.h>

#include "view/offscreen_context.h"

namespace morvane {
namespace {

/// The context of a window that is never shown.
class HiddenWindowContext : public OffscreenContext {
 public:
  ~HiddenWindowContext() override {
    wglMakeCurrent(nullptr, nullptr);
    if (context_ != nullptr) wglDeleteContext(context_);
    if (device_ != nullptr) ReleaseDC(window_, device_);
    if (window_ != nullptr) DestroyWindow(window_);
  }

  /// Returns the step that failed; null on success.
  const char* open() {
    window_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    if (window_ == nullptr) return "no window can be made";
    device_ = GetDC(window_);
    PIXELFORMATDESCRIPTOR wanted{};
    wanted.nSize = sizeof wanted;
    wanted.nVersion = 1;
    wanted.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL;
    wanted.iPixelType = PFD_TYPE_RGBA;
    wanted.cColorBits = 24;
    const int format = ChoosePixelFormat(device_, &wanted);
    if (format == 0 || SetPixelFormat(device_, format, &wanted) == FALSE) {
      return "the display offers no OpenGL";
    }
    context_ = wglCreateContext(device_);
    if (context_ == nullptr || wglMakeCurrent(device_, context_) == FALSE) {
      return "no OpenGL context can be made";
    }
    return nullptr;
  }

 private:
  HWND window_ = nullptr;
  HDC device_ = nullptr;
  HGLRC context_ = nullptr;
};

}  // namespace

std::unique_ptr<OffscreenContext> OffscreenContext::create(std::string& trouble) {
  auto context = std::make_unique<HiddenWindowContext>();
  if (const char* step = context->open()) {
    trouble = step;
    return nullptr;
  }
  glewInit();
  if (glCreateShader == nullptr || glRenderbufferStorageMultisample == nullptr) {
    trouble = "the driver lacks OpenGL 3.0";
    return nullptr;
  }
  return context;
}

}  // namespace morvane
