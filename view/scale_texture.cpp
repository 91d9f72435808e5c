#include "view/scale_texture.h"

#include <cmath>
#include <vector>

namespace morvane {
namespace {

constexpr int kTexels = 1024;
// How far the texture reaches beyond each end, in parts of the scale. The last colour goes on for a
// fifth above the upper end.
constexpr float kBeyond = 0.3F;

}  // namespace

void ScaleTexture::make(const HeatMapScale& scale) {
  const float range = scale.upper() - scale.lower();
  lowest_ = scale.lower() - kBeyond * range;
  const float span = (1.0F + 2.0F * kBeyond) * range;
  // Every height has the same colour on an empty scale.
  perUnit_ = std::isnormal(span) ? 1.0F / span : 0.0F;
  std::vector<Colour> colours;
  for (int i = 0; i < kTexels; ++i) {
    const float part = (static_cast<float>(i) + 0.5F) / kTexels;
    colours.push_back(scale.colourOf(lowest_ + part * span));
  }
  if (texture_.name() == 0) texture_ = GlTexture::generate();
  glBindTexture(GL_TEXTURE_2D, texture_.name());
  glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, kTexels, 1, 0, GL_RGB, GL_FLOAT, colours.data());
  for (const GLenum side : {GL_TEXTURE_WRAP_S, GL_TEXTURE_WRAP_T}) {
    glTexParameteri(GL_TEXTURE_2D, side, GL_CLAMP_TO_EDGE);
  }
  for (const GLenum filter : {GL_TEXTURE_MIN_FILTER, GL_TEXTURE_MAG_FILTER}) {
    glTexParameteri(GL_TEXTURE_2D, filter, GL_NEAREST);
  }
  glBindTexture(GL_TEXTURE_2D, 0);
}

}  // namespace morvane
