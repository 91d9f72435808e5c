// Bitmaps draped over grids of the same size and of other sizes.
#include <gtest/gtest.h>

#include <sstream>

#include "surface/mesh.h"
#include "tests/support/golden.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_grid.h"
#include "tools/bitmap_builder.h"
#include "tools/measurement_builder.h"

namespace morvane {
namespace {

std::vector<float> drapedColours(const BitmapImage& image, std::size_t width, std::size_t height) {
  const auto grid = roughGrid(width, height);
  std::vector<float> positions(cellCount(*grid) * kFloatsPerCell);
  std::vector<float> normals = positions;
  std::vector<float> colours = positions;
  const BitmapDrape drape(image, width, height);
  buildMesh(*grid, {{}, nullptr, &drape}, {positions, normals, colours, {}});
  return colours;
}

TEST(GoldenDrape, ColoursItsCells) {
  for (const std::string name : {"panel/captured_white.bmp", "panel/surface_image_f.bmp"}) {
    std::ostringstream log;
    BitmapImage image(log);
    image.readBitmap(golden::file(name).string());
    const std::vector<float> colours = drapedColours(image, 400, 300);
    int cells = 0;
    for (const std::string& line : golden::lines(golden::file(name + ".pixels.txt"))) {
      const auto words = golden::words(line);
      if (words[0] != "drape") continue;
      const std::size_t cell = std::stoul(words[1]) * 399 + std::stoul(words[2]);
      const std::string floats =
          line.substr(words[0].size() + words[1].size() + words[2].size() + 2);
      golden::expectFloats("drape", std::span(colours).subspan(cell * 18, 18), "drape" + floats,
                           2e-4);
      ++cells;
    }
    EXPECT_GT(cells, 0);
  }
}

/// A grey bitmap whose pixel (x, y) holds 10 × y + x + 1.
BitmapImage numbered(const TemporaryFolder& folder, std::ostream& log, int width, int height) {
  BitmapContent content{width, height, 8, {}};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x)
      content.pixels.push_back(static_cast<std::uint8_t>(10 * y + x + 1));
  }
  writeBytes(folder.file("n.bmp"), encodeBitmap(content));
  BitmapImage image(log);
  image.readBitmap(folder.file("n.bmp"));
  return image;
}

TEST(Drape, IsCentredCutOrKeptInside) {
  struct Case {
    int bitmapWidth, bitmapHeight;
    std::size_t firstRow, endRow, firstColumn, endColumn;  // cells covered, of 6 × 4
    int shiftX, shiftY;                                    // from grid point to pixel
  };
  // The grid has 7 × 5 points.
  const Case cases[] = {
      {7, 5, 0, 3, 0, 5, 0, 0},   // the grid's size: the last row and column are not covered
      {7, 4, 0, 3, 0, 6, 0, 0},   // one row less
      {5, 5, 0, 4, 1, 3, -1, 0},  // two columns less
      {10, 8, 0, 4, 0, 6, 1, 1},  // larger: cut on both sides
      {2, 5, 0, 4, 2, 2, -2, 0},  // so narrow that nothing is covered
      {9, 3, 1, 1, 0, 6, 1, -1},
  };
  const TemporaryFolder folder;
  std::ostringstream log;
  for (const Case& c : cases) {
    const BitmapImage image = numbered(folder, log, c.bitmapWidth, c.bitmapHeight);
    const std::vector<float> colours = drapedColours(image, 7, 5);
    for (std::size_t row = 0; row < 4; ++row) {
      for (std::size_t column = 0; column < 6; ++column) {
        const bool covered =
            row >= c.firstRow && row < c.endRow && column >= c.firstColumn && column < c.endColumn;
        // The second vertex of a cell is its far corner.
        const int x = static_cast<int>(column) + 1 + c.shiftX;
        const int y = static_cast<int>(row) + 1 + c.shiftY;
        const float expected = covered ? static_cast<float>(10 * y + x + 1) / 256.0F : 0.5F;
        EXPECT_EQ(colours[(row * 6 + column) * 18 + 3], expected)
            << c.bitmapWidth << 'x' << c.bitmapHeight << " cell " << row << ", " << column;
      }
    }
  }
}

}  // namespace
}  // namespace morvane
