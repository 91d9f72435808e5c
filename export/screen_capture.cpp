#include "export/screen_capture.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

#include "base/debug_log.h"
#include "base/folders.h"
#include "export/moment_texts.h"
#include "export/screen_picture.h"

namespace morvane {
namespace {

// No screen is larger, and no JPEG.
constexpr std::int64_t kLargestSide = 32767;
constexpr const char* kLogFile = "screenshot.log";

std::unique_ptr<ScreenPicture> take(ScreenPoint topLeft, ScreenPoint bottomRight,
                                    Fl_Window* window) {
  const std::int64_t width = std::abs(std::int64_t{bottomRight.x} - topLeft.x);
  const std::int64_t height = std::abs(std::int64_t{bottomRight.y} - topLeft.y);
  if (width == 0 || height == 0 || width > kLargestSide || height > kLargestSide) return nullptr;
  return takeScreenPicture(window, topLeft, static_cast<int>(width), static_cast<int>(height));
}

}  // namespace

Screenshot captureScreenRect(ScreenPoint topLeft, ScreenPoint bottomRight, Fl_Window* window) {
  DebugLog::write(kLogFile, "#### SCREENSHOT ROUTINE CALLED ####");
  Screenshot screenshot;
  const std::unique_ptr<ScreenPicture> picture = take(topLeft, bottomRight, window);
  if (picture) picture->copyToClipboard();
  const std::string folder = screenshotsFolder();
  makeFolder(folder, logStream());
  const std::string path = folder + pictureName(localNow());
  screenshot.reason =
      picture ? picture->saveJpeg(path) : "This part of the screen shows nothing of the program";
  if (screenshot.reason.empty()) screenshot.path = path;
  DebugLog::write(kLogFile, "{### END OF SCREENSHOT ###}");
  return screenshot;
}

}  // namespace morvane
