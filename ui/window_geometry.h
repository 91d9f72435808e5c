// The layout of the main window and of the windows with buttons: sizes and places of their parts.
#pragma once

#include "base/pixel_area.h"
#include "results/layouts.h"

namespace morvane {

inline constexpr int kWindowWidth = 1280;
inline constexpr int kWindowHeight = 800;

inline constexpr int kMenuHeight = 25;
inline constexpr int kControlsX = 2;
inline constexpr int kControlsWidth = 150;
inline constexpr int kResultsWidth = kResultsColumnWidth;
inline constexpr int kProfileHeight = 250;
inline constexpr int kConsoleX = 135;
inline constexpr int kConsoleHeight = 150;
inline constexpr int kConsoleInputHeight = 30;
inline constexpr int kConsoleOverhang =
    15;  ///< kept: it is wider than the area beside the controls

/// By how many pixels the control column overlaps the left edge of the view.
inline constexpr int kCoveredWidth = 5;

/// The smallest window in which no control is cut off and the view can still be used.
inline constexpr int kMinWidth = kControlsWidth + kResultsWidth + 320;
inline constexpr int kMinHeight = kMenuHeight + 690;

/// The places of the controls in their column. The row of the profile button is shared: either the
/// wide button or the pair of narrow ones is shown.
namespace control {
inline constexpr PixelArea kOpen{0, 85, kControlsWidth, 60};
inline constexpr PixelArea kHeatMap{0, 147, kControlsWidth, 60};
inline constexpr PixelArea kReset{0, 209, kControlsWidth, 60};
inline constexpr PixelArea kSlider{0, 271, kControlsWidth, 30};
inline constexpr PixelArea kMinus{0, 303, 30, 40};
inline constexpr PixelArea kReadout{30, 303, 90, 40};
inline constexpr PixelArea kPlus{120, 303, 30, 40};
inline constexpr PixelArea kMaximum{0, 345, 80, 40};
inline constexpr PixelArea kMinimum{0, 387, 80, 40};
inline constexpr PixelArea kLimits{80, 345, 70, 82};
inline constexpr PixelArea kReport{0, 429, kControlsWidth, 60};
inline constexpr PixelArea kProfile{0, 491, kControlsWidth, 60};
inline constexpr PixelArea kProfileOff{0, 491, 75, 60};
inline constexpr PixelArea kSwapPins{75, 491, 75, 60};
inline constexpr PixelArea kDetails{0, 553, kControlsWidth, 60};
}  // namespace control

/// The places in the filter window. The name of a type is to the right of its check box.
namespace filter_place {
inline constexpr PixelArea kHighPass{30, 120, 40, 30};
inline constexpr PixelArea kLowPass{30, 150, 40, 30};
inline constexpr PixelArea kBandPass{30, 180, 40, 30};
inline constexpr PixelArea kL1{30, 230, 200, 30};
inline constexpr PixelArea kL2{30, 300, 200, 30};
inline constexpr PixelArea kHint{30, 332, 340, 16};
inline constexpr PixelArea kApply{60, 350, 100, 30};
inline constexpr PixelArea kCancel{240, 350, 100, 30};
}  // namespace filter_place

/// The places in the window that asks whether to quit.
namespace quit_place {
inline constexpr PixelArea kYes{100, 60, 80, 30};
inline constexpr PixelArea kNo{220, 60, 80, 30};
}  // namespace quit_place

/// The places of the parts in a main window.
struct WindowLayout {
  PixelArea view;
  PixelArea profile;
  PixelArea results;
  PixelArea controls;
  PixelArea console;
};

/// The layout of a main window of `width` × `height`, with or without results column and profile
/// window.
constexpr WindowLayout windowLayout(int width, int height, bool results, bool profile) {
  const int viewWidth = width - kControlsWidth - (results ? kResultsWidth : 0);
  const int viewHeight = height - kMenuHeight - (profile ? kProfileHeight : 0);
  return {
      .view = {kControlsWidth, kMenuHeight, viewWidth, viewHeight},
      .profile = {kControlsWidth, height - kProfileHeight, viewWidth, kProfileHeight},
      .results = {kControlsWidth + viewWidth, kMenuHeight, kResultsWidth, height - kMenuHeight},
      .controls = {kControlsX, kMenuHeight, kControlsWidth, height - kMenuHeight},
      .console = {kConsoleX, height - kConsoleHeight, width - kConsoleX + kConsoleOverhang,
                  kConsoleHeight},
  };
}

/// The initial layout, with nothing beside the view but the controls.
inline constexpr WindowLayout kFirstLayout =
    windowLayout(kWindowWidth, kWindowHeight, false, false);

}  // namespace morvane
