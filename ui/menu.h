// The menu bar's fixed items.
#pragma once

namespace morvane {

/// Adds the fixed items to the menu bar.
void buildMenu();

/// Empties the menu bar and builds the fixed items anew.
void rebuildMenu();

}  // namespace morvane
