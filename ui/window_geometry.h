// The layout of the main window: sizes and places of its parts.
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
inline constexpr int kLeastWidth = kControlsWidth + kResultsWidth + 320;
inline constexpr int kLeastHeight = kMenuHeight + 690;

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
