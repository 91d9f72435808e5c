#include "base/file_io.h"

#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <iterator>
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

struct ErrorPair {
  DWORD system;
  int number;
};

constexpr ErrorPair kErrors[] = {
    {ERROR_FILE_NOT_FOUND, ENOENT},
    {ERROR_PATH_NOT_FOUND, ENOENT},
    {ERROR_INVALID_NAME, ENOENT},
    {ERROR_BAD_PATHNAME, ENOENT},
    {ERROR_ACCESS_DENIED, EACCES},
    {ERROR_SHARING_VIOLATION, EACCES},
    {ERROR_LOCK_VIOLATION, EACCES},
    {ERROR_USER_MAPPED_FILE, EACCES},
    {ERROR_WRITE_PROTECT, EROFS},
    {ERROR_FILE_EXISTS, EEXIST},
    {ERROR_ALREADY_EXISTS, EEXIST},
    {ERROR_DISK_FULL, ENOSPC},
    {ERROR_HANDLE_DISK_FULL, ENOSPC},
    {ERROR_NOT_SAME_DEVICE, EXDEV},
    {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
    {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
    {ERROR_OUTOFMEMORY, ENOMEM},
};

/// The `errno` value for a Windows error code, so that error messages are the same on every system.
int errnoOf(DWORD systemError) {
  const auto* pair = std::find_if(std::begin(kErrors), std::end(kErrors),
                                  [=](const ErrorPair& p) { return p.system == systemError; });
  return pair != std::end(kErrors) ? pair->number : EIO;
}

}  // namespace

FilePtr openForReading(const std::string& path) {
  const std::wstring name = wide(path);
  struct _stat64 status {};
  if (_wstat64(name.c_str(), &status) != 0) return nullptr;
  if ((status.st_mode & _S_IFREG) == 0) {
    errno = (status.st_mode & _S_IFDIR) != 0 ? EISDIR : EINVAL;
    return nullptr;
  }
  return FilePtr(_wfopen(name.c_str(), L"rb"));
}

std::uint64_t lengthOf(std::FILE* file) {
  struct _stat64 status {};
  return _fstat64(_fileno(file), &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

FilePtr createForWriting(const std::string& path) {
  return FilePtr(_wfopen(wide(path).c_str(), L"wbx"));
}

bool hasName(std::FILE* /*file*/) { return true; }

bool giveName(std::FILE* /*file*/, const std::string& /*path*/) { return true; }

bool fileExists(const std::string& path) { return _waccess(wide(path).c_str(), 0) == 0; }

bool isSameFile(const std::string& a, const std::string& b) {
  std::error_code error;
  return std::filesystem::equivalent(wide(a), wide(b), error);
}

bool replaceFile(const std::string& from, const std::string& to) {
  const std::wstring target = wide(to);
  // Not every file system refuses to replace a read-only file.
  const DWORD attributes = GetFileAttributesW(target.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    errno = EACCES;
    return false;
  }
  if (MoveFileExW(wide(from).c_str(), target.c_str(),
                  MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
    return true;
  }
  errno = errnoOf(GetLastError());
  return false;
}

void removeFile(const std::string& path) { _wunlink(wide(path).c_str()); }

long ownProcess() { return static_cast<long>(GetCurrentProcessId()); }

std::string ownMachine() {
  // NetBIOS computer names are ASCII only.
  std::array<char, MAX_COMPUTERNAME_LENGTH + 1> name{};
  auto length = static_cast<DWORD>(name.size());
  return GetComputerNameA(name.data(), &length) != 0 ? name.data() : "";
}

bool isRunning(long process) {
  const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(process));
  if (handle == nullptr) return GetLastError() == ERROR_ACCESS_DENIED;
  const bool running = WaitForSingleObject(handle, 0) == WAIT_TIMEOUT;
  CloseHandle(handle);
  return running;
}

bool syncFile(std::FILE* file) { return std::fflush(file) == 0 && _commit(_fileno(file)) == 0; }

}  // namespace morvane
