#include "ui/images.h"

#include <FL/Fl_Shared_Image.H>

#include <string>

#include "base/paths.h"
#include "ui/app_state.h"

namespace morvane {

Fl_Image* loadImage(const char* subfolder, const char* name, int width, int height) {
  const std::string path = resourcePath(appState().exeFolder, subfolder, name);
  return Fl_Shared_Image::get(path.c_str(), width, height);
}

}  // namespace morvane
