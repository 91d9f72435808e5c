// The numbers of the colour key as they are read on the screen.
#include <gtest/gtest.h>

#include "geometry/key_column.h"

namespace morvane {
namespace {

// Glyphs half as wide as high; in a narrow view `stretch` times as wide.
KeyColumn column(float max, float min, float stretch) {
  return keyColumn(max, min, [=](std::string_view text, float scale) {
    return 24.0F * scale * stretch * static_cast<float>(text.size());
  });
}

TEST(KeyColumn, FitsBesideTheKeyHoweverLongAndInEveryWindow) {
  constexpr float kKeyLeft = 565.0F * 1.725F;
  constexpr float kKeyRight = 565.0F * 1.775F;
  for (const float stretch : {1.0F, 1.05F, 1.3F, 2.1F}) {
    for (const float max : {5.0F, 173.45F, 40000.0F, 3e38F}) {
      SCOPED_TRACE(testing::Message() << max << " at " << stretch);
      const KeyColumn shown = column(max, -max, stretch);
      for (const KeyNumber& number : shown.numbers) {
        const float end =
            number.x + 24.0F * shown.scale * stretch * static_cast<float>(number.text.size());
        EXPECT_TRUE((number.x >= 0.0F && end <= kKeyLeft) ||
                    (number.x >= kKeyRight && end <= 1130.0F))
            << number.text << " from " << number.x << " to " << end;
      }
      EXPECT_TRUE(shown.scale >= 0.32F || max > 1e6F);
    }
  }
  EXPECT_EQ(column(0.004F, -0.001F, 1.0F).numbers.back().text, "  0.00µm");
  EXPECT_FLOAT_EQ(column(5.0F, -5.0F, 1.0F).numbers.front().x, 1005.7F);
}

}  // namespace
}  // namespace morvane
