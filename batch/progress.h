// How far a run over many files is, as one line of the terminal.
#pragma once

#include <cstddef>
#include <string>

namespace morvane {

struct ProgressLine {
  std::string text;
  std::size_t columns = 0;  ///< that it takes at most
};

/// The line for file `number` of `total`: "12 of 100 NAME", cut so that it takes fewer than
/// `columns` columns. Control characters and bytes that are not UTF-8 are question marks.
ProgressLine progressLine(std::size_t number, std::size_t total, const std::string& file,
                          std::size_t columns);

/// Rewrites one line on standard error in place. Does nothing if that is no terminal, or if there
/// is only one file.
class Progress {
 public:
  explicit Progress(std::size_t total) : total_(total) {}
  ~Progress() { erase(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// Shows that the next file is `file`.
  void next(const std::string& file);
  /// Removes the line. Call this before anything else is written.
  void erase();

 private:
  std::size_t total_;
  std::size_t number_ = 0;
  std::size_t used_ = 0;  // columns of the line on the terminal, at most
};

}  // namespace morvane
