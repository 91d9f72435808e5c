#include "batch/batch.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "base/debug_log.h"
#include "base/paths.h"
#include "batch/file_job.h"
#include "batch/options.h"
#include "batch/progress.h"

namespace morvane {

namespace {

/// `text` with "?" in place of control characters: a file's name may hold a line feed.
std::string plainLine(std::string text) {
  const auto isControl = [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; };
  std::ranges::replace_if(text, isControl, '?');
  return text;
}

}  // namespace

bool hasOptions(const std::vector<std::string>& words) {
  const auto isOption = [](const std::string& word) { return word.starts_with('-'); };
  return !words.empty() && std::any_of(words.begin() + 1, words.end(), isOption);
}

std::optional<int> runBatch(const std::vector<std::string>& words, const std::string& exeFolder) {
  if (!hasOptions(words)) return std::nullopt;
  const Reading reading = readOptions(words);
  if (reading.status) {
    std::fputs(reading.error.c_str(), stderr);
    if (std::fputs(reading.output.c_str(), stdout) >= 0 && std::fflush(stdout) == 0) {
      return reading.status;
    }
    std::fprintf(stderr, "standard output: %s\n", std::strerror(errno));
    return 1;
  }
  const BatchOptions& options = reading.options;
  setLogTarget(options.verbose ? LogTarget::kErrors : LogTarget::kNowhere);
  FileJobs jobs(options, resourcePath(exeFolder, "Fonts", "arial.ttf"));
  int failed = 0;
  Progress progress(options.verbose ? 0 : options.files.size());
  for (const std::string& file : options.files) {
    progress.next(file);
    const std::string reason = jobs.run(file);
    if (reason.empty()) continue;
    progress.erase();
    std::fprintf(stderr, "%s\n", plainLine(file + ": " + reason).c_str());
    ++failed;
  }
  progress.erase();
  const std::string reason = jobs.finish();
  if (!reason.empty()) std::fprintf(stderr, "%s\n", reason.c_str());
  return failed == 0 && reason.empty() ? 0 : 1;
}

}  // namespace morvane
