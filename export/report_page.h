// The report's one page as a description: texts and a picture's place, nothing drawn yet.
#pragma once

#include <ctime>
#include <string>
#include <vector>

#include "export/screen_rect.h"

namespace morvane {

/// A4 across, in points. Positions on the page count from its bottom left corner.
inline constexpr float kPageWidth = 841.89F;
inline constexpr float kPageHeight = 595.276F;

enum class PageAlign { kLeft, kCentre };

struct PageText {
  std::string text;  ///< UTF-8
  float size;        ///< of the font, in points
  float x;           ///< where the text starts, or its middle where it is centred
  float y;           ///< of the base line
  PageAlign align = PageAlign::kLeft;
};

/// Lower left corner and size.
struct PageBox {
  float x, y, width, height;
};

/// What the report shows, as it was when it was asked for.
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

/// The whole page, its texts in the order they are written.
ReportPage describePage(const ReportValues& values);

/// The part of the screen that the report shows: the 3D view and, below it, a profile window of
/// `profileHeight` pixels (0 while none is shown). `mainWindow` is the main window's inner top left
/// corner on the screen.
ScreenRect reportArea(ScreenPoint mainWindow, int viewWidth, int viewHeight, int profileHeight);

/// The name a report is offered: the measurement's own without its ".res".
std::string suggestedName(const std::string& measurementPath);

/// Where a report goes that was given the name `chosen`: ".pdf" is added whatever was typed.
std::string reportPath(const std::string& chosen);

}  // namespace morvane
