// Decides which frames of a scene are whole, which are coarse, and when a whole one follows.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "geometry/frame_pacer.h"
#include "view/picture_target.h"
#include "view/scene.h"

namespace morvane {

/// Where a whole frame takes long, a change first draws a coarse one. When the picture rests the
/// whole frame is drawn in slices; the next change abandons it. It is drawn in the back buffer, so
/// the screen keeps the coarse frame until the whole one is complete.
///
/// Knows no window. The functions that draw need its current GL context.
class PacedScene {
 public:
  /// The font of the texts.
  void setFont(const std::string& path) { scene_.setFont(path); }

  /// For pictures beside the frames; the next frame must be drawn anew.
  [[nodiscard]] Scene& scene() { return scene_; }

  /// Draws a frame of what has changed, and abandons the one that is drawn in slices.
  FrameReport draw(const Subject& subject);
  /// Draws a whole frame in one go.
  FrameReport drawWhole(const Subject& subject);
  /// Whether the last frame is whole. If not, `begin` must follow after `restSeconds`.
  [[nodiscard]] bool isWhole() const { return whole_; }
  [[nodiscard]] double restSeconds() const { return restSeconds_; }
  /// The motion has ended. If `changed`, the next frame is its last, and the whole frame follows
  /// without the wait.
  void endMotion(bool changed) { motionEnded_ = changed; }

  /// Begins a whole frame, which `advance` draws.
  void begin(const Subject& subject);
  /// Draws a slice of it; not if anything has changed since `begin`. Returns whether the frame is
  /// complete.
  bool advance(const Subject& subject);
  /// Shows the coarse frame again while the whole one is drawn. False if the driver cannot.
  bool showCoarse();
  /// The outcome of the frame that `advance` completed.
  [[nodiscard]] const FrameReport& report() const { return scene_.report(); }

  /// Says how long the last frame took until it was on the screen.
  void wasPresented(double milliseconds);

 private:
  /// The points of a whole frame.
  [[nodiscard]] std::size_t fullPoints(ShownSurface& shown) const;
  [[nodiscard]] std::size_t coarseStepFor(ShownSurface& shown) const;
  FrameReport drawCoarse(const Subject& subject, std::size_t step);
  void bindTarget(const Viewport& viewport);

  Scene scene_;
  FramePacer pacer_;
  // A frame in motion has one sample a pixel: a software GL draws it in half the time.
  std::optional<PictureTarget> target_;
  bool whole_ = true;
  bool motionEnded_ = false;
  double restSeconds_ = 0.0;
  int untimed_ = 0;              // whole frames since the last timed one
  double slicesTook_ = 0.0;      // milliseconds, for the frame that is drawn in slices
  std::size_t coarseTimed_ = 0;  // points of the coarse frame whose time is wanted
  std::uint64_t drawn_ = 0;      // the last measurement drawn
};

}  // namespace morvane
