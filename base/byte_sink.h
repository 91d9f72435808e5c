// Where the bytes of a file go, so that its writer need not know: a file being saved, or a text.
#pragma once

#include <cstddef>
#include <string>

namespace morvane {

class ByteSink {
 public:
  ByteSink() = default;
  virtual ~ByteSink() = default;
  ByteSink(const ByteSink&) = delete;
  ByteSink& operator=(const ByteSink&) = delete;

  /// Appends `bytes` bytes. After a failure it does nothing.
  virtual void write(const void* data, std::size_t bytes) = 0;
  /// Whether a write has failed. A writer of much data then stops.
  [[nodiscard]] virtual bool failed() const = 0;
};

/// Collects the bytes in memory, for the clipboard.
class TextSink : public ByteSink {
 public:
  void write(const void* data, std::size_t bytes) override {
    text.append(static_cast<const char*>(data), bytes);
  }
  [[nodiscard]] bool failed() const override { return false; }

  std::string text;
};

}  // namespace morvane
