// The platform-dependent part of screenshots. Each platform has its own sources.
#pragma once

#include <string>

#include "export/rgb_image.h"
#include "export/screen_rect.h"

class Fl_Window;

namespace morvane {

/// Reads the rectangle from the screen, or from `window` where a program can only read its own
/// windows. Empty when nothing can be read.
ScreenPart readScreen(Fl_Window* window, const ScreenRect& wanted);

/// Puts a picture on the clipboard, as PNG and as bitmap.
void copyToClipboard(const RgbImage& image);

/// Encodes `image` as JPEG with the encoder's default quality. Returns an empty text on success,
/// else the error message. It fails for empty pictures and for sides over 65500 pixels.
std::string encodeJpeg(const RgbImage& image, Bytes& file);

/// Encodes `image` as PNG. Empty on failure.
Bytes encodePng(const RgbImage& image);

}  // namespace morvane
