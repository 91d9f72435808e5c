// Saving a region of the surface shown.
#pragma once

namespace morvane {

/// Asks for a name, saves the region between the corners of the grid box beside the measurement,
/// and offers to open it.
void saveShownRegion();

}  // namespace morvane
