// Bitmaps: the reference cases and damaged files.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <sstream>

#include "base/little_endian.h"
#include "resfile/bitmap_image.h"
#include "tests/support/golden.h"
#include "tests/support/temporary_folder.h"
#include "tools/bitmap_builder.h"
#include "tools/measurement_builder.h"

namespace morvane {
namespace {

class GoldenBitmap : public testing::TestWithParam<std::string> {};

void expectPixels(const std::string& name, const BitmapImage& image) {
  const auto pixels = image.pixels();
  const std::size_t row = static_cast<std::size_t>(image.header().width) * image.bytesPerPixel();
  for (const std::string& line : golden::lines(golden::file(name + ".pixels.txt"))) {
    const auto words = golden::words(line);
    if (words[0] == "bits") {
      EXPECT_EQ(words[1], std::to_string(image.header().bitsPerPixel));
    } else if (words[0] == "size") {
      EXPECT_EQ(words[1], std::to_string(image.header().width));
      EXPECT_EQ(words[2], std::to_string(image.header().height));
      EXPECT_EQ(pixels.size(), row * std::stoul(words[2]));
    } else if (words[0] == "sum") {
      EXPECT_EQ(std::accumulate(pixels.begin(), pixels.end(), 0U), std::stoul(words[1]));
    } else if (words[0] == "at") {
      ASSERT_LT(std::stoul(words[1]), pixels.size());
      EXPECT_EQ(pixels[std::stoul(words[1])], std::stoul(words[2])) << line;
    } else if (words[0] == "row") {
      ASSERT_EQ(words.size(), row + 2);
      ASSERT_LE((std::stoul(words[1]) + 1) * row, pixels.size());
      for (std::size_t i = 0; i < row; ++i) {
        if (words[2 + i] == "-") continue;
        EXPECT_EQ(pixels[std::stoul(words[1]) * row + i], std::stoul(words[2 + i])) << line;
      }
    } else {
      EXPECT_EQ(words[0], "drape");
    }
  }
}

TEST_P(GoldenBitmap, GivesItsLogAndPixels) {
  const std::string path = golden::file(GetParam()).string();
  std::ostringstream log;
  BitmapImage image(log);
  image.readBitmap(path);
  golden::expectLog(path + ".log.txt", log.str(), path);
  expectPixels(GetParam(), image);
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenBitmap,
                         testing::Values("bitmaps/c4.bmp", "bitmaps/c5.bmp", "bitmaps/c6.bmp",
                                         "bitmaps/c7.bmp", "bitmaps/g4.bmp", "bitmaps/g5.bmp",
                                         "bitmaps/g6.bmp", "bitmaps/g7.bmp",
                                         "panel/captured_white.bmp", "panel/surface_image_f.bmp"));

class HostileBitmap : public testing::Test {
 protected:
  std::int16_t read(const std::vector<std::byte>& bytes) {
    writeBytes(folder_.file("x.bmp"), bytes);
    log_.str("");
    return image_.readBitmap(folder_.file("x.bmp"));
  }

  TemporaryFolder folder_;
  std::ostringstream log_;
  BitmapImage image_{log_};
  const std::vector<std::byte> whole_ =
      encodeBitmap({3, 2, 24, std::vector<std::uint8_t>(18, 200)});
};

TEST_F(HostileBitmap, OfImpossibleSizeHasNoPixelsAndOfAnotherDepthBlackOnes) {
  for (const auto& [width, height] : {std::pair{0, 2}, {-3, 2}, {3, -2}, {46341, 46341}}) {
    std::vector<std::byte> bytes = whole_;
    writeLe(bytes.data() + 18, width);
    writeLe(bytes.data() + 22, height);
    EXPECT_EQ(read(bytes), 24);
    EXPECT_TRUE(image_.pixels().empty());
    const std::string size = std::to_string(width) + " x " + std::to_string(height);
    EXPECT_NE(log_.str().find("impossible size: " + size), std::string::npos);
  }
  std::vector<std::byte> bytes = whole_;
  // As many pixels of one bit as the file holds bits.
  writeLe(bytes.data() + 18, static_cast<std::int32_t>(4 * bytes.size()));
  writeLe(bytes.data() + 28, std::int16_t{1});
  EXPECT_EQ(read(bytes), 1);
  EXPECT_NE(log_.str().find("Unsupported BPP for Bitmap\n"), std::string::npos);
  EXPECT_EQ(image_.pixels().size(), 8 * bytes.size());
  EXPECT_EQ(*std::max_element(image_.pixels().begin(), image_.pixels().end()), 0);
}

TEST_F(HostileBitmap, AMissingOneLeavesTheLastInPlace) {
  std::vector<std::byte> bytes = whole_;
  bytes[0] = std::byte{'X'};
  EXPECT_EQ(read(bytes), 24);
  EXPECT_EQ(log_.str().find("Chosen Bitmap: "), 0U);
  EXPECT_NE(log_.str().find("File not Bitmap Format!\n"), std::string::npos);
  EXPECT_EQ(image_.readBitmap(folder_.file("none.bmp")), 24);
  EXPECT_EQ(image_.pixels().size(), 18U);
}

}  // namespace
}  // namespace morvane
