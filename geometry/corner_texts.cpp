#include "geometry/corner_texts.h"

#include <algorithm>

#include "geometry/key_column.h"

namespace morvane {
namespace {

constexpr float kScale = 0.3F;
constexpr float kMinPart = 0.8F;  // of that, for readable words
constexpr float kNameY = 750.0F;
constexpr float kWordsY = 730.0F;
constexpr float kRoom = kTextSpaceWidth - 2 * kCornerLeft;

}  // namespace

std::vector<CornerText> cornerTexts(const std::string& name, const std::string& words,
                                    const TextWidth& textWidth, float textHeight,
                                    bool onlyFitting) {
  std::vector<CornerText> texts;
  // In a low picture letters are high in the text space. Lines do not quite touch.
  const float line = 1.05F * kScale * textHeight;
  const float nameY = std::min(kNameY, kTextSpaceHeight - line);
  const auto part = [&](const std::string& text) { return kRoom / textWidth(text, kScale); };
  if (!name.empty() && (!onlyFitting || part(name) >= 1.0F)) {
    texts.push_back({.text = name, .y = nameY, .scale = kScale});
  }
  if (!words.empty() && (!onlyFitting || part(words) >= kMinPart)) {
    texts.push_back(
        {words, std::min(kWordsY, nameY - line), kScale * std::min(1.0F, part(words)), true});
  }
  return texts;
}

std::vector<ScreenQuad> cornerArea(const std::vector<CornerText>& texts, const TextWidth& textWidth,
                                   float textHeight, int width, int height) {
  std::vector<ScreenQuad> area;
  for (const auto& [text, y, scale, quiet] : texts) {
    area.push_back(
        textQuad({kCornerLeft, y}, textWidth(text, scale), textHeight * scale, width, height));
  }
  return area;
}

}  // namespace morvane
