// Opening, replacing and removing files by UTF-8 path: the one edge to the system's file names.
#pragma once

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

/// Creates `path`, which must not exist, for binary writing. Null with `errno` set on failure.
FilePtr createForWriting(const std::string& path);

/// A short name that nothing has yet, in the folder of `path`.
std::string temporaryNameBeside(const std::string& path);

/// Opens the existing `path` to be written over in places. Null with `errno` set on failure.
FilePtr openForUpdate(const std::string& path);

/// Whether there is anything under the name `path`.
bool fileExists(const std::string& path);

/// Whether both names lead to one existing file, through links too.
bool isSameFile(const std::string& a, const std::string& b);

/// Puts `from` in the place of `to` in one step; both lie in one folder. False with `errno` set.
bool replaceFile(const std::string& from, const std::string& to);

/// Removes `path` if it is there.
void removeFile(const std::string& path);

/// Forces what was written to `file` onto the disk. False with `errno` set on failure.
bool syncFile(std::FILE* file);

}  // namespace morvane
