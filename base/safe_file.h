// A file that appears under its name only when it is complete.
#pragma once

#include <cstddef>
#include <string>

#include "base/file_io.h"

namespace morvane {

/// Writes to a temporary name beside the target and puts it in the target's place on `commit()`.
/// Without a commit, or when any step failed, the target is as it was before and nothing is left.
class SafeFile {
 public:
  /// Starts writing for `target` (UTF-8 path). A failure shows at `commit()`.
  explicit SafeFile(std::string target);
  ~SafeFile();
  SafeFile(const SafeFile&) = delete;
  SafeFile& operator=(const SafeFile&) = delete;

  /// Appends `bytes` bytes; after a failure further calls do nothing.
  void write(const void* data, std::size_t bytes);

  /// Finishes the file under the target's name. Empty on success, else the system's reason.
  [[nodiscard]] std::string commit();

 private:
  void keepReason();
  void removeTemporary();

  std::string target_;
  std::string temporary_;
  FilePtr file_;
  std::string reason_;
};

/// Removes from `folder` (UTF-8) what `SafeFile`s of programs that have been killed left there.
void removeAbandoned(const std::string& folder);

}  // namespace morvane
