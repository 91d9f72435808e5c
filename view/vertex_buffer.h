// A large vertex buffer whose floats are written in place, without a copy.
#pragma once

#include <cstddef>
#include <span>

#include "base/memory_advice.h"
#include "view/gl_objects.h"

namespace morvane {

/// All functions need a current GL context.
class VertexBuffer {
 public:
  /// Creates the GL buffer.
  void generate() { buffer_ = GlBuffer::generate(); }

  /// Frees the content and unmaps the buffer.
  void empty();
  /// Frees the content and maps memory for `floats` floats, write-only. False when there is not
  /// enough memory.
  [[nodiscard]] bool open(std::size_t floats);
  /// The mapped memory.
  [[nodiscard]] std::span<float> floats() const { return floats_; }
  /// Passes the data to GL. False when the driver lost it (glUnmapBuffer).
  [[nodiscard]] bool close();

  [[nodiscard]] GLuint name() const { return buffer_.name(); }

 private:
  bool openPages(std::size_t bytes);
  bool openMapped(std::size_t bytes);

  // A software GL can draw from the program's own pages. These are huge pages and are touched once.
  // In the driver's buffers the system would first clear small pages, which takes longer than
  // building a large surface. Declared first, as the pages must outlive the buffer.
  Pages pages_;
  GlBuffer buffer_;
  std::span<float> floats_;
};

}  // namespace morvane
