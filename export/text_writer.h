// Text in small pieces to a file in large ones.
#pragma once

#include <string>
#include <string_view>

#include "base/byte_sink.h"

namespace morvane {

/// So a writer of many numbers needs little memory and few system calls. The last piece is written
/// by the destructor.
class TextWriter {
 public:
  /// `sink` must outlive the object.
  explicit TextWriter(ByteSink& sink) : sink_(sink) {}
  ~TextWriter() { flush(); }
  TextWriter(const TextWriter&) = delete;
  TextWriter& operator=(const TextWriter&) = delete;

  void text(std::string_view piece) {
    pending_ += piece;
    if (pending_.size() >= kPiece) flush();
  }
  /// The shortest text that reads back to the same number.
  void number(double value);
  void number(float value);

  /// Whether a write has failed, so that the rest need not be computed.
  [[nodiscard]] bool failed() const { return sink_.failed(); }

 private:
  static constexpr std::size_t kPiece = 1U << 16U;
  void flush();

  ByteSink& sink_;
  std::string pending_;
};

}  // namespace morvane
