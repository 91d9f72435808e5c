// The characters of a font as textures.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>

#include "view/gl_objects.h"

namespace morvane {

/// A coverage bitmap with an empty border for texture filtering.
struct GlyphPicture {
  /// At full and at half size: a pixel of small text then needs few samples.
  std::array<GlTexture, 2> textures;
  int width = 0;  ///< texels at full size, with the border
  int rows = 0;
  int left = 0;  ///< from the pen to the left edge
  int top = 0;   ///< from the baseline up to the top edge
};

/// A character of the font.
struct Glyph {
  GlyphPicture ink;
  GlyphPicture rim;  ///< the same, a little wider, drawn beneath it
  long advance = 0;  ///< of the pen, 1/64 texel
};

/// Rasterises the characters of a font. `make` needs a current GL context.
class GlyphMaker {
 public:
  /// Glyphs are `size` texels high. Errors are printed; then all glyphs are empty.
  GlyphMaker(const std::string& fontPath, int size);
  ~GlyphMaker();
  GlyphMaker(const GlyphMaker&) = delete;
  GlyphMaker& operator=(const GlyphMaker&) = delete;

  /// The glyph of a character; an empty one, which draws nothing, if the font has none.
  [[nodiscard]] Glyph make(std::size_t code) const;

 private:
  struct Font;
  std::unique_ptr<Font> font_;
};

}  // namespace morvane
