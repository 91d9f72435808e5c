// Text in a GL window: textures for each character, drawn as quads.
#pragma once

#include <array>
#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <string>
#include <string_view>

#include "view/gl_objects.h"
#include "view/shader_program.h"

namespace morvane {

/// A coverage bitmap with an empty border, so that smoothing finds nothing beside it.
struct GlyphPicture {
  GlTexture texture;
  int width = 0;  ///< pixels, with the border
  int rows = 0;
  int left = 0;  ///< from the pen to the left edge
  int top = 0;   ///< from the baseline up to the top edge
};

/// A character of the face.
struct Glyph {
  GlyphPicture ink;
  GlyphPicture rim;  ///< the same a little fatter, for beneath it
  long advance = 0;  ///< of the pen, 1/64 pixel
};

/// Characters below this code are loaded: Latin-1 as far as the micro sign and a little beyond.
inline constexpr std::size_t kGlyphs = 230;

/// Units that glyphs are high at a scale of 1: pixels that the face is loaded at.
inline constexpr float kGlyphHeight = 48.0F;

/// All of it needs a current GL context; each window has a renderer of its own.
class TextRenderer {
 public:
  /// Builds the program and loads the face `fontPath`; text is laid out in a space of `width` ×
  /// `height` units with the origin at the bottom left. What fails is printed, and what is missing
  /// then draws nothing. Each text lies on a rim of `rimColour`, which keeps it readable over
  /// anything; in the colour of the background it is not seen beside that.
  void initialise(const std::string& fontPath, float width, float height,
                  const glm::vec3& rimColour);
  /// Makes what no other context can see anew, in the current one; the context before is gone.
  void enterContext();
  /// Lays text out in a space of another size from now on.
  void setSpace(float width, float height);
  /// Says how many pixels the space is spread over, so that glyphs keep their shape in it.
  void setPixels(int width, int height);

  /// Draws UTF-8 text with its pen starting at (x, y) of the layout space, over everything else.
  /// Glyphs are `kGlyphHeight` units high times `scale`; characters that are not loaded draw
  /// nothing.
  void draw(std::string_view text, float x, float y, float scale, const glm::vec3& colour) const;

  /// Draws text from the origin of a plane that `matrix` places in clip space, over everything
  /// else. It is seen from its front only.
  void drawInSpace(std::string_view text, const glm::mat4& matrix, float scale,
                   const glm::vec3& colour) const;

  /// How far the pen goes for `text`, in units, while the space is not distorted.
  [[nodiscard]] float width(std::string_view text, float scale) const;
  /// The same in the layout space as `draw` distorts it.
  [[nodiscard]] float widthInSpace(std::string_view text, float scale) const {
    return width(text, scale * shape_.x);
  }
  /// The height of glyphs there at a scale of 1.
  [[nodiscard]] float heightInSpace() const { return kGlyphHeight * shape_.y; }

 private:
  void loadGlyphs(const std::string& fontPath);
  void drawGlyphs(std::string_view text, glm::vec2 pen, glm::vec2 scale,
                  const glm::mat4& projection, const glm::vec3& colour) const;
  void drawLayer(GlyphPicture Glyph::*layer, std::string_view text, glm::vec2 pen, glm::vec2 scale,
                 const glm::vec3& colour) const;

  ShaderProgram program_;
  glm::vec3 rimColour_{1.0F};
  glm::mat4 projection_{1.0F};
  glm::vec2 space_{1.0F};
  glm::vec2 shape_{1.0F};  // what a glyph is scaled by in each direction, to look as it was made
  std::array<Glyph, kGlyphs> glyphs_;
  GlVertexArray vertexArray_;
  GlBuffer vertexBuffer_;
};

}  // namespace morvane
