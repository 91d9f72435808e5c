// Opening, replacing and removing files by UTF-8 path. Only this file calls the system with file
// names.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

namespace morvane {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using FilePtr = std::unique_ptr<std::FILE, FileCloser>;

/// Opens a regular file for binary reading. Returns null with `errno` set on failure. Folders,
/// pipes and devices are refused, since reading one could block for ever.
FilePtr openForReading(const std::string& path);

/// The size of an open file in bytes; 0 when the system cannot tell.
std::uint64_t lengthOf(std::FILE* file);

/// Creates a file for binary writing that becomes `path`, which must not exist. Where the system
/// supports it (`O_TMPFILE`) the file has no name until `giveName`, so it vanishes if the program
/// is killed. Returns null with `errno` set on failure.
FilePtr createForWriting(const std::string& path);

/// Whether a file made by `createForWriting` has a name already.
bool hasName(std::FILE* file);

/// Gives such a file its name, the same `path`, if it has none yet. False with `errno` set on
/// failure.
bool giveName(std::FILE* file, const std::string& path);

/// Whether a file or folder `path` exists.
bool fileExists(const std::string& path);

/// Whether both paths lead to the same existing file. Links are followed.
bool isSameFile(const std::string& a, const std::string& b);

/// Replaces `to` by `from` atomically; both are in the same folder. False with `errno` set on
/// failure.
bool replaceFile(const std::string& from, const std::string& to);

/// Removes `path` if it exists.
void removeFile(const std::string& path);

/// The id of this process.
long ownProcess();

/// The host name. Process ids are only comparable on one host.
std::string ownMachine();

/// Whether a process with this id is running.
bool isRunning(long process);

/// Flushes `file` to the disk (fsync). False with `errno` set on failure.
bool syncFile(std::FILE* file);

}  // namespace morvane
