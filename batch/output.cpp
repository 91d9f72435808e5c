#include "batch/output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>

#include "base/file_io.h"
#include "base/safe_file.h"
#include "export/report_page.h"

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

std::string outputPath(std::string pattern, const std::string& input) {
  constexpr std::string_view kName = "{name}";
  const std::string name = suggestedName(input);
  for (std::size_t at = 0; (at = pattern.find(kName, at)) != std::string::npos; at += name.size()) {
    pattern.replace(at, kName.size(), name);
  }
  return pattern;
}

std::string outputTrouble(const std::string& path, const std::string& input, bool force) {
  if (path == "-" || !fileExists(path)) return {};
  if (isSameFile(input, path)) return "is the measurement itself";
  if (!openForReading(path) && errno == EISDIR) return std::strerror(EISDIR);
  return force ? "" : "exists; --force replaces it";
}

std::string writeOutput(const std::string& path, const std::string& input, bool force,
                        const std::function<void(ByteSink&)>& writer) {
  try {
    if (path == "-") {
      StandardOutput output;
      writer(output);
      return output.finish();
    }
    std::string trouble = outputTrouble(path, input, force);
    if (!trouble.empty()) return trouble;
    SafeFile file(path);
    writer(file);
    return file.commit();
  } catch (const std::bad_alloc&) {
    return std::strerror(ENOMEM);
  }
}

}  // namespace morvane
