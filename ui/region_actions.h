// Cutting a piece out of the surface on show.
#pragma once

namespace morvane {

/// Asks for a name and saves what lies between the corners of the grid box beside the measurement,
/// then offers to open it.
void saveShownRegion();

}  // namespace morvane
