#include "base/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "base/paths.h"

namespace morvane {
namespace {

constexpr const char* kOwnFiles = "/proc/self/fd/";

}  // namespace

FilePtr openForReading(const std::string& path) {
  // Without O_NONBLOCK, opening a named pipe would block until there is a writer.
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) return nullptr;
  struct stat status {};
  if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
    ::close(descriptor);
    errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    return nullptr;
  }
  std::FILE* file = ::fdopen(descriptor, "rb");
  if (file == nullptr) ::close(descriptor);
  return FilePtr(file);
}

std::uint64_t lengthOf(std::FILE* file) {
  struct stat status {};
  return ::fstat(::fileno(file), &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

FilePtr createForWriting(const std::string& path) {
  const std::string prefix = folderPrefix(path);
  const std::string folder = prefix.empty() ? "." : prefix;
  // An unnamed file is given its name through /proc/self/fd.
  const bool possible = ::access(kOwnFiles, X_OK) == 0;
  const int file = possible ? ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666) : -1;
  if (file >= 0) return FilePtr(::fdopen(file, "wb"));
  return FilePtr(std::fopen(path.c_str(), "wbx"));
}

bool hasName(std::FILE* file) {
  struct stat status {};
  return ::fstat(::fileno(file), &status) == 0 && status.st_nlink > 0;
}

bool giveName(std::FILE* file, const std::string& path) {
  if (hasName(file)) return true;
  const std::string nameless = kOwnFiles + std::to_string(::fileno(file));
  return ::linkat(AT_FDCWD, nameless.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

bool fileExists(const std::string& path) { return ::access(path.c_str(), F_OK) == 0; }

bool isSameFile(const std::string& a, const std::string& b) {
  struct stat first {};
  struct stat second {};
  return ::stat(a.c_str(), &first) == 0 && ::stat(b.c_str(), &second) == 0 &&
         first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

bool replaceFile(const std::string& from, const std::string& to) {
  // rename checks the permissions of the folder only. A write-protected file must not be replaced.
  if (fileExists(to) && ::faccessat(AT_FDCWD, to.c_str(), W_OK, AT_EACCESS) != 0) return false;
  return std::rename(from.c_str(), to.c_str()) == 0;
}

void removeFile(const std::string& path) { ::unlink(path.c_str()); }

long ownProcess() { return ::getpid(); }

std::string ownMachine() {
  std::array<char, 256> name{};
  return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

bool isRunning(long process) {
  return ::kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM;
}

bool syncFile(std::FILE* file) { return std::fflush(file) == 0 && ::fsync(::fileno(file)) == 0; }

}  // namespace morvane
