// The colours of a height scale as a texture.
#pragma once

#include "surface/heat_map_scale.h"
#include "view/gl_objects.h"

namespace morvane {

/// One row of texels. Texture coordinate s belongs to the height `lowest` + s / `perUnit`; the ends
/// lie outside the scale, so that the nearest texel has the colour of all heights beyond them. All
/// functions need the same current GL context.
class ScaleTexture {
 public:
  /// Replaces the colours by those of `scale`.
  void make(const HeatMapScale& scale);
  [[nodiscard]] GLuint name() const { return texture_.name(); }
  [[nodiscard]] float lowest() const { return lowest_; }
  [[nodiscard]] float perUnit() const { return perUnit_; }

 private:
  GlTexture texture_;
  float lowest_ = 0.0F;
  float perUnit_ = 0.0F;
};

}  // namespace morvane
