// Pictures as JPEG files.
#include <gtest/gtest.h>
// The toolkit's headers bring macros that the test library's do not survive.
#include <FL/Fl_JPEG_Image.H>

#include <cstdlib>

#include "export/screen_picture.h"

namespace morvane {
namespace {

TEST(JpegFile, HoldsThePictureRowByRow) {
  // Neither side a multiple of a coding block, more bytes than the encoder writes at a time.
  RgbImage image(1403, 717);
  for (int y = 0; y < image.height; ++y) {
    unsigned char* pixel = image.row(static_cast<std::size_t>(y));
    for (int x = 0; x < image.width; ++x) {
      *pixel++ = static_cast<unsigned char>(x * 255 / image.width);
      *pixel++ = static_cast<unsigned char>(y * 255 / image.height);
      *pixel++ = static_cast<unsigned char>((x / 8 + y / 8) % 2 * 255);
    }
  }
  Bytes file = {'o', 'l', 'd'};
  ASSERT_EQ(encodeJpeg(image, file), "");
  EXPECT_GT(file.size(), std::size_t{1} << 16);

  const Fl_JPEG_Image read("in memory", file.data());
  ASSERT_EQ(read.w(), image.width);
  ASSERT_EQ(read.h(), image.height);
  ASSERT_EQ(read.d(), 3);
  // The chequered blue costs the others sharpness: only means over areas are kept.
  const auto* found = reinterpret_cast<const unsigned char*>(read.data()[0]);
  for (int y = 0; y + 16 <= image.height; y += 100) {
    for (int x = 0; x + 16 <= image.width; x += 100) {
      int difference[3] = {};
      for (int i = 0; i < 256; ++i) {
        const auto pixel = static_cast<std::size_t>((y + i / 16) * image.width + x + i % 16);
        for (std::size_t c = 0; c < 3; ++c) {
          difference[c] += found[3 * pixel + c] - image.pixels[3 * pixel + c];
        }
      }
      for (const int d : difference) EXPECT_LE(std::abs(d), 20 * 256) << x << ' ' << y;
    }
  }
}

TEST(JpegFile, LeavesNothingOfWhatCannotBe) {
  Bytes file;
  EXPECT_EQ(encodeJpeg(RgbImage(), file), "Empty JPEG image (DNL not supported)");
  EXPECT_NE(encodeJpeg(RgbImage(65501, 1), file), "");
  EXPECT_TRUE(file.empty());
}

}  // namespace
}  // namespace morvane
