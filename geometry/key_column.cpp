#include "geometry/key_column.h"

#include <algorithm>

#include "base/number_text.h"

namespace morvane {
namespace {

constexpr float kScale = 0.4F;
constexpr float kMinPart = 0.8F;        // of that, for readable numbers
constexpr float kLabelOffset = 0.005F;  // device units beside the key
constexpr float kMargin = 6.0F;         // units to the edge of the view
constexpr const char* kGap = "  ";      // between key and number

constexpr float acrossOf(float deviceX) { return kTextSpaceWidth / 2 * (1.0F + deviceX); }
// Kept: 387 is not exactly the middle of the space.
constexpr float upOf(float deviceY) { return 387.0F + 387.5F * deviceY; }

ScreenQuad boxQuad(const glm::vec2& low, const glm::vec2& high, int width, int height) {
  const glm::vec2 pixels(static_cast<float>(width) / kTextSpaceWidth,
                         static_cast<float>(height) / kTextSpaceHeight);
  const auto corner = [&](float x, float y) { return glm::vec2(x, kTextSpaceHeight - y) * pixels; };
  return {corner(low.x, low.y), corner(high.x, low.y), corner(high.x, high.y),
          corner(low.x, high.y)};
}

}  // namespace

KeyColumn keyColumn(const HeatMapScale& scale, const TextWidth& textWidth) {
  KeyColumn column;
  float widest = 0.0F;
  for (const KeyLabel& label : keyLabels(scale)) {
    const KeyNumber& number = column.numbers.emplace_back(
        KeyNumber{.text = kGap + unsignedZero(label.text) + "µm", .y = upOf(label.y)});
    widest = std::max(widest, textWidth(number.text, kScale));
  }
  const float right = acrossOf(kKeyCentreX + kKeyWidth / 2 + kLabelOffset);
  const float left = acrossOf(kKeyCentreX - kKeyWidth / 2 - kLabelOffset);
  const float roomRight = kTextSpaceWidth - kMargin - right;
  const bool atRight = widest * kMinPart <= roomRight;
  const float room = atRight ? roomRight : left - kMargin;
  column.scale = kScale * std::min(1.0F, room / widest);
  const float gap = textWidth(kGap, column.scale);
  for (KeyNumber& number : column.numbers) {
    // Left of the key the blanks are needed after the number, not before it.
    number.x = atRight ? right : left - gap - textWidth(number.text, column.scale);
  }
  return column;
}

ScreenQuad textQuad(const glm::vec2& start, float length, float em, int width, int height) {
  constexpr float kAscent = 0.75F;  // parts of the height
  constexpr float kDescent = 0.25F;
  return boxQuad(start - glm::vec2(0.0F, kDescent * em), start + glm::vec2(length, kAscent * em),
                 width, height);
}

std::vector<ScreenQuad> keyArea(const KeyColumn& column, const TextWidth& textWidth,
                                float textHeight, int width, int height) {
  std::vector<ScreenQuad> room = {
      boxQuad({acrossOf(kKeyCentreX - kKeyWidth / 2), upOf(-kKeyHeight / 2)},
              {acrossOf(kKeyCentreX + kKeyWidth / 2), upOf(kKeyHeight / 2)}, width, height)};
  for (const KeyNumber& number : column.numbers) {
    room.push_back(textQuad({number.x, number.y}, textWidth(number.text, column.scale),
                            textHeight * column.scale, width, height));
  }
  return room;
}

bool keyFits(const std::vector<ScreenQuad>& area, int width, int height) {
  const float left = static_cast<float>(width) * 2.0F / 3.0F;
  const auto inside = [&](const glm::vec2& corner) {
    return corner.x >= left && corner.x <= static_cast<float>(width) && corner.y >= 0.0F &&
           corner.y <= static_cast<float>(height);
  };
  for (std::size_t i = 0; i < area.size(); ++i) {
    if (!std::ranges::all_of(area[i], inside)) return false;
    if (i > 1 && overlap(area[i - 1], area[i])) return false;  // the first one is the key itself
  }
  return true;
}

}  // namespace morvane
