#include "base/safe_file.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/paths.h"

namespace morvane {
namespace {

constexpr std::string_view kEnding = ".part";

/// The prefix of temporary names. It holds the host name, since the folder may be on a network
/// share.
std::string prefix() { return ".morvane-" + ownMachine() + '-'; }

/// An unused short name in the folder of `path`. It holds the process id, so no other process uses
/// it.
std::string temporaryNameBeside(const std::string& path) {
  const std::string base = folderPrefix(path) + prefix() + std::to_string(ownProcess());
  for (int number = 1;; ++number) {
    std::string name = base + '-' + std::to_string(number);
    name += kEnding;
    if (!fileExists(name)) return name;
  }
}

/// The id of the process on this host that made the temporary file `name`; 0 for any other file.
long processOf(std::string_view name) {
  const std::string start = prefix();
  if (!name.starts_with(start) || !name.ends_with(kEnding)) return 0;
  name.remove_prefix(start.size());
  long process = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
  return error == std::errc() && *end == '-' && process > 0 ? process : 0;
}

}  // namespace

SafeFile::SafeFile(std::string target)
    : target_(std::move(target)),
      temporary_(temporaryNameBeside(target_)),
      file_(createForWriting(temporary_)) {
  if (!file_) keepReason();
}

SafeFile::~SafeFile() {
  if (file_) removeTemporary();
}

void SafeFile::write(const void* data, std::size_t bytes) {
  if (!reason_.empty() || bytes == 0) return;
  if (std::fwrite(data, 1, bytes, file_.get()) != bytes) keepReason();
}

std::string SafeFile::commit() {
  if (reason_.empty() && !(syncFile(file_.get()) && giveName(file_.get(), temporary_))) {
    keepReason();
  }
  if (!file_) return reason_;
  if (!reason_.empty()) {
    removeTemporary();
    return reason_;
  }
  file_.reset();
  if (!replaceFile(temporary_, target_)) {
    keepReason();
    removeFile(temporary_);
  }
  return reason_;
}

void SafeFile::removeTemporary() {
  const bool named = hasName(file_.get());
  file_.reset();
  if (named) removeFile(temporary_);
}

void removeAbandoned(const std::string& folder) {
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::path path(std::u8string(folder.begin(), folder.end()));
  for (fs::directory_iterator entry(path, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::u8string name = entry->path().filename().u8string();
    const long process = processOf({reinterpret_cast<const char*>(name.data()), name.size()});
    std::error_code ignored;
    if (process != 0 && !isRunning(process)) fs::remove(entry->path(), ignored);
  }
}

void SafeFile::keepReason() { reason_ = std::strerror(errno); }

}  // namespace morvane
