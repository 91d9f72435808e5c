// A compiled and linked pair of GLSL shaders.
#pragma once

#include <GL/glew.h>

#include <string_view>

namespace morvane {

/// The sources of one program, and the names of its shaders in the log.
struct ShaderSource {
  const char* vertexName;
  const char* fragmentName;
  const char* vertex;
  const char* fragment;
};

/// Move-only owner of a GL program.
class ShaderProgram {
 public:
  ShaderProgram() = default;
  /// Compiles and links in the current context. On failure it prints the driver's message; the
  /// program can be used but draws nothing.
  explicit ShaderProgram(const ShaderSource& source);
  ~ShaderProgram();
  ShaderProgram(ShaderProgram&& other) noexcept;
  ShaderProgram& operator=(ShaderProgram&& other) noexcept;
  ShaderProgram(const ShaderProgram&) = delete;
  ShaderProgram& operator=(const ShaderProgram&) = delete;

  [[nodiscard]] GLuint name() const { return name_; }
  /// Whether the program was linked.
  [[nodiscard]] bool usable() const { return usable_; }
  /// The location of a uniform; −1, which GL ignores, when there is none of that name.
  [[nodiscard]] GLint uniform(const char* name) const { return glGetUniformLocation(name_, name); }

 private:
  GLuint name_ = 0;
  bool usable_ = false;
};

}  // namespace morvane
