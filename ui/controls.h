// The column of controls at the left edge of the main window.
#pragma once

namespace morvane {

/// Fills the control column, whose group is being built.
void buildControls();

}  // namespace morvane
