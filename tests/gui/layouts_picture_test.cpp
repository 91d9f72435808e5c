// The results column of every layout, held against pictures that were looked at.
//
// A missing picture fails; MORVANE_PROMOTE=1 writes the pictures anew, to be looked at before they
// are committed. They were made with the packaged Liberation Sans of Debian 12.
#include <gtest/gtest.h>
#include <png.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "tests/gui/program.h"

namespace morvane::gui {
namespace {

constexpr Point kDetails{77, 608};
constexpr Area kColumn{1060, 25, 220, 775};
// Letters may be smoothed a little differently; a missing digit changes some hundred pixels.
constexpr int kChannelTolerance = 48;
constexpr int kPixelsThatMayDiffer = 40;

Image loadPng(const std::string& path) {
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_file(&png, path.c_str()) == 0) return {};
  png.format = PNG_FORMAT_RGB;
  std::vector<png_byte> bytes(PNG_IMAGE_SIZE(png));
  png_image_finish_read(&png, nullptr, bytes.data(), 0, nullptr);
  std::vector<std::uint32_t> pixels;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    pixels.push_back(static_cast<std::uint32_t>(bytes[i] << 16 | bytes[i + 1] << 8 | bytes[i + 2]));
  }
  return {static_cast<int>(png.width), static_cast<int>(png.height), std::move(pixels)};
}

int pixelsThatDiffer(const Image& a, const Image& b) {
  if (a.width() != b.width() || a.height() != b.height()) return a.width() * a.height();
  int found = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      found += difference(a.at({x, y}), b.at({x, y})) > kChannelTolerance ? 1 : 0;
    }
  }
  return found;
}

class Layout : public testing::TestWithParam<int> {};

/// Compares the column on show with its picture, or makes that anew.
void compareColumn(Program& program, const std::string& name) {
  const Window window = program.mainWindow();
  program.awaitLine("Details Y: ");
  window.leave();
  const std::string baseline = MORVANE_BASELINES "/column_" + name + ".png";
  if (std::getenv("MORVANE_PROMOTE") != nullptr) {
    program.awaitLine(kFrameDrawn);
    window.capture().part(kColumn).savePng(baseline);
    return;
  }
  const Image expected = loadPng(baseline);
  ASSERT_GT(expected.width(), 0) << baseline << " is missing";
  window.awaitPicture("the column of " + baseline, [&](const Image& picture) {
    return pixelsThatDiffer(picture.part(kColumn), expected) <= kPixelsThatMayDiffer;
  });
}

TEST_P(Layout, LooksAsItDid) {
  const std::string code = (GetParam() < 10 ? "0" : "") + std::to_string(GetParam());
  // The large sample is the one of code 4.
  const std::string file = GetParam() == 4 ? "panel" : "codes/code_" + code;
  Program program({MORVANE_SAMPLES "/" + file + ".res"});
  program.awaitLine(kFrameDrawn);
  program.mainWindow().click(kDetails);
  compareColumn(program, code);
}

INSTANTIATE_TEST_SUITE_P(Codes, Layout, testing::Range(3, 14));

// Columns that opening hides are shown through the full menu.
class HiddenLayout : public testing::TestWithParam<std::string> {};

TEST_P(HiddenLayout, LooksAsItDid) {
  Program program({MORVANE_SAMPLES "/codes/" + GetParam() + ".res"},
                  {.environment = {"MORVANE_MENU=full"}});
  program.awaitLine(kFrameDrawn);
  const Window window = program.mainWindow();
  window.click({215, 12});
  std::vector<std::string> keys(10, "Down");
  keys.emplace_back("Return");
  window.key(keys);
  compareColumn(program, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Codes, HiddenLayout,
                         testing::Values("code_01", "code_02", "version_3", "version_3_dull"));

}  // namespace
}  // namespace morvane::gui
