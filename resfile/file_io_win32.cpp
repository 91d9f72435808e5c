#include "resfile/file_io.h"

#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace morvane {
namespace {

std::wstring wide(const std::string& utf8) {
  const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.c_str(), -1, nullptr, 0);
  std::wstring text(length > 0 ? static_cast<std::size_t>(length) : 1, L'\0');
  if (length > 0) MultiByteToWideChar(CP_UTF8, 0, utf8.c_str(), -1, text.data(), length);
  text.pop_back();
  return text;
}

}  // namespace

FilePtr openForReading(const std::string& path) {
  const std::wstring name = wide(path);
  struct _stat64 status {};
  if (_wstat64(name.c_str(), &status) != 0) return nullptr;
  if ((status.st_mode & _S_IFREG) == 0) {
    errno = EINVAL;
    return nullptr;
  }
  return FilePtr(_wfopen(name.c_str(), L"rb"));
}

FilePtr createForWriting(const std::string& path) {
  return FilePtr(_wfopen(wide(path).c_str(), L"wbx"));
}

FilePtr openForUpdate(const std::string& path) {
  return FilePtr(_wfopen(wide(path).c_str(), L"r+b"));
}

bool fileExists(const std::string& path) { return _waccess(wide(path).c_str(), 0) == 0; }

bool isSameFile(const std::string& a, const std::string& b) {
  std::error_code error;
  return std::filesystem::equivalent(wide(a), wide(b), error);
}

bool replaceFile(const std::string& from, const std::string& to) {
  if (MoveFileExW(wide(from).c_str(), wide(to).c_str(),
                  MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
    return true;
  }
  errno = EACCES;
  return false;
}

void removeFile(const std::string& path) { _wunlink(wide(path).c_str()); }

bool syncFile(std::FILE* file) { return std::fflush(file) == 0 && _commit(_fileno(file)) == 0; }

}  // namespace morvane
