// Loads pictures from the program's resources.
#pragma once

class Fl_Image;

namespace morvane {

/// The image `resources/<subfolder>/<name>` beside the executable, from FLTK's shared image cache.
/// It is scaled to `width` × `height` pixels, or has its natural size when these are 0. Null when
/// there is no such image.
Fl_Image* loadImage(const char* subfolder, const char* name, int width = 0, int height = 0);

}  // namespace morvane
