// The measurement-file object: reads a `.res` file, judges it, and writes pieces of its grid.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <span>
#include <string>

#include "resfile/height_grid.h"
#include "resfile/measurement.h"
#include "resfile/res_header.h"
#include "resfile/res_results.h"

namespace morvane {

/// One object serves many files in turn: each `update` refreshes the fields that the file's
/// version holds, and the rest keeps what earlier files put there.
class resFile {
 public:
  /// Writes its diagnostics to `log`, which must outlive the object.
  explicit resFile(std::ostream& log);

  /// Makes `path` (UTF-8) the file of this object and reads it. Success shows in the fields only.
  void update(const std::string& path);

  /// True when the file's length is what its header announces, for doubles or for 16-bit counts.
  /// Logs the sizes it compares. A file with impossible sizes, or one that the system failed to
  /// read or memory could not hold, is never valid.
  [[nodiscard]] bool isValid() const;

  /// Why the last read brought no measurement, e.g. "it holds 300 of 80256 bytes"; empty when it
  /// brought one.
  [[nodiscard]] std::string trouble() const;

  /// Writes `values` (regionWidth × regionHeight heights in row order) as a file of doubles behind
  /// a copy of the raw header, or of `header` where one is given, with the two sizes replaced.
  /// Kept: nothing else in it is changed, element type included. Returns an empty text, or the
  /// system's reason for failing; then no file appears and one that was there is untouched.
  [[nodiscard]] std::string writeRegion(std::span<const double> values, std::int32_t regionWidth,
                                        std::int32_t regionHeight, const std::string& path,
                                        const HeaderBytes* header = nullptr) const;

  /// A share of what the last read brought; worth having only when that read `isValid`.
  [[nodiscard]] Measurement measurement() const {
    return {path_, header_, results_, ownHeader_, grid_};
  }

  [[nodiscard]] const ResHeader& header() const { return header_; }
  [[nodiscard]] const ResResults& results() const { return results_; }
  /// The heights of the last read; null before one, after a failed open, or for impossible sizes.
  [[nodiscard]] const std::shared_ptr<const HeightGrid>& grid() const { return grid_; }
  /// The header bytes of the last file of version 4 or above; zeros before one was read.
  [[nodiscard]] const HeaderBytes& rawHeader() const { return rawHeader_; }
  [[nodiscard]] const std::string& path() const { return path_; }
  /// True once a read has been attempted on a file that opened.
  [[nodiscard]] bool loaded() const { return loaded_; }
  /// Width × height as the last read header says, 0 where that is no possible count.
  [[nodiscard]] std::uint32_t pointCount() const { return pointCount_; }
  /// File position behind the header: 256 for every file that is long enough.
  [[nodiscard]] std::uint64_t headerSize() const { return headerSize_; }
  /// File position behind the grid: the file's length when it is shorter than announced.
  [[nodiscard]] std::uint64_t fileSize() const { return fileSize_; }

 private:
  void read();
  [[nodiscard]] bool hasItsLength() const;
  HeaderBytes readHeader(std::FILE* file, std::int32_t& version);
  std::uint64_t readGrid(std::FILE* file);

  std::ostream* log_;
  std::string path_;
  ResHeader header_;
  ResResults results_;
  HeaderBytes rawHeader_{};
  HeaderBytes ownHeader_{};
  std::shared_ptr<const HeightGrid> grid_;
  std::uint32_t pointCount_ = 0;
  std::uint64_t headerSize_ = 0;
  std::uint64_t fileSize_ = 0;
  std::string systemReason_;  // why the last file could not be had; empty when it could
  bool loaded_ = false;
  bool readable_ = true;
};

}  // namespace morvane
