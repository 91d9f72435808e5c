#include "export/height_files.h"
#include "resfile/region_file.h"

namespace morvane {

void writeRes(const ExportSource& source, ByteSink& sink) {
  const HeightGrid& grid = *source.heights;
  writeHeights(headerForDoubles(source.measurement), grid.values(),
               static_cast<std::int32_t>(grid.width()), static_cast<std::int32_t>(grid.height()),
               sink);
}

}  // namespace morvane
