#include "export/screen_capture.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/debug_log.h"
#include "base/folders.h"
#include "base/safe_file.h"
#include "export/moment_texts.h"
#include "export/screen_picture.h"

namespace morvane {
namespace {

// Larger than any screen, and within the limit of JPEG.
constexpr std::int64_t kLargestSide = 32767;
constexpr const char* kLogFile = "screenshot.log";

/// Copies the overlapping part of `part` into `picture`, whose screen position is `corner`. False
/// when they do not overlap.
bool paste(const ScreenPart& part, ScreenPoint corner, RgbImage& picture) {
  const std::int64_t left = std::int64_t{part.topLeft.x} - corner.x;
  const std::int64_t top = std::int64_t{part.topLeft.y} - corner.y;
  const std::int64_t from = std::max<std::int64_t>(left, 0);
  const std::int64_t to = std::min<std::int64_t>(left + part.image.width, picture.width);
  const std::int64_t firstRow = std::max<std::int64_t>(top, 0);
  const std::int64_t endRow = std::min<std::int64_t>(top + part.image.height, picture.height);
  if (from >= to || firstRow >= endRow) return false;
  for (std::int64_t row = firstRow; row < endRow; ++row) {
    const unsigned char* source = part.image.row(static_cast<std::size_t>(row - top));
    std::copy(source + 3 * (from - left), source + 3 * (to - left),
              picture.row(static_cast<std::size_t>(row)) + 3 * from);
  }
  return true;
}

/// The picture of the rectangle; empty when none of it can be read.
RgbImage take(ScreenPoint topLeft, ScreenPoint bottomRight, Fl_Window* window,
              std::span<const ScreenPart> own) {
  const std::int64_t width = std::abs(std::int64_t{bottomRight.x} - topLeft.x);
  const std::int64_t height = std::abs(std::int64_t{bottomRight.y} - topLeft.y);
  if (width == 0 || height == 0 || width > kLargestSide || height > kLargestSide) return {};
  const auto end = [](std::int32_t start, std::int64_t length) {
    return static_cast<std::int32_t>(std::min<std::int64_t>(start + length, INT32_MAX));
  };
  RgbImage picture(static_cast<int>(width), static_cast<int>(height));
  const ScreenRect wanted = {topLeft, {end(topLeft.x, width), end(topLeft.y, height)}};
  bool known = paste(readScreen(window, wanted), topLeft, picture);
  for (const ScreenPart& part : own) known = paste(part, topLeft, picture) || known;
  return known ? picture : RgbImage();
}

std::string save(const Bytes& bytes, const std::string& path) {
  SafeFile file(path);
  file.write(bytes.data(), bytes.size());
  return file.commit();
}

}  // namespace

Screenshot captureScreenRect(ScreenPoint topLeft, ScreenPoint bottomRight, Fl_Window* window,
                             std::span<const ScreenPart> own) {
  DebugLog::write(kLogFile, "#### SCREENSHOT ROUTINE CALLED ####");
  Screenshot screenshot;
  const RgbImage picture = take(topLeft, bottomRight, window, own);
  if (picture.width > 0) copyToClipboard(picture);
  const std::string folder = screenshotsFolder();
  makeFolder(folder, logStream());
  const std::string path = folder + pictureName(localNow());
  screenshot.reason = picture.width > 0 ? encodeJpeg(picture, screenshot.jpeg)
                                        : "This part of the screen shows nothing of the program";
  if (screenshot.reason.empty()) screenshot.reason = save(screenshot.jpeg, path);
  if (screenshot.reason.empty()) screenshot.path = path;
  DebugLog::write(kLogFile, "{### END OF SCREENSHOT ###}");
  return screenshot;
}

}  // namespace morvane
