// Text in a GL window: a texture for each character, drawn as quads.
#pragma once

#include <array>
#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <memory>
#include <string>
#include <string_view>

#include "view/gl_objects.h"
#include "view/glyphs.h"
#include "view/shader_program.h"

namespace morvane {

/// Characters below this code are loaded: Latin-1 up to a little beyond the micro sign.
inline constexpr std::size_t kGlyphs = 230;

/// The height of glyphs in units at a scale of 1, which is also the font size in pixels.
inline constexpr float kGlyphHeight = 48.0F;

/// All functions need a current GL context. Each window has its own renderer.
class TextRenderer {
 public:
  /// Creates the shader program and loads the font `fontPath`. Text is laid out in a space of
  /// `width` × `height` units with the origin at the bottom left. Errors are printed; missing
  /// glyphs draw nothing. Each text has a rim of `rimColour`, which keeps it readable over
  /// anything. If that is the background colour the rim is invisible there.
  void initialise(const std::string& fontPath, float width, float height,
                  const glm::vec3& rimColour);
  /// Recreates objects that contexts do not share, after the previous context was destroyed.
  void enterContext();
  /// Changes the size of the layout space, one unit of which is `pixelRatio` pixels.
  void setSpace(float width, float height, float pixelRatio = 1.0F);
  /// Sets the size of the space in the window's pixels, so that glyphs are not distorted. The
  /// picture has `pixelRatio` pixels for each of them.
  void setPixels(int width, int height, float pixelRatio);

  /// Draws UTF-8 text over everything else, with the pen starting at (x, y) of the layout space.
  /// Glyphs are `kGlyphHeight` × `scale` units high. Characters that are not loaded draw nothing.
  void draw(std::string_view text, float x, float y, float scale, const glm::vec3& colour);

  /// Draws text over everything else, starting at the origin of a plane that `matrix` transforms to
  /// clip space. It is visible from its front only.
  void drawInSpace(std::string_view text, const glm::mat4& matrix, float scale,
                   const glm::vec3& colour);

  /// The advance of the pen for `text`, in units, in an undistorted space.
  [[nodiscard]] float width(std::string_view text, float scale) const;
  /// The same in the layout space, with the distortion that `draw` corrects.
  [[nodiscard]] float widthInSpace(std::string_view text, float scale) const {
    return width(text, scale * shape_.x);
  }
  /// The height of glyphs there at a scale of 1.
  [[nodiscard]] float heightInSpace() const { return kGlyphHeight * shape_.y; }

 private:
  enum class GlyphSize { kHalf, kFull, kLarge };

  const Glyph& largeGlyph(std::size_t code);
  void drawGlyphs(std::string_view text, glm::vec2 pen, glm::vec2 scale,
                  const glm::mat4& projection, const glm::vec3& colour);
  void drawLayer(GlyphPicture Glyph::*layer, GlyphSize size, std::string_view text, glm::vec2 pen,
                 glm::vec2 scale, const glm::vec3& colour);
  [[nodiscard]] float texelsPerPixel(glm::vec2 pen, glm::vec2 scale,
                                     const glm::mat4& projection) const;

  ShaderProgram program_;
  glm::vec3 rimColour_{1.0F};
  glm::mat4 projection_{1.0F};
  glm::vec2 space_{1.0F};
  glm::vec2 pixels_{1.0F};  // of the space, in the window
  float pixelRatio_ = 1.0F;
  glm::vec2 shape_{1.0F};  // scale of glyphs in each direction, so that they are not distorted
  std::string fontPath_;
  std::array<Glyph, kGlyphs> glyphs_;
  // For text that is drawn larger than these; made at first use.
  std::unique_ptr<GlyphMaker> largeMaker_;
  std::array<std::unique_ptr<Glyph>, kGlyphs> large_;
  GlVertexArray vertexArray_;
  GlBuffer vertexBuffer_;
};

}  // namespace morvane
