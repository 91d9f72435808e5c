// Encodes measurement files from plain values, for the samples and the tests.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace morvane {

/// One 32-bit word of a result record.
using RecordWord = std::variant<float, std::uint32_t>;

/// The content of a measurement file. With sizes and heights added, the defaults give a valid
/// version-4 file of doubles.
struct MeasurementContent {
  std::int32_t version = 4;
  std::int32_t numType = -7;
  std::int32_t width = 0;
  std::int32_t height = 0;
  double pixelSizeX = 0.02;  ///< mm
  double pixelSizeY = 0.02;  ///< mm
  double heightScale = 0.01;
  std::string timeStamp = "20260314101530";
  std::string dataType = "HEIGHT";
  std::string partName = "Sample";
  float headerValue = 1.5F;
  std::uint32_t surfaceType = 1;
  std::uint32_t algorithmType = 0;
  std::vector<RecordWord> record{};    ///< from offset 180 on; in version 3 from 176 on
  std::vector<double> heights{};       ///< width × height in row order, where numType is -7
  std::vector<std::int16_t> counts{};  ///< the same, where numType is -2
};

/// The bytes of the file: a 256-byte header and the grid. Texts are truncated to their fields.
/// Throws std::invalid_argument when the record does not fit into the header.
std::vector<std::byte> encodeMeasurement(const MeasurementContent& content);

/// Writes `bytes` to `path`. Throws std::runtime_error with the system's error message on failure.
void writeBytes(const std::string& path, const std::vector<std::byte>& bytes);

}  // namespace morvane
