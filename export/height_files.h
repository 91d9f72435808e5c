// The heights shown as files of other programs. They are never cut by the limits.
#pragma once

#include "export/export_source.h"

namespace morvane {

/// All stop at the first failed write.

/// ISO 25178-71, the ASCII variant: heights in µm as doubles that read back exactly, missing points
/// as "BAD".
void writeSdf(const ExportSource& source, ByteSink& sink);
/// Gwyddion Simple Field 1.0: heights in metres in single precision, missing points as NaN. Its
/// first row is the upper one, so the file begins with the last row of the grid.
void writeGsf(const ExportSource& source, ByteSink& sink);
/// A line "x y z" for each point that is not missing, all in µm.
void writeXyz(const ExportSource& source, ByteSink& sink);
/// A measurement with the header of the one shown.
void writeRes(const ExportSource& source, ByteSink& sink);

}  // namespace morvane
