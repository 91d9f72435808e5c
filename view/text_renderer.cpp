#include "view/text_renderer.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/type_ptr.hpp>
#include <memory>
#include <type_traits>

#include "view/shader_sources.h"

namespace morvane {
namespace {

constexpr FT_UInt kPixelSize = 48;
constexpr std::size_t kFloatsPerQuad = std::size_t{6} * 4;

struct LibraryRelease {
  void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};
struct FaceRelease {
  void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using Library = std::unique_ptr<std::remove_pointer_t<FT_Library>, LibraryRelease>;
using Face = std::unique_ptr<std::remove_pointer_t<FT_Face>, FaceRelease>;

Library openLibrary() {
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) != 0) {
    std::puts("FreeType initiation Failed");
    return nullptr;
  }
  return Library(library);
}

Face openFace(const Library& library, const std::string& path) {
  FT_Face face = nullptr;
  if (FT_New_Face(library.get(), path.c_str(), 0, &face) != 0) {
    std::puts("Error: FreeType failed to load font");
    return nullptr;
  }
  FT_Set_Pixel_Sizes(face, 0, kPixelSize);
  return Face(face);
}

Glyph makeGlyph(const FT_GlyphSlotRec& slot) {
  Glyph glyph;
  glyph.texture = GlTexture::generate();
  glyph.width = static_cast<int>(slot.bitmap.width);
  glyph.rows = static_cast<int>(slot.bitmap.rows);
  glyph.left = slot.bitmap_left;
  glyph.top = slot.bitmap_top;
  glyph.advance = slot.advance.x;
  glBindTexture(GL_TEXTURE_2D, glyph.texture.name());
  glTexImage2D(GL_TEXTURE_2D, 0, GL_RED, glyph.width, glyph.rows, 0, GL_RED, GL_UNSIGNED_BYTE,
               slot.bitmap.buffer);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
  return glyph;
}

/// Takes the next character from UTF-8 `text`; a byte that begins none stands for itself, so that a
/// lone Latin-1 byte such as the micro sign is understood too.
std::uint32_t nextCharacter(std::string_view& text) {
  const auto byte = [&text](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const auto follows = [&](std::size_t i) { return i < text.size() && (byte(i) & 0xC0U) == 0x80U; };
  const std::uint32_t first = byte(0);
  std::size_t length = 1;
  std::uint32_t code = first;
  if ((first & 0xE0U) == 0xC0U && follows(1)) {
    length = 2;
    code = (first & 0x1FU) << 6U | (byte(1) & 0x3FU);
  } else if ((first & 0xF0U) == 0xE0U && follows(1) && follows(2)) {
    length = 3;
    code = (first & 0x0FU) << 12U | (byte(1) & 0x3FU) << 6U | (byte(2) & 0x3FU);
  } else if ((first & 0xF8U) == 0xF0U && follows(1) && follows(2) && follows(3)) {
    length = 4;
    code = kGlyphs;  // far beyond what is loaded
  }
  text.remove_prefix(length);
  return code;
}

float penStep(const Glyph& glyph, float scale) {
  return static_cast<float>(glyph.advance >> 6) * scale;
}

}  // namespace

void TextRenderer::initialise(const std::string& fontPath, float width, float height) {
  program_ = ShaderProgram(kTextShader);
  setSpace(width, height);
  loadGlyphs(fontPath);
  vertexBuffer_ = GlBuffer::generate();
  glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer_.name());
  glBufferData(GL_ARRAY_BUFFER, kFloatsPerQuad * sizeof(float), nullptr, GL_DYNAMIC_DRAW);
  enterContext();
}

void TextRenderer::enterContext() {
  vertexArray_.forget();
  vertexArray_ = GlVertexArray::generate();
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer_.name());
  glEnableVertexAttribArray(0);
  glVertexAttribPointer(0, 4, GL_FLOAT, GL_FALSE, 4 * sizeof(float), nullptr);
  glBindVertexArray(0);
}

void TextRenderer::setSpace(float width, float height) {
  // NOLINTNEXTLINE(readability-suspicious-call-argument): the origin is a corner
  projection_ = glm::ortho(0.0F, width, 0.0F, height);
  space_ = {width, height};
  shape_ = glm::vec2(1.0F);
}

void TextRenderer::setPixels(int width, int height) {
  const glm::vec2 pixelsPerUnit(static_cast<float>(std::max(width, 1)) / space_.x,
                                static_cast<float>(std::max(height, 1)) / space_.y);
  // In a small window glyphs shrink no further than they can be read.
  constexpr float kSmallest = 0.6F;  // pixels per unit
  shape_ = std::max(std::min(pixelsPerUnit.x, pixelsPerUnit.y), kSmallest) / pixelsPerUnit;
}

void TextRenderer::loadGlyphs(const std::string& fontPath) {
  const Library library = openLibrary();
  if (!library) return;
  const Face face = openFace(library, fontPath);
  if (!face) return;
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  for (std::size_t code = 0; code < kGlyphs; ++code) {
    if (FT_Load_Char(face.get(), static_cast<FT_ULong>(code), FT_LOAD_RENDER | FT_LOAD_NO_BITMAP) !=
        0) {
      std::puts("FreeType unable to load Glyph");
      continue;
    }
    glyphs_[code] = makeGlyph(*face->glyph);
  }
}

void TextRenderer::draw(std::string_view text, float x, float y, float scale,
                        const glm::vec3& colour) const {
  drawGlyphs(text, {x, y}, scale * shape_, projection_, colour);
}

void TextRenderer::drawInSpace(std::string_view text, const glm::mat4& matrix, float scale,
                               const glm::vec3& colour) const {
  drawGlyphs(text, glm::vec2(0.0F), glm::vec2(scale), matrix, colour);
}

void TextRenderer::drawGlyphs(std::string_view text, glm::vec2 pen, glm::vec2 scale,
                              const glm::mat4& projection, const glm::vec3& colour) const {
  // Half a label says less than none: text lies over everything.
  glDisable(GL_DEPTH_TEST);
  glEnable(GL_CULL_FACE);
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  glUseProgram(program_.name());
  glUniformMatrix4fv(program_.uniform("projection"), 1, GL_FALSE, glm::value_ptr(projection));
  glUniform3fv(program_.uniform("textCol"), 1, glm::value_ptr(colour));
  glActiveTexture(GL_TEXTURE0);
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer_.name());
  while (!text.empty()) {
    const std::uint32_t code = nextCharacter(text);
    if (code >= kGlyphs) continue;
    const Glyph& glyph = glyphs_[code];
    const float left = pen.x + static_cast<float>(glyph.left) * scale.x;
    const float bottom = pen.y - static_cast<float>(glyph.rows - glyph.top) * scale.y;
    const float right = left + static_cast<float>(glyph.width) * scale.x;
    const float top = bottom + static_cast<float>(glyph.rows) * scale.y;
    const std::array<float, kFloatsPerQuad> quad = {
        left, top, 0, 0, left,  bottom, 0, 1, right, bottom, 1, 1,
        left, top, 0, 0, right, bottom, 1, 1, right, top,    1, 0,
    };
    glBindTexture(GL_TEXTURE_2D, glyph.texture.name());
    glBufferSubData(GL_ARRAY_BUFFER, 0, sizeof quad, quad.data());
    glDrawArrays(GL_TRIANGLES, 0, 6);
    pen.x += penStep(glyph, scale.x);
  }
  glBindTexture(GL_TEXTURE_2D, 0);
  glDisable(GL_BLEND);
  glDisable(GL_CULL_FACE);
  glEnable(GL_DEPTH_TEST);
}

float TextRenderer::width(std::string_view text, float scale) const {
  float pen = 0.0F;
  while (!text.empty()) {
    const std::uint32_t code = nextCharacter(text);
    if (code < kGlyphs) pen += penStep(glyphs_[code], scale);
  }
  return pen;
}

}  // namespace morvane
