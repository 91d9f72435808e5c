#include "ui/region_actions.h"

#include <string>

#include "base/file_io.h"
#include "base/paths.h"
#include "resfile/region_file.h"
#include "ui/app_state.h"
#include "ui/choosers.h"
#include "ui/console.h"
#include "ui/file_actions.h"
#include "ui/gl_window.h"
#include "ui/saving.h"

namespace morvane {

void saveShownRegion() {
  GLWindow& view = *appState().glView;
  if (!view.surface().modelLoaded()) {
    showAlert("Open a measurement first: there is nothing to cut a region from.");
    return;
  }
  const HeightGrid& grid = *view.surface().measured().shown();
  if (grid.width() < 2 || grid.height() < 2) {
    showAlert("This measurement is too small to cut a region from.");
    return;
  }
  const std::string name = askName("Name of the region", "Region");
  if (name.empty()) return;
  if (!isRegionName(name)) {
    showAlert("A region's name may hold letters, digits, blanks and the signs - _ . only.");
    return;
  }
  const Measurement& source = view.surface().measurement();
  const std::string path = folderPrefix(source.path) + name + ".res";
  const GridRegion region =
      regionBetween(view.tools().gridTool().places(), {grid.width(), grid.height()});
  const bool saved =
      save({"region", path, [&] { return saveRegion(view.file(), source, grid, region, path); }});
  if (saved && confirmOpen(path)) openFile(path);
}

}  // namespace morvane
