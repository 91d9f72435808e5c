// The section under the profile line as a table.
#pragma once

#include "export/export_source.h"

namespace morvane {

/// Writes a line for each sample: place on the surface, distance along the line, height, and 1
/// where the limits cut it in the plot, else 0. The height is the true one of the surface shown,
/// empty where points are missing. Numbers have the single precision of the section. Without a
/// section only the header is written. Throws std::bad_alloc.
void writeSection(const ExportSource& source, ByteSink& sink);

}  // namespace morvane
