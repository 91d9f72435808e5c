#include "view/shader_program.h"

#include <utility>
#include <vector>

#include "base/debug_log.h"

namespace morvane {
namespace {

GLuint compile(GLenum kind, const char* name, const char* source) {
  logStream() << "Compiling shader : " << name << '\n';
  const GLuint shader = glCreateShader(kind);
  glShaderSource(shader, 1, &source, nullptr);
  glCompileShader(shader);
  GLint length = 0;
  glGetShaderiv(shader, GL_INFO_LOG_LENGTH, &length);
  if (length > 0) {
    std::vector<char> message(static_cast<std::size_t>(length) + 1);
    glGetShaderInfoLog(shader, length, nullptr, message.data());
    logStream() << message.data() << '\n';
  }
  return shader;
}

}  // namespace

ShaderProgram::ShaderProgram(const ShaderSource& source) {
  const GLuint vertex = compile(GL_VERTEX_SHADER, source.vertexName, source.vertex);
  const GLuint fragment = compile(GL_FRAGMENT_SHADER, source.fragmentName, source.fragment);
  logStream() << "Linking program\n";
  name_ = glCreateProgram();
  glAttachShader(name_, vertex);
  glAttachShader(name_, fragment);
  glLinkProgram(name_);
  GLint linked = GL_FALSE;
  GLint length = 0;
  glGetProgramiv(name_, GL_LINK_STATUS, &linked);
  glGetProgramiv(name_, GL_INFO_LOG_LENGTH, &length);
  if (length > 0) {
    std::vector<char> message(static_cast<std::size_t>(length) + 1);
    glGetProgramInfoLog(name_, length, nullptr, message.data());
    logStream() << message.data() << '\n';
  }
  usable_ = linked == GL_TRUE;
  for (const GLuint shader : {vertex, fragment}) {
    glDetachShader(name_, shader);
    glDeleteShader(shader);
  }
}

ShaderProgram::~ShaderProgram() {
  if (name_ != 0) glDeleteProgram(name_);
}

ShaderProgram::ShaderProgram(ShaderProgram&& other) noexcept
    : name_(std::exchange(other.name_, 0)), usable_(std::exchange(other.usable_, false)) {}

ShaderProgram& ShaderProgram::operator=(ShaderProgram&& other) noexcept {
  std::swap(name_, other.name_);
  std::swap(usable_, other.usable_);
  return *this;
}

}  // namespace morvane
