// Files of pictures.
#pragma once

#include <string>

#include "export/rgb_image.h"

namespace morvane {

/// Encodes `image` for a file named `path`: as JPEG for ".jpg" and ".jpeg", as PNG for ".png".
/// Returns an empty text on success, else the error message.
std::string encodePicture(const RgbImage& image, const std::string& path, Bytes& file);

/// Whether `path` has an extension of these.
bool isPicturePath(const std::string& path);

}  // namespace morvane
