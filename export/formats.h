// The table of the formats in which numbers are saved.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "export/export_source.h"

namespace morvane {

enum class ExportKind { kHeights, kSection, kResults, kInfo };

struct ExportFormat {
  ExportKind kind;             ///< what it holds
  std::string_view extension;  ///< with its point, in lower case
  std::string_view name;       ///< for the file chooser, in UTF-8
  void (*write)(const ExportSource& source, ByteSink& sink);
  CsvStyle csv{};  ///< of a table
};

/// All formats; those of one kind follow each other, the preferred one first.
std::span<const ExportFormat> exportFormats();

/// The format of `kind` that the name of `path` ends with, in any case; null if there is none.
const ExportFormat* exportFormat(ExportKind kind, std::string_view path);

/// Saves `source` as `path` (UTF-8), which appears only when it is complete. Returns an empty text
/// on success. On failure it returns the reason, and leaves `path` unchanged.
[[nodiscard]] std::string saveExport(const ExportFormat& format, const ExportSource& source,
                                     const std::string& path);

}  // namespace morvane
