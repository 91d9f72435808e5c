// The menu bar's items.
#pragma once

#include <string>
#include <vector>

namespace morvane {

/// The fixed entries of the full menu in their order, as paths of labels with "&" before the letter
/// that is underlined, e.g. "&Tools/&Filter Settings".
std::vector<std::string> menuPaths();

/// Adds the fixed items to the menu bar.
void buildMenu();

/// Clears the menu bar and adds the fixed items again.
void rebuildMenu();

/// Updates all check boxes and radio items, as other controls change the same settings.
void checkMenuBoxes();

/// Adds bitmap number `index` of the measurement to the "&BMPs" menu, marked if `chosen`.
void addBitmapItem(const std::string& name, long index, bool chosen);

}  // namespace morvane
