#include "view/text_renderer.h"

#include <algorithm>
#include <cstdint>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/type_ptr.hpp>

#include "view/gl_state.h"
#include "view/shader_sources.h"

namespace morvane {
namespace {

constexpr int kLarger = 4;  // times the texels of the usual glyphs
constexpr std::size_t kFloatsPerQuad = std::size_t{6} * 4;

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
  fontPath_ = fontPath;
  const GlyphMaker maker(fontPath, static_cast<int>(kGlyphHeight));
  for (std::size_t code = 0; code < kGlyphs; ++code) glyphs_[code] = maker.make(code);
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

void TextRenderer::setSpace(float width, float height, float pixelRatio) {
  pixels_ = {width, height};
  pixelRatio_ = pixelRatio;
  // NOLINTNEXTLINE(readability-suspicious-call-argument): the origin is a corner
  projection_ = glm::ortho(0.0F, width, 0.0F, height);
  space_ = {width, height};
  shape_ = glm::vec2(1.0F);
}

void TextRenderer::setPixels(int width, int height, float pixelRatio) {
  pixels_ = {std::max(width, 1), std::max(height, 1)};
  pixelRatio_ = pixelRatio;
  const glm::vec2 pixelsPerUnit = pixels_ / space_;
  // In a small window glyphs stay readable.
  constexpr float kSmallest = 0.6F;  // pixels per unit
  shape_ = std::max(std::min(pixelsPerUnit.x, pixelsPerUnit.y), kSmallest) / pixelsPerUnit;
}

const Glyph& TextRenderer::largeGlyph(std::size_t code) {
  if (!largeMaker_) {
    largeMaker_ = std::make_unique<GlyphMaker>(fontPath_, static_cast<int>(kGlyphHeight) * kLarger);
  }
  if (!large_[code]) large_[code] = std::make_unique<Glyph>(largeMaker_->make(code));
  return *large_[code];
}

void TextRenderer::draw(std::string_view text, float x, float y, float scale,
                        const glm::vec3& colour) {
  drawGlyphs(text, {x, y}, scale * shape_, projection_, colour);
}

void TextRenderer::drawInSpace(std::string_view text, const glm::mat4& matrix, float scale,
                               const glm::vec3& colour) {
  drawGlyphs(text, glm::vec2(0.0F), glm::vec2(scale), matrix, colour);
}

void TextRenderer::drawGlyphs(std::string_view text, glm::vec2 pen, glm::vec2 scale,
                              const glm::mat4& projection, const glm::vec3& colour) {
  // Text is drawn over everything: a partly hidden label would be misread.
  const GlSwitch noDepth(GL_DEPTH_TEST, false);
  const GlBlending blending;
  glUseProgram(program_.name());
  glUniformMatrix4fv(program_.uniform("projection"), 1, GL_FALSE, glm::value_ptr(projection));
  const float texels = texelsPerPixel(pen, scale, projection);
  // With blending in linear light, dark strokes thinner than a pixel look too pale.
  constexpr float kInLinearLight = 2.0F;
  constexpr float kThin = 1.5F;  // texels a pixel of the window
  const bool pale = texels * pixelRatio_ >= kThin && glIsEnabled(GL_FRAMEBUFFER_SRGB) == GL_TRUE;
  glUniform1f(program_.uniform("thickening"), pale ? kInLinearLight : 1.0F);
  glActiveTexture(GL_TEXTURE0);
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer_.name());
  // The size at which a pixel covers one to four texels.
  const GlyphSize size = texels < 1.0F    ? GlyphSize::kLarge
                         : texels <= 4.0F ? GlyphSize::kFull
                                          : GlyphSize::kHalf;
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
    return glm::vec2(clip) / clip.w * 0.5F * pixels_ * pixelRatio_;
  };
  return 1.0F / glm::distance(pixel(pen), pixel(pen + glm::vec2(scale.x, 0.0F)));
}

void TextRenderer::drawLayer(GlyphPicture Glyph::*layer, GlyphSize size, std::string_view text,
                             glm::vec2 pen, glm::vec2 scale, const glm::vec3& colour) {
  const bool large = size == GlyphSize::kLarge;
  const glm::vec2 texel = large ? scale / static_cast<float>(kLarger) : scale;
  glUniform3fv(program_.uniform("textCol"), 1, glm::value_ptr(colour));
  while (!text.empty()) {
    const std::uint32_t code = nextCharacter(text);
    if (code >= kGlyphs) continue;
    const GlyphPicture& picture = (large ? largeGlyph(code) : glyphs_[code]).*layer;
    const float left = pen.x + static_cast<float>(picture.left) * texel.x;
    const float bottom = pen.y - static_cast<float>(picture.rows - picture.top) * texel.y;
    const float right = left + static_cast<float>(picture.width) * texel.x;
    const float top = bottom + static_cast<float>(picture.rows) * texel.y;
    const std::array<float, kFloatsPerQuad> quad = {
        left, top, 0, 0, left,  bottom, 0, 1, right, bottom, 1, 1,
        left, top, 0, 0, right, bottom, 1, 1, right, top,    1, 0,
    };
    glBindTexture(GL_TEXTURE_2D, picture.textures[size == GlyphSize::kHalf ? 1 : 0].name());
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
