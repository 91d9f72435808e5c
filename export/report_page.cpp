#include "export/report_page.h"

#include <cmath>

#include "base/number_text.h"
#include "base/paths.h"
#include "export/moment_texts.h"

namespace morvane {
namespace {

constexpr float kTitleSize = 24.0F;
constexpr float kMomentSize = 16.0F;
constexpr float kLineSize = 12.0F;

constexpr float kLeftColumn = 40.0F;
constexpr float kTimeColumn = 200.0F;
constexpr float kValueColumn = 700.0F;

constexpr PageBox kPicture = {kLeftColumn, 70.0F, 640.0F, 400.0F};

// From the main window's corner to the part of the view beside the control column.
constexpr ScreenPoint kViewOffset = {155, 25};
constexpr int kCoveredWidth = 5;

constexpr float below(float distance) { return kPageHeight - distance; }

}  // namespace

ReportPage describePage(const ReportValues& values) {
  // The scale of a measurement without a point is none.
  const std::string scale = std::isnan(values.zScale) ? "" : fixedText(values.zScale, 1) + "x";
  return {{{"Morvane Reader Report:", kTitleSize, kPageWidth / 2, below(50), PageAlign::kCentre},
           {dateText(values.moment), kMomentSize, kLeftColumn, below(90)},
           {timeText(values.moment), kMomentSize, kTimeColumn, below(90)},
           {fileNameOf(values.measurementPath), kLineSize, kLeftColumn, below(105)},
           {"Scaling: " + scale, kLineSize, kValueColumn, below(130)},
           {"Crop Min: " + values.minimum, kLineSize, kValueColumn, below(150)},
           {"Crop Max: " + values.maximum, kLineSize, kValueColumn, below(170)}},
          kPicture};
}

ScreenRect reportArea(ScreenPoint mainWindow, int viewWidth, int viewHeight, int profileHeight) {
  const ScreenPoint corner = {mainWindow.x + kViewOffset.x, mainWindow.y + kViewOffset.y};
  return {corner, {corner.x + viewWidth - kCoveredWidth, corner.y + viewHeight + profileHeight}};
}

std::string suggestedName(const std::string& measurementPath) {
  std::string name = fileNameOf(measurementPath);
  if (hasExtension(name, ".res")) name.resize(name.size() - 4);
  return name;
}

std::string reportPath(const std::string& chosen) { return chosen + ".pdf"; }

}  // namespace morvane
