#include "batch/output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>

#include "base/file_io.h"
#include "base/safe_file.h"

namespace morvane {
namespace {

class StandardOutput : public ByteSink {
 public:
  void write(const void* data, std::size_t bytes) override {
    if (failed()) return;
    if (std::fwrite(data, 1, bytes, stdout) != bytes) reason_ = std::strerror(errno);
  }
  [[nodiscard]] bool failed() const override { return !reason_.empty(); }
  std::string finish() {
    if (!failed() && std::fflush(stdout) != 0) reason_ = std::strerror(errno);
    return reason_;
  }

 private:
  std::string reason_;
};

}  // namespace

std::string writeOutput(const std::string& path, const std::string& input, bool force,
                        const std::function<void(ByteSink&)>& writer) {
  try {
    if (path == "-") {
      StandardOutput output;
      writer(output);
      return output.finish();
    }
    if (isSameFile(input, path)) return "is the measurement itself";
    if (fileExists(path)) {
      if (!openForReading(path) && errno == EISDIR) return std::strerror(EISDIR);
      if (!force) return "exists; --force replaces it";
    }
    SafeFile file(path);
    writer(file);
    return file.commit();
  } catch (const std::bad_alloc&) {
    return std::strerror(ENOMEM);
  }
}

}  // namespace morvane
