// What a platform has to offer for pictures of its screen; each has sources of its own.
#pragma once

#include <string>

#include "export/rgb_image.h"
#include "export/screen_rect.h"

class Fl_Window;

namespace morvane {

/// Reads what can be read of the rectangle: what the screen shows, or where a program may read
/// nothing but its own, what it shows of `window`.
/// No picture when there is nothing to read.
ScreenPart readScreen(Fl_Window* window, const ScreenRect& wanted);

/// Leaves a picture on the clipboard, as PNG and as bitmap.
void copyToClipboard(const RgbImage& image);

/// Makes the JPEG file of `image` in the encoder's default quality. Empty on success, else the
/// reason; JPEG knows no empty picture and none with a side over 65500 pixels.
std::string encodeJpeg(const RgbImage& image, Bytes& file);

}  // namespace morvane
