#include "ui/images.h"

#include <FL/Fl_Shared_Image.H>

#include <iostream>
#include <string>
#include <utility>

#include "app/app_state.h"
#include "app/paths.h"

namespace morvane {

namespace {

/// Without its resources the program has neither icons nor texts in the 3D view; it says so once.
void reportMissing(const std::string& path) {
  static bool reported = false;
  if (std::exchange(reported, true)) return;
  std::cerr << "The picture " << path << " is missing: install the program anew, with the folder "
            << "\"resources\" beside it.\n";
}

}  // namespace

Fl_Image* loadImage(const char* subfolder, const char* name, int width, int height) {
  const std::string path = resourcePath(appState().exeFolder, subfolder, name);
  Fl_Image* image = Fl_Shared_Image::get(path.c_str(), width, height);
  if (image == nullptr) reportMissing(path);
  return image;
}

}  // namespace morvane
