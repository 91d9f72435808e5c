#include "resfile/safe_file.h"

#include <cerrno>
#include <cstring>
#include <utility>

namespace morvane {

SafeFile::SafeFile(std::string target)
    : target_(std::move(target)),
      temporary_(temporaryNameBeside(target_)),
      file_(createForWriting(temporary_)) {
  if (!file_) keepReason();
}

std::string temporaryNameBeside(const std::string& path) {
  const std::string base = path.substr(0, path.find_last_of("/\\") + 1) + "morvane.part";
  std::string name = base;
  for (int number = 2; fileExists(name); ++number) name = base + std::to_string(number);
  return name;
}

SafeFile::~SafeFile() {
  if (file_) {
    file_.reset();
    removeFile(temporary_);
  }
}

void SafeFile::write(const void* data, std::size_t bytes) {
  if (!reason_.empty() || bytes == 0) return;
  if (std::fwrite(data, 1, bytes, file_.get()) != bytes) keepReason();
}

std::string SafeFile::commit() {
  if (reason_.empty() && !syncFile(file_.get())) keepReason();
  if (!file_) return reason_;
  file_.reset();
  if (reason_.empty() && !replaceFile(temporary_, target_)) keepReason();
  if (!reason_.empty()) removeFile(temporary_);
  return reason_;
}

void SafeFile::keepReason() { reason_ = std::strerror(errno); }

}  // namespace morvane
