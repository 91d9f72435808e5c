#include "export/picture_file.h"

#include <algorithm>
#include <array>

#include "base/paths.h"
#include "export/screen_picture.h"

namespace morvane {
namespace {

std::string encodeAsPng(const RgbImage& image, Bytes& file) {
  file = encodePng(image);
  return file.empty() ? "The picture could not be encoded" : "";
}

struct Format {
  const char* extension;
  std::string (*encode)(const RgbImage&, Bytes&);
};
constexpr std::array<Format, 3> kFormats = {
    {{".png", encodeAsPng}, {".jpg", encodeJpeg}, {".jpeg", encodeJpeg}}};

const Format* formatOf(const std::string& path) {
  const auto* found = std::find_if(kFormats.begin(), kFormats.end(), [&](const Format& format) {
    return hasExtension(path, format.extension);
  });
  return found == kFormats.end() ? nullptr : found;
}

}  // namespace

bool isPicturePath(const std::string& path) { return formatOf(path) != nullptr; }

std::string encodePicture(const RgbImage& image, const std::string& path, Bytes& file) {
  const Format* format = formatOf(path);
  if (format == nullptr) return "a picture's name ends in .png, .jpg or .jpeg";
  return format->encode(image, file);
}

}  // namespace morvane
