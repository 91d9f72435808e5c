#include "resfile/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace morvane {

FilePtr openForReading(const std::string& path) {
  // Without O_NONBLOCK the open itself would wait for a writer when the path is a pipe.
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

FilePtr createForWriting(const std::string& path) {
  return FilePtr(std::fopen(path.c_str(), "wbx"));
}

FilePtr openForUpdate(const std::string& path) { return FilePtr(std::fopen(path.c_str(), "r+b")); }

bool fileExists(const std::string& path) { return ::access(path.c_str(), F_OK) == 0; }

bool isSameFile(const std::string& a, const std::string& b) {
  struct stat first {};
  struct stat second {};
  return ::stat(a.c_str(), &first) == 0 && ::stat(b.c_str(), &second) == 0 &&
         first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

bool replaceFile(const std::string& from, const std::string& to) {
  // A rename asks the folder alone; who has protected the file itself wants to keep it.
  if (fileExists(to) && ::faccessat(AT_FDCWD, to.c_str(), W_OK, AT_EACCESS) != 0) return false;
  return std::rename(from.c_str(), to.c_str()) == 0;
}

void removeFile(const std::string& path) { ::unlink(path.c_str()); }

bool syncFile(std::FILE* file) { return std::fflush(file) == 0 && ::fsync(::fileno(file)) == 0; }

}  // namespace morvane
