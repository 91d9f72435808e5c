// The profile tool: two pins, the section of the surface between them, and the window that plots
// it.
#pragma once

#include <memory>
#include <span>
#include <string>

#include "geometry/profile_plot.h"
#include "geometry/profile_section.h"
#include "surface/surface_limits.h"
#include "ui/gl_pane.h"
#include "view/gl_objects.h"
#include "view/pin.h"
#include "view/shader_program.h"
#include "view/text_renderer.h"

namespace morvane {

/// The surface that sections are taken of.
struct ProfileSurface {
  std::shared_ptr<const HeightGrid> heights;
  double pixelSizeX = 0.0;  ///< mm between columns
  double pixelSizeY = 0.0;  ///< mm between rows
  Crop crop;                ///< clips the heights while it is on
  float limitHigh = 0.0F;   ///< of the heat map
  float limitLow = 0.0F;
};

/// The pins live here, are drawn and picked in the 3D view, and stay from one measurement to the
/// next.
class Profiler : public GlPane {
 public:
  Profiler(int x, int y, int w, int h, const char* label);

  /// Takes the surface on show; pins of a larger one come inside. The section is taken anew.
  void setSurface(ProfileSurface surface);

  [[nodiscard]] bool pinsExist() const { return pinsExist_; }
  /// Creates the pins in the size that suits the grid, at the two ends of its first column.
  void loadPins();
  /// Puts pins that exist back to where `loadPins` places them.
  void resetPins();
  [[nodiscard]] Pins& pins() { return pins_; }
  [[nodiscard]] bool owns(const Pin& pin) const {
    return &pin == pins_.data() || &pin == &pins_[1];
  }

  /// Makes `pin`, one of the two, the one that `movePin` moves.
  void grab(Pin& pin) { grabbedPin_ = &pin; }
  /// The same for the second pin.
  void grabSecond() { grabbedPin_ = &pins_[1]; }
  [[nodiscard]] const Pin& grabbedPin() const { return *grabbedPin_; }
  /// Moves the grabbed pin, or with `wholeLine` both, by a motion in model units.
  void movePin(glm::vec2 motion, bool wholeLine);
  /// Exchanges the places of the two.
  void swapPins();

  /// The section between the pins, taken anew where something has changed.
  const ProfileSection& section();

  std::string exeFolder;  ///< for the font

 protected:
  void draw() override;

 private:
  void generateBuffers();
  void enterContext();
  void placeInFirstColumn();
  void refresh();
  [[nodiscard]] GridSize gridSize() const;
  [[nodiscard]] ProfileClip clip() const;
  void drawPlot();
  void drawVertices(GLenum kind, std::span<const glm::vec2> vertices,
                    const glm::vec4& colour) const;

  ProfileSurface surface_;
  Pins pins_;
  Pin* grabbedPin_ = pins_.data();
  bool pinsExist_ = false;
  bool needsRecompute_ = true;
  ProfileSection section_;

  ShaderProgram program_;
  GlVertexArray vertexArray_;
  GlBuffer vertices_;
  TextRenderer text_;
};

}  // namespace morvane
