// Changes to measurement files: header fields, results, text lengths, sizes with their grid.
#include <algorithm>
#include <sstream>

#include "fuzz/header_mutator.h"
#include "resfile/res_header.h"

namespace morvane {
namespace {

constexpr std::int32_t kNewestVersion = 4;
constexpr std::size_t kMostPoints = 24;  // along a side of a fitted grid

struct Decoded {
  ResHeader header;
  std::string log;
};

Decoded decode(const FileBytes& header) {
  HeaderBytes bytes{};
  std::copy(header.begin(), header.end(), bytes.begin());
  Decoded decoded;
  ResResults results;
  std::ostringstream log;
  decodeHeader(bytes, kNewestVersion, decoded.header, results, log);
  decoded.log = log.str();
  return decoded;
}

/// Element type and sizes lead the fields.
void fit(const FileLayout& layout, FileBytes& file, Dice& dice) {
  const bool counts = roll(dice, 3) == 0;
  const std::size_t width = roll(dice, kMostPoints);
  const std::size_t height = roll(dice, kMostPoints);
  resizeBody(file, kHeaderBytes, width * height * (counts ? sizeof(std::int16_t) : sizeof(double)));
  putInteger(file, layout.fields[0], counts ? kNumTypeCounts16 : kNumTypeDoubles);
  putInteger(file, layout.fields[1], static_cast<std::int64_t>(width));
  putInteger(file, layout.fields[2], static_cast<std::int64_t>(height));
}

FileLayout findLayout() {
  using H = ResHeader;
  const auto read = [](const FileBytes& bytes) { return decode(bytes).header; };
  std::vector<HeaderField> fields = locateAll(
      kHeaderBytes, read, &H::numType, &H::width, &H::height, &H::headerVersion, &H::pixelSizeX,
      &H::pixelSizeY, &H::heightScale, &H::headerValue, &H::surfaceType, &H::algorithmType);
  // Version 3 has its results from the algorithm code on, version 4 behind it.
  for (std::size_t offset = fields.back().offset; offset < kHeaderBytes; offset += sizeof(float)) {
    fields.push_back({offset, sizeof(float), true});
  }
  // The reader names the text whose length cannot be true.
  for (std::size_t offset = 0; offset < kHeaderBytes; ++offset) {
    FileBytes bytes(kHeaderBytes);
    bytes[offset] = std::byte{0xFF};
    if (decode(bytes).log.find("headerText") != std::string::npos) fields.push_back({offset, 1});
  }
  return {kHeaderBytes, std::move(fields), sizeof(double), fit};
}

}  // namespace
}  // namespace morvane

// NOLINTNEXTLINE(readability-identifier-naming): the name is libFuzzer's.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t mostBytes, unsigned seed) {
  static const morvane::FileLayout layout = morvane::findLayout();
  return morvane::mutate(layout, data, size, mostBytes, seed);
}
