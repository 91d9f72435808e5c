// Reads a `.res` file, checks it, and writes regions of its grid.
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

/// One object reads many files in turn. Each `update` replaces the fields that the file's version
/// has; the other fields keep the values of earlier files.
class resFile {
 public:
  /// Writes its diagnostics to `log`, which must outlive the object.
  explicit resFile(std::ostream& log);

  /// Makes `path` (UTF-8) the file of this object and reads it. See `isValid` and `trouble` for the
  /// outcome.
  void update(const std::string& path);

  /// True when the file has the length that its header announces, for doubles or for 16-bit counts.
  /// Logs the sizes it compares. False for impossible sizes, after a read error, and when there was
  /// not enough memory.
  [[nodiscard]] bool isValid() const;

  /// Why the last read failed, e.g. "it holds 300 of 80256 bytes"; empty when it succeeded.
  [[nodiscard]] std::string trouble() const;

  /// Writes a header and `values` (regionWidth × regionHeight heights in row order) as doubles. The
  /// header is a copy of `header`, or of the raw header if that is null, with the two sizes
  /// replaced. Kept: nothing else in it is changed, not even the element type. Returns an empty
  /// text on success, else the system's error message. On failure no file is created and an
  /// existing file is unchanged.
  [[nodiscard]] std::string writeRegion(std::span<const double> values, std::int32_t regionWidth,
                                        std::int32_t regionHeight, const std::string& path,
                                        const HeaderBytes* header = nullptr) const;

  /// What the last read returned; meaningful only when `isValid`. The grid is shared.
  [[nodiscard]] Measurement measurement() const {
    return {path_, header_, results_, ownHeader_, grid_};
  }

  [[nodiscard]] const ResHeader& header() const { return header_; }
  [[nodiscard]] const ResResults& results() const { return results_; }
  /// The heights of the last read; null before the first read, after a failed open, or for
  /// impossible sizes.
  [[nodiscard]] const std::shared_ptr<const HeightGrid>& grid() const { return grid_; }
  /// The header bytes of the last file of version 4 or above; zeros before the first such file.
  [[nodiscard]] const HeaderBytes& rawHeader() const { return rawHeader_; }
  [[nodiscard]] const std::string& path() const { return path_; }
  /// True once any file could be opened.
  [[nodiscard]] bool loaded() const { return loaded_; }
  /// Width × height of the last header read; 0 when that count is impossible.
  [[nodiscard]] std::uint32_t pointCount() const { return pointCount_; }
  /// File position after the header: 256 for every file that is long enough.
  [[nodiscard]] std::uint64_t headerSize() const { return headerSize_; }
  /// File position after the grid; the file's length when it is shorter than announced.
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
  std::string systemReason_;  // why the last file could not be read; else empty
  bool loaded_ = false;
  bool readable_ = true;
};

}  // namespace morvane
