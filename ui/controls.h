// The column of controls at the left edge of the main window.
#pragma once

namespace morvane {

/// Creates the controls in the current FLTK group.
void buildControls();

}  // namespace morvane
