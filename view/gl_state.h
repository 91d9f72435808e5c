// Scoped GL state: set in the constructor and restored in the destructor.
#pragma once

#include <GL/glew.h>

namespace morvane {

/// Enables or disables a capability of the current context.
class GlSwitch {
 public:
  GlSwitch(GLenum capability, bool on)
      : capability_(capability), was_(glIsEnabled(capability) == GL_TRUE) {
    set(on);
  }
  ~GlSwitch() { set(was_); }
  GlSwitch(const GlSwitch&) = delete;
  GlSwitch& operator=(const GlSwitch&) = delete;

 private:
  void set(bool on) const { on ? glEnable(capability_) : glDisable(capability_); }

  GLenum capability_;
  bool was_;
};

/// Enables alpha blending and back-face culling.
class GlBlending {
 public:
  GlBlending() { glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA); }

 private:
  GlSwitch blend_{GL_BLEND, true};
  GlSwitch cull_{GL_CULL_FACE, true};
};

/// Disables writing to the depth buffer.
class GlDepthReadOnly {
 public:
  GlDepthReadOnly() { glDepthMask(GL_FALSE); }
  ~GlDepthReadOnly() { glDepthMask(GL_TRUE); }
  GlDepthReadOnly(const GlDepthReadOnly&) = delete;
  GlDepthReadOnly& operator=(const GlDepthReadOnly&) = delete;
};

/// Lets points at the depth of what is drawn already pass the depth test.
class GlDepthOrEqual {
 public:
  GlDepthOrEqual() {
    glGetIntegerv(GL_DEPTH_FUNC, &was_);
    glDepthFunc(GL_LEQUAL);
  }
  ~GlDepthOrEqual() { glDepthFunc(static_cast<GLenum>(was_)); }
  GlDepthOrEqual(const GlDepthOrEqual&) = delete;
  GlDepthOrEqual& operator=(const GlDepthOrEqual&) = delete;

 private:
  GLint was_ = GL_LESS;
};

/// Draws into the front buffer of the window instead of the back buffer.
class GlFrontBuffer {
 public:
  GlFrontBuffer() { glDrawBuffer(GL_FRONT); }
  ~GlFrontBuffer() {
    glFlush();
    glDrawBuffer(GL_BACK);
  }
  GlFrontBuffer(const GlFrontBuffer&) = delete;
  GlFrontBuffer& operator=(const GlFrontBuffer&) = delete;
};

/// Sets the size of points to `size` pixels.
class GlPointSize {
 public:
  explicit GlPointSize(float size) {
    glGetFloatv(GL_POINT_SIZE, &was_);
    glPointSize(size);
  }
  ~GlPointSize() { glPointSize(was_); }
  GlPointSize(const GlPointSize&) = delete;
  GlPointSize& operator=(const GlPointSize&) = delete;

 private:
  GLfloat was_ = 1.0F;
};

/// Sets the line width to `width` pixels.
class GlLineWidth {
 public:
  explicit GlLineWidth(float width) {
    glGetFloatv(GL_LINE_WIDTH, &was_);
    glLineWidth(width);
  }
  ~GlLineWidth() { glLineWidth(was_); }
  GlLineWidth(const GlLineWidth&) = delete;
  GlLineWidth& operator=(const GlLineWidth&) = delete;

 private:
  GLfloat was_ = 1.0F;
};

}  // namespace morvane
