// The report's page as data: the texts and the place of the picture.
#pragma once

#include <ctime>
#include <string>
#include <vector>

#include "export/screen_rect.h"

namespace morvane {

/// A4 landscape, in points. The origin is the bottom left corner.
inline constexpr float kPageWidth = 841.89F;
inline constexpr float kPageHeight = 595.276F;

enum class PageAlign { kLeft, kCentre };

struct PageText {
  std::string text;  ///< UTF-8
  float size;        ///< of the font, in points
  float x;           ///< start of the text, or its middle if it is centred
  float y;           ///< of the baseline
  PageAlign align = PageAlign::kLeft;
};

/// Lower left corner and size, in points.
struct PageBox {
  float x, y, width, height;
};

/// The values in the report, as of the press on its button.
struct ReportValues {
  std::tm moment{};             ///< local date and time
  std::string measurementPath;  ///< empty without a measurement
  float zScale = 1.0F;
  std::string minimum;  ///< the lower limit's text without its unit
  std::string maximum;  ///< the upper limit's text without its unit
};

struct ReportPage {
  std::vector<PageText> texts;
  PageBox picture;
};

/// The complete page, with its texts in the order in which they are written.
ReportPage describePage(const ReportValues& values);

/// The part of the screen in the report: the 3D view and, below it, the profile window of
/// `profileHeight` pixels (0 while it is hidden). `mainWindow` is the screen position of the main
/// window's client area.
ScreenRect reportArea(ScreenPoint mainWindow, int viewWidth, int viewHeight, int profileHeight);

/// The suggested name of a report: the measurement's name without ".res".
std::string suggestedName(const std::string& measurementPath);

/// The path of a report for the typed name `chosen`. ".pdf" is always added.
std::string reportPath(const std::string& chosen);

}  // namespace morvane
