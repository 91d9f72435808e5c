#include "base/debug_log.h"

#include <cstddef>
#include <cstdio>
#include <streambuf>
#include <string>

#include "base/process.h"

namespace morvane {
namespace {

LogTarget logTarget = LogTarget::kOutput;

/// Writes as much of `text` as fits without blocking. Returns the number of bytes.
std::size_t writePieces(std::string_view text) {
  std::size_t written = 0;
  while (written < text.size()) {
    const std::size_t piece = writeOutput(text.substr(written));
    if (piece == 0) break;
    written += piece;
  }
  return written;
}

class LogBuffer : public std::streambuf {
 public:
  LogBuffer() = default;
  ~LogBuffer() override {
    if (!line_.empty()) endLine();
  }
  LogBuffer(const LogBuffer&) = delete;
  LogBuffer& operator=(const LogBuffer&) = delete;

 protected:
  int_type overflow(int_type character) override {
    if (traits_type::eq_int_type(character, traits_type::eof())) return 0;
    line_ += traits_type::to_char_type(character);
    if (line_.back() == '\n') endLine();
    return character;
  }

 private:
  void endLine() {
    if (logTarget != LogTarget::kOutput) {
      if (logTarget == LogTarget::kErrors) std::fputs(line_.c_str(), stderr);
      line_.clear();
      return;
    }
    if (dropped_ > 0 && take("(log) -- lines dropped: " + std::to_string(dropped_) + '\n')) {
      dropped_ = 0;
    }
    if (dropped_ > 0 || !take(line_)) ++dropped_;
    line_.clear();
  }

  /// Writes `text` if any of it fits, and returns whether it did. After a partial write the rest is
  /// written before anything else.
  bool take(std::string_view text) {
    rest_.erase(0, writePieces(rest_));
    if (!rest_.empty()) return false;
    const std::size_t written = writePieces(text);
    if (written == 0) return false;
    rest_ = text.substr(written);
    return true;
  }

  std::string line_, rest_;
  std::size_t dropped_ = 0;
};

}  // namespace

std::ostream& logStream() {
  static LogBuffer buffer;
  static std::ostream stream(&buffer);
  return stream;
}

void setLogTarget(LogTarget target) { logTarget = target; }

void DebugLog::write(std::string_view /*file*/, std::string_view text) {
  logStream() << text;
  if (!text.ends_with('\n')) logStream() << '\n';
}

}  // namespace morvane
