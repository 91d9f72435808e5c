#include "view/vertex_buffer.h"

#include "view/gl_driver.h"

namespace morvane {
namespace {

bool drawsFromOwnPages() { return GLEW_AMD_pinned_memory && isSoftwareGl(); }

// Only errors of the following calls matter.
void forgetErrors() { takeGlErrors("surface"); }

}  // namespace

void VertexBuffer::empty() {
  // Before the pages are freed: no buffer may refer to them.
  glBindBuffer(GL_ARRAY_BUFFER, name());
  glBufferData(GL_ARRAY_BUFFER, 0, nullptr, GL_STATIC_DRAW);
  pages_.reset();
  floats_ = {};
}

bool VertexBuffer::open(std::size_t floats) {
  empty();
  const std::size_t bytes = floats * sizeof(float);
  if (!(drawsFromOwnPages() && openPages(bytes)) && !openMapped(bytes)) return false;
  floats_ = floats_.first(floats);
  return true;
}

bool VertexBuffer::openPages(std::size_t bytes) {
  pages_ = freshPages(bytes);
  floats_ = {reinterpret_cast<float*>(pages_.get()), pages_ ? bytes / sizeof(float) : 0};
  return pages_ != nullptr;
}

bool VertexBuffer::openMapped(std::size_t bytes) {
  forgetErrors();
  glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(bytes), nullptr, GL_STATIC_DRAW);
  if (glGetError() != GL_NO_ERROR) return false;
  void* memory = glMapBufferRange(GL_ARRAY_BUFFER, 0, static_cast<GLsizeiptr>(bytes),
                                  GL_MAP_WRITE_BIT | GL_MAP_INVALIDATE_BUFFER_BIT);
  floats_ = {static_cast<float*>(memory), memory != nullptr ? bytes / sizeof(float) : 0};
  return memory != nullptr;
}

bool VertexBuffer::close() {
  const std::size_t bytes = floats_.size_bytes();
  floats_ = {};
  if (!pages_) {
    glBindBuffer(GL_ARRAY_BUFFER, name());
    return glUnmapBuffer(GL_ARRAY_BUFFER) == GL_TRUE;
  }
  forgetErrors();
  glBindBuffer(GL_EXTERNAL_VIRTUAL_MEMORY_BUFFER_AMD, name());
  glBufferData(GL_EXTERNAL_VIRTUAL_MEMORY_BUFFER_AMD, static_cast<GLsizeiptr>(bytes), pages_.get(),
               GL_STATIC_DRAW);
  glBindBuffer(GL_EXTERNAL_VIRTUAL_MEMORY_BUFFER_AMD, 0);
  return glGetError() == GL_NO_ERROR;
}

}  // namespace morvane
