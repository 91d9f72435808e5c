// The window that plots the section between the two pins of the profile tool.
#pragma once

#include <string>

#include "geometry/profile_tool.h"
#include "ui/gl_pane.h"
#include "view/plot_renderer.h"

namespace morvane {

class Profiler : public GlPane {
 public:
  /// Plots the section of `tool` through the surface `shown`. Both must outlive this window.
  Profiler(int x, int y, int w, int h, const char* label, ProfileTool& tool, ShownSurface& shown);

  std::string exeFolder;  ///< for the font

 protected:
  void draw() override;

 private:
  ProfileTool& tool_;
  ShownSurface& shown_;
  PlotRenderer plot_;
};

}  // namespace morvane
