// Owners of GL objects. Each deletes its object, if a context is current.
#pragma once

#include <GL/glew.h>

#include <utility>

namespace morvane {

/// Move-only owner of one GL object. `Kind` says how it is created and deleted.
template <typename Kind>
class GlObject {
 public:
  GlObject() = default;
  ~GlObject() { reset(); }
  GlObject(GlObject&& other) noexcept : name_(std::exchange(other.name_, 0)) {}
  GlObject& operator=(GlObject&& other) noexcept {
    if (this != &other) {
      reset();
      name_ = std::exchange(other.name_, 0);
    }
    return *this;
  }
  GlObject(const GlObject&) = delete;
  GlObject& operator=(const GlObject&) = delete;

  /// Creates an object in the current context.
  static GlObject generate() {
    GlObject object;
    Kind::generate(&object.name_);
    return object;
  }

  [[nodiscard]] GLuint name() const { return name_; }

  /// Forgets the object without deleting it, for objects that were destroyed with their context.
  void forget() { name_ = 0; }

  void reset() {
    if (name_ != 0) Kind::release(&name_);
    name_ = 0;
  }

 private:
  GLuint name_ = 0;
};

struct BufferKind {
  static void generate(GLuint* name) { glGenBuffers(1, name); }
  static void release(const GLuint* name) { glDeleteBuffers(1, name); }
};
struct VertexArrayKind {
  static void generate(GLuint* name) { glGenVertexArrays(1, name); }
  static void release(const GLuint* name) { glDeleteVertexArrays(1, name); }
};

struct TextureKind {
  static void generate(GLuint* name) { glGenTextures(1, name); }
  static void release(const GLuint* name) { glDeleteTextures(1, name); }
};

struct FramebufferKind {
  static void generate(GLuint* name) { glGenFramebuffers(1, name); }
  static void release(const GLuint* name) { glDeleteFramebuffers(1, name); }
};

struct RenderbufferKind {
  static void generate(GLuint* name) { glGenRenderbuffers(1, name); }
  static void release(const GLuint* name) { glDeleteRenderbuffers(1, name); }
};

using GlBuffer = GlObject<BufferKind>;
using GlVertexArray = GlObject<VertexArrayKind>;
using GlTexture = GlObject<TextureKind>;
using GlFramebuffer = GlObject<FramebufferKind>;
using GlRenderbuffer = GlObject<RenderbufferKind>;

}  // namespace morvane
