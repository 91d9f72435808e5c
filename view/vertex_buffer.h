// A large vertex buffer whose floats are written in place, without a copy on the way.
#pragma once

#include <cstddef>
#include <span>

#include "base/memory_advice.h"
#include "view/gl_objects.h"

namespace morvane {

/// All of it needs a current GL context.
class VertexBuffer {
 public:
  /// Makes the buffer's name.
  void generate() { buffer_ = GlBuffer::generate(); }

  /// Lets the content go, and what was opened.
  void empty();
  /// Lets the content go and opens room for `floats` floats, to be written, never read. False when
  /// there is no memory for them.
  [[nodiscard]] bool open(std::size_t floats);
  /// The open room.
  [[nodiscard]] std::span<float> floats() const { return floats_; }
  /// Hands what was written to GL. False when the system lost it meanwhile.
  [[nodiscard]] bool close();

  [[nodiscard]] GLuint name() const { return buffer_.name(); }

 private:
  bool openPages(std::size_t bytes);
  bool openMapped(std::size_t bytes);

  // A software GL can draw from the program's own pages. Those come as huge pages and are touched
  // once, where a buffer of the driver's own is first cleared page by small page: for large
  // surfaces that costs more time than building them. They outlive the buffer, so they stand first.
  Pages pages_;
  GlBuffer buffer_;
  std::span<float> floats_;
};

}  // namespace morvane
