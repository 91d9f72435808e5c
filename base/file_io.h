// Opening, replacing and removing files by UTF-8 path: the one edge to the system's file names.
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

/// Opens a regular file for binary reading. Null with `errno` set when it cannot be had; folders,
/// pipes and devices are refused too, since reading one could wait for ever.
FilePtr openForReading(const std::string& path);

/// How many bytes an open file has; 0 when the system does not say.
std::uint64_t lengthOf(std::FILE* file);

/// Creates a file for binary writing that is to be `path`, which must not exist. Where the system
/// can, it has no name until `giveName`, and goes with the program if that is killed. Null with
/// `errno` set on failure.
FilePtr createForWriting(const std::string& path);

/// Whether a file made by `createForWriting` has its name by now.
bool hasName(std::FILE* file);

/// Gives it its name, the same `path`, if it has none yet. False with `errno` set on failure.
bool giveName(std::FILE* file, const std::string& path);

/// Whether there is anything under the name `path`.
bool fileExists(const std::string& path);

/// Whether both names lead to one existing file, through links too.
bool isSameFile(const std::string& a, const std::string& b);

/// Puts `from` in the place of `to` in one step; both lie in one folder. False with `errno` set.
bool replaceFile(const std::string& from, const std::string& to);

/// Removes `path` if it is there.
void removeFile(const std::string& path);

/// The number of this process.
long ownProcess();

/// What this machine is called; processes of others have numbers of their own.
std::string ownMachine();

/// Whether there is a process of this number.
bool isRunning(long process);

/// Forces what was written to `file` onto the disk. False with `errno` set on failure.
bool syncFile(std::FILE* file);

}  // namespace morvane
