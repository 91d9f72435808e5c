// A file that appears under its name only when it is complete.
#pragma once

#include <cstddef>
#include <string>

#include "base/byte_sink.h"
#include "base/file_io.h"

namespace morvane {

/// Writes a temporary file beside the target, which replaces the target on `commit()`. Without a
/// commit, or when any step fails, the target is unchanged and the temporary file is removed.
class SafeFile : public ByteSink {
 public:
  /// Starts writing for `target` (UTF-8 path). A failure is reported by `commit()`.
  explicit SafeFile(std::string target);
  ~SafeFile() override;

  void write(const void* data, std::size_t bytes) override;
  [[nodiscard]] bool failed() const override { return !reason_.empty(); }

  /// Completes the file and gives it the target's name. Returns an empty text on success, else the
  /// system's error message.
  [[nodiscard]] std::string commit();

 private:
  void keepReason();
  void removeTemporary();

  std::string target_;
  std::string temporary_;
  FilePtr file_;
  std::string reason_;
};

/// Removes temporary files from `folder` (UTF-8) that processes left there when they were killed.
void removeAbandoned(const std::string& folder);

}  // namespace morvane
