// Makes the seeds of the fuzz targets.
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

#include "resfile/bitmap_image.h"
#include "resfile/region_file.h"
#include "tools/bitmap_builder.h"
#include "tools/measurement_builder.h"
#include "tools/usage.h"

namespace {

using namespace morvane;
namespace fs = std::filesystem;

constexpr const char* kUse =
    "make_seeds FOLDER FILE...\n"
    "Copies to FOLDER measurements and bitmaps that are small, and of larger ones a piece.";
constexpr std::size_t kSide = 12;
constexpr std::uintmax_t kSmall = 2000;  // bytes

void cutMeasurement(const fs::path& from, const fs::path& to) {
  resFile file(std::clog);
  file.update(from.string());
  if (!file.isValid() || !file.grid()) throw std::runtime_error(from.string() + ": no measurement");
  const Measurement source = file.measurement();
  const std::string reason =
      saveRegion(file, source, *source.grid, {0, 0, kSide, kSide}, to.string());
  if (!reason.empty()) throw std::runtime_error(to.string() + ": " + reason);
}

void cutBitmap(const fs::path& from, const fs::path& to) {
  BitmapImage image(std::clog);
  BitmapContent content{kSide, kSide, image.readBitmap(from.string()), {}};
  const std::size_t bytes = kSide * kSide * image.bytesPerPixel();
  const auto pixels = image.pixels().first(bytes);
  content.pixels.assign(pixels.begin(), pixels.end());
  writeBytes(to.string(), encodeBitmap(content));
}

}  // namespace

int main(int argc, char** argv) {
  if (const auto status = toldUse(argc, argv, argc > 2, kUse)) return *status;
  try {
    std::clog.setstate(std::ios::failbit);
    for (int i = 2; i < argc; ++i) {
      const fs::path from = argv[i];
      const bool bitmap = from.extension() == ".bmp";
      const fs::path folder = fs::path(argv[1]) / (bitmap ? "bitmap" : "measurement");
      fs::create_directories(folder);
      const fs::path to = folder / (std::to_string(i) + from.extension().string());
      if (fs::file_size(from) <= kSmall) {
        fs::copy_file(from, to, fs::copy_options::overwrite_existing);
      } else {
        (bitmap ? cutBitmap : cutMeasurement)(from, to);
      }
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_seeds: %s\n", error.what());
    return 1;
  }
  return 0;
}
