#include "export/formats.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <new>

#include "base/paths.h"
#include "base/safe_file.h"
#include "export/height_files.h"
#include "export/info_json.h"
#include "export/results_table.h"
#include "export/section_table.h"

namespace morvane {
namespace {

void writeOwnResults(const ExportSource& source, ByteSink& sink) {
  const FileResults results = fileResults(source.measurement);
  writeResults({&results, 1}, source.csv, sink);
}

void writeInfo(const ExportSource& source, ByteSink& sink) {
  const std::string object = infoObject(source);
  const std::string document = infoDocument({&object, 1}, false);
  sink.write(document.data(), document.size());
}

constexpr ExportFormat kFormats[] = {
    {ExportKind::kHeights, ".sdf", "ISO 25178-71 surface", writeSdf},
    {ExportKind::kHeights, ".gsf", "Gwyddion Simple Field", writeGsf},
    {ExportKind::kHeights, ".xyz", "Points x y z in µm", writeXyz},
    {ExportKind::kHeights, ".res", "Measurement", writeRes},
    {ExportKind::kSection, ".csv", "Table with decimal points", writeSection},
    {ExportKind::kSection, ".csv", "Table with decimal commas", writeSection, kSemicolons},
    {ExportKind::kResults, ".csv", "Table with decimal points", writeOwnResults},
    {ExportKind::kResults, ".csv", "Table with decimal commas", writeOwnResults, kSemicolons},
    {ExportKind::kInfo, ".json", "Header and results", writeInfo},
};

}  // namespace

std::span<const ExportFormat> exportFormats() { return kFormats; }

const ExportFormat* exportFormat(ExportKind kind, std::string_view path) {
  const auto* const found = std::ranges::find_if(kFormats, [&](const ExportFormat& format) {
    return format.kind == kind && hasExtension(path, format.extension);
  });
  return found != std::end(kFormats) ? found : nullptr;
}

std::string saveExport(const ExportFormat& format, const ExportSource& source,
                       const std::string& path) {
  if (format.kind == ExportKind::kHeights && source.heights->count() == 0) {
    return "The measurement has no heights";
  }
  SafeFile file(path);
  try {
    ExportSource styled = source;
    styled.csv = format.csv;
    format.write(styled, file);
  } catch (const std::bad_alloc&) {
    return std::strerror(ENOMEM);
  }
  return file.commit();
}

}  // namespace morvane
