// Any bytes as the bitmap beside a measurement: read and draped over small grids.
#include <algorithm>
#include <sstream>
#include <vector>

#include "fuzz/fuzz_support.h"
#include "resfile/bitmap_image.h"
#include "surface/surface_model.h"

namespace morvane {
namespace {

constexpr std::size_t kMaxPoints = 40;  // along a side of a grid

void drape(const BitmapImage& image, std::size_t width, std::size_t height, std::ostream& log) {
  const auto grid =
      HeightGrid::zeroed(static_cast<std::int64_t>(width), static_cast<std::int64_t>(height));
  require(grid != nullptr, "a small grid finds memory");
  SurfaceModel model(log);
  model.heatMap = false;
  model.setRaw(grid);
  std::vector<float> positions(cellCount(*grid) * kFloatsPerCell);
  std::vector<float> normals(positions.size());
  std::vector<float> colours(positions.size(), -1.0F);
  const BitmapDrape picture(image, width, height);
  model.build({positions, normals, colours, {}}, &picture);
  const CoarseMesh coarse = model.buildCoarse(3, &picture);
  for (const std::vector<float>& channels : {colours, coarse.colours}) {
    require(std::ranges::all_of(channels, [](float c) { return c >= 0.0F && c <= 1.0F; }),
            "every vertex under a bitmap has a colour");
  }
}

}  // namespace
}  // namespace morvane

// NOLINTNEXTLINE(readability-identifier-naming): the name is libFuzzer's.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane;
  std::ostringstream log;
  BitmapImage image(log);
  const std::int16_t bits = image.readBitmap(inputFile(data, size));
  require(image.readBitmap(fileBesideInput("missing.bmp")) == bits,
          "a bitmap that cannot be opened leaves the last one in place");
  if (image.pixels().empty()) return 0;

  const auto width = static_cast<std::size_t>(image.header().width);
  const auto height = static_cast<std::size_t>(image.header().height);
  require(image.pixels().size() == width * height * image.bytesPerPixel(),
          "a bitmap has as many pixels as its header says");
  // Grids of the same size, larger and smaller in one or both directions, and one without cells.
  const auto near = [](std::size_t pixels, std::size_t more) {
    return std::min(pixels + more, kMaxPoints);
  };
  drape(image, near(width, 0), near(height, 0), log);
  drape(image, near(width, 1), near(height, 6), log);
  drape(image, near(width / 2, 1), near(height, 3), log);
  drape(image, near(width, kMaxPoints), near(height / 3, 2), log);
  drape(image, 1, near(height, 0), log);
  return 0;
}
