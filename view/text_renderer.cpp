#include "view/text_renderer.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_GLYPH_H
#include FT_STROKER_H

#include <algorithm>
#include <cstdint>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/type_ptr.hpp>
#include <memory>
#include <type_traits>
#include <vector>

#include "base/debug_log.h"
#include "view/gl_state.h"
#include "view/shader_sources.h"

namespace morvane {
namespace {

constexpr auto kPixelSize = static_cast<FT_UInt>(kGlyphHeight);
constexpr int kRim = 8;     // pixels of the face; two of the screen at the size of the labels
constexpr int kBorder = 8;  // texels; as many as a pixel covers in the smallest readable text
constexpr std::size_t kFloatsPerQuad = std::size_t{6} * 4;

struct LibraryRelease {
  void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};
struct FaceRelease {
  void operator()(FT_Face face) const { FT_Done_Face(face); }
};
struct StrokerRelease {
  void operator()(FT_Stroker stroker) const { FT_Stroker_Done(stroker); }
};
struct OutlineRelease {
  void operator()(FT_Glyph glyph) const { FT_Done_Glyph(glyph); }
};
using Library = std::unique_ptr<std::remove_pointer_t<FT_Library>, LibraryRelease>;
using Face = std::unique_ptr<std::remove_pointer_t<FT_Face>, FaceRelease>;
using Stroker = std::unique_ptr<std::remove_pointer_t<FT_Stroker>, StrokerRelease>;
using Outline = std::unique_ptr<std::remove_pointer_t<FT_Glyph>, OutlineRelease>;

Library openLibrary() {
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) != 0) {
    logStream() << "FreeType initiation Failed\n";
    return nullptr;
  }
  return Library(library);
}

Face openFace(const Library& library, const std::string& path) {
  FT_Face face = nullptr;
  if (FT_New_Face(library.get(), path.c_str(), 0, &face) != 0) {
    logStream() << "Error: FreeType failed to load font\n";
    return nullptr;
  }
  FT_Set_Pixel_Sizes(face, 0, kPixelSize);
  return Face(face);
}

Stroker makeStroker(const Library& library) {
  FT_Stroker stroker = nullptr;
  if (FT_Stroker_New(library.get(), &stroker) != 0) return nullptr;
  FT_Stroker_Set(stroker, FT_Fixed{kRim} << 6, FT_STROKER_LINECAP_ROUND, FT_STROKER_LINEJOIN_ROUND,
                 0);
  return Stroker(stroker);
}

/// The outline in `slot`, widened by the rim unless `stroker` is null. Null on failure.
Outline outlineOf(FT_GlyphSlot slot, FT_Stroker stroker) {
  FT_Glyph glyph = nullptr;
  if (FT_Get_Glyph(slot, &glyph) != 0) return nullptr;
  const bool failed = stroker && FT_Glyph_StrokeBorder(&glyph, stroker, 0, 1) != 0;
  Outline outline(glyph);
  return failed ? nullptr : std::move(outline);
}

/// The coverage of a glyph in rows of `width` texels.
struct Texels {
  int width;
  int rows;
  std::vector<unsigned char> values;
};

/// A copy of half the size. Width and rows must be even.
Texels halved(const Texels& texels) {
  Texels half = {texels.width / 2, texels.rows / 2, {}};
  const auto at = [&](int row, int column) {
    return texels.values[static_cast<std::size_t>(row * texels.width + column)];
  };
  for (int row = 0; row < texels.rows; row += 2) {
    for (int c = 0; c < texels.width; c += 2) {
      const int sum = at(row, c) + at(row, c + 1) + at(row + 1, c) + at(row + 1, c + 1);
      half.values.push_back(static_cast<unsigned char>((sum + 2) / 4));
    }
  }
  return half;
}

GlTexture makeTexture(const Texels& texels) {
  GlTexture texture = GlTexture::generate();
  glBindTexture(GL_TEXTURE_2D, texture.name());
  glTexImage2D(GL_TEXTURE_2D, 0, GL_RED, texels.width, texels.rows, 0, GL_RED, GL_UNSIGNED_BYTE,
               texels.values.data());
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
  return texture;
}

/// `number`, or the next one if it is odd.
int roundedUp(int number) { return number + number % 2; }

GlyphPicture makePicture(Outline outline) {
  GlyphPicture picture;
  FT_Glyph glyph = outline.release();
  const bool failed =
      glyph == nullptr || FT_Glyph_To_Bitmap(&glyph, FT_RENDER_MODE_NORMAL, nullptr, 1) != 0;
  outline.reset(glyph);
  if (failed) return picture;
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-static-cast-downcast): what the call above has made
  const auto* made = reinterpret_cast<const FT_BitmapGlyphRec*>(glyph);
  const FT_Bitmap& bitmap = made->bitmap;
  picture.width = roundedUp(static_cast<int>(bitmap.width)) + 2 * kBorder;
  picture.rows = roundedUp(static_cast<int>(bitmap.rows)) + 2 * kBorder;
  picture.left = made->left - kBorder;
  picture.top = made->top + kBorder;
  Texels texels = {picture.width, picture.rows, {}};
  texels.values.resize(static_cast<std::size_t>(picture.width * picture.rows));
  for (int row = 0; row < static_cast<int>(bitmap.rows); ++row) {
    std::copy_n(bitmap.buffer + std::ptrdiff_t{row} * bitmap.pitch, bitmap.width,
                texels.values.begin() + std::ptrdiff_t{row + kBorder} * picture.width + kBorder);
  }
  picture.textures = {makeTexture(texels), makeTexture(halved(texels))};
  return picture;
}

/// Takes the next character from UTF-8 `text`. A byte that is not UTF-8 is read as Latin-1, such as
/// the micro sign of the units.
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
    code = kGlyphs;  // not loaded
  }
  text.remove_prefix(length);
  return code;
}

float penStep(const Glyph& glyph, float scale) {
  return static_cast<float>(glyph.advance >> 6) * scale;
}

}  // namespace

void TextRenderer::initialise(const std::string& fontPath, float width, float height,
                              const glm::vec3& rimColour) {
  program_ = ShaderProgram(kTextShader);
  rimColour_ = rimColour;
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
  pixels_ = {width, height};
  // NOLINTNEXTLINE(readability-suspicious-call-argument): the origin is a corner
  projection_ = glm::ortho(0.0F, width, 0.0F, height);
  space_ = {width, height};
  shape_ = glm::vec2(1.0F);
}

void TextRenderer::setPixels(int width, int height) {
  pixels_ = {std::max(width, 1), std::max(height, 1)};
  const glm::vec2 pixelsPerUnit = pixels_ / space_;
  // In a small window glyphs stay readable.
  constexpr float kSmallest = 0.6F;  // pixels per unit
  shape_ = std::max(std::min(pixelsPerUnit.x, pixelsPerUnit.y), kSmallest) / pixelsPerUnit;
}

void TextRenderer::loadGlyphs(const std::string& fontPath) {
  const Library library = openLibrary();
  if (!library) return;
  const Face face = openFace(library, fontPath);
  if (!face) return;
  const Stroker stroker = makeStroker(library);
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  for (std::size_t code = 0; code < kGlyphs; ++code) {
    if (FT_Load_Char(face.get(), static_cast<FT_ULong>(code), FT_LOAD_NO_BITMAP) != 0) {
      logStream() << "FreeType unable to load Glyph\n";
      continue;
    }
    Glyph& glyph = glyphs_[code];
    glyph.advance = face->glyph->advance.x;
    glyph.ink = makePicture(outlineOf(face->glyph, nullptr));
    if (stroker) glyph.rim = makePicture(outlineOf(face->glyph, stroker.get()));
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
  // Text is drawn over everything: a partly hidden label would be misread.
  const GlSwitch noDepth(GL_DEPTH_TEST, false);
  const GlBlending blending;
  glUseProgram(program_.name());
  glUniformMatrix4fv(program_.uniform("projection"), 1, GL_FALSE, glm::value_ptr(projection));
  const float texels = texelsPerPixel(pen, scale, projection);
  // With blending in linear light, dark strokes thinner than a pixel look too pale.
  constexpr float kInLinearLight = 2.0F;
  constexpr float kThin = 1.5F;  // texels a pixel
  const bool pale = texels >= kThin && glIsEnabled(GL_FRAMEBUFFER_SRGB) == GL_TRUE;
  glUniform1f(program_.uniform("thickening"), pale ? kInLinearLight : 1.0F);
  glActiveTexture(GL_TEXTURE0);
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer_.name());
  // The size at which a pixel covers at most four texels.
  const std::size_t size = texels <= 4.0F ? 0 : 1;
  // All rims first, so that a rim does not cover the letter before it.
  drawLayer(&Glyph::rim, size, text, pen, scale, rimColour_);
  drawLayer(&Glyph::ink, size, text, pen, scale, colour);
  glBindTexture(GL_TEXTURE_2D, 0);
}

/// How many texels of a glyph at full size a pixel covers along the text.
float TextRenderer::texelsPerPixel(glm::vec2 pen, glm::vec2 scale,
                                   const glm::mat4& projection) const {
  const auto pixel = [&](glm::vec2 point) {
    const glm::vec4 clip = projection * glm::vec4(point, 0.0F, 1.0F);
    return glm::vec2(clip) / clip.w * 0.5F * pixels_;
  };
  return 1.0F / glm::distance(pixel(pen), pixel(pen + glm::vec2(scale.x, 0.0F)));
}

void TextRenderer::drawLayer(GlyphPicture Glyph::*layer, std::size_t size, std::string_view text,
                             glm::vec2 pen, glm::vec2 scale, const glm::vec3& colour) const {
  glUniform3fv(program_.uniform("textCol"), 1, glm::value_ptr(colour));
  while (!text.empty()) {
    const std::uint32_t code = nextCharacter(text);
    if (code >= kGlyphs) continue;
    const GlyphPicture& picture = glyphs_[code].*layer;
    const float left = pen.x + static_cast<float>(picture.left) * scale.x;
    const float bottom = pen.y - static_cast<float>(picture.rows - picture.top) * scale.y;
    const float right = left + static_cast<float>(picture.width) * scale.x;
    const float top = bottom + static_cast<float>(picture.rows) * scale.y;
    const std::array<float, kFloatsPerQuad> quad = {
        left, top, 0, 0, left,  bottom, 0, 1, right, bottom, 1, 1,
        left, top, 0, 0, right, bottom, 1, 1, right, top,    1, 0,
    };
    glBindTexture(GL_TEXTURE_2D, picture.textures[size].name());
    glBufferSubData(GL_ARRAY_BUFFER, 0, sizeof quad, quad.data());
    glDrawArrays(GL_TRIANGLES, 0, 6);
    pen.x += penStep(glyphs_[code], scale.x);
  }
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
