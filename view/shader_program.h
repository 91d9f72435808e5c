// A compiled and linked pair of GLSL shaders.
#pragma once

#include <GL/glew.h>

#include <string_view>

namespace morvane {

/// The sources of one program and the names its parts carry in the compile log.
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
  /// Compiles and links in the current context. A failure is never fatal: the driver's message is
  /// printed, and the program, which then draws nothing, is there all the same.
  explicit ShaderProgram(const ShaderSource& source);
  ~ShaderProgram();
  ShaderProgram(ShaderProgram&& other) noexcept;
  ShaderProgram& operator=(ShaderProgram&& other) noexcept;
  ShaderProgram(const ShaderProgram&) = delete;
  ShaderProgram& operator=(const ShaderProgram&) = delete;

  [[nodiscard]] GLuint name() const { return name_; }
  /// Whether the program linked and so draws something.
  [[nodiscard]] bool usable() const { return usable_; }
  /// Location of a uniform; −1, which GL ignores, when the program has none of that name.
  [[nodiscard]] GLint uniform(const char* name) const { return glGetUniformLocation(name_, name); }

 private:
  GLuint name_ = 0;
  bool usable_ = false;
};

}  // namespace morvane
