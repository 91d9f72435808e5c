#include "geometry/key_column.h"

#include <algorithm>

#include "base/number_text.h"

namespace morvane {
namespace {

constexpr float kScale = 0.4F;
constexpr float kLeastPart = 0.8F;      // of that, of numbers that are to be read
constexpr float kLabelOffset = 0.005F;  // device units beside the key
constexpr float kMargin = 6.0F;         // units to the edge of the view
constexpr const char* kGap = "  ";      // between key and number

constexpr float acrossOf(float deviceX) { return kTextSpaceWidth / 2 * (1.0F + deviceX); }

}  // namespace

KeyColumn keyColumn(float max, float min, const TextWidth& textWidth) {
  KeyColumn column;
  const auto texts = keyLabels(max, min);
  float widest = 0.0F;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    KeyNumber& number = column.numbers[i];
    number.text = kGap + unsignedZero(texts[i]) + "µm";
    // Kept: not quite the middle of the space.
    number.y = 387.0F + 387.5F * keyLabelY(i);
    widest = std::max(widest, textWidth(number.text, kScale));
  }
  const float right = acrossOf(kKeyCentreX + kKeyWidth / 2 + kLabelOffset);
  const float left = acrossOf(kKeyCentreX - kKeyWidth / 2 - kLabelOffset);
  const float roomRight = kTextSpaceWidth - kMargin - right;
  const bool atRight = widest * kLeastPart <= roomRight;
  const float room = atRight ? roomRight : left - kMargin;
  column.scale = kScale * std::min(1.0F, room / widest);
  const float gap = textWidth(kGap, column.scale);
  for (KeyNumber& number : column.numbers) {
    // The blanks before it, moved behind it.
    number.x = atRight ? right : left - gap - textWidth(number.text, column.scale);
  }
  return column;
}

}  // namespace morvane
