// The menu bar's items.
#pragma once

#include <string>

namespace morvane {

/// Adds the fixed items to the menu bar.
void buildMenu();

/// Empties the menu bar and builds the fixed items anew.
void rebuildMenu();

/// Makes every check box show what it stands for: other controls change that too.
void checkMenuBoxes();

/// Adds the bitmap number `index` of the measurement to the "&BMPs" menu, marked when it is chosen.
void addBitmapItem(const std::string& name, long index, bool chosen);

}  // namespace morvane
