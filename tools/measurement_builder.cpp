#include "tools/measurement_builder.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "base/little_endian.h"
#include "base/safe_file.h"
#include "resfile/res_header.h"

namespace morvane {
namespace {

void putText(std::byte* header, std::size_t offset, std::size_t room, const std::string& text) {
  const std::size_t length = std::min(text.size(), room);
  writeLe(header + offset, static_cast<std::int8_t>(length));
  std::memcpy(header + offset + 1, text.data(), length);
}

void putRecord(std::byte* header, std::size_t offset, const std::vector<RecordWord>& record) {
  if (offset + 4 * record.size() > kHeaderBytes) {
    throw std::invalid_argument("the result record is longer than the header has room for");
  }
  std::byte* target = header + offset;
  for (const RecordWord& word : record) {
    std::visit([target](auto value) { writeLe(target, value); }, word);
    target += 4;
  }
}

template <typename T>
void append(std::vector<std::byte>& bytes, const std::vector<T>& values) {
  const std::size_t size = values.size() * sizeof(T);
  if (size == 0) return;
  bytes.resize(bytes.size() + size);
  std::memcpy(bytes.data() + bytes.size() - size, values.data(), size);
}

}  // namespace

std::vector<std::byte> encodeMeasurement(const MeasurementContent& content) {
  std::vector<std::byte> bytes(kHeaderBytes);
  std::byte* header = bytes.data();
  writeLe(header, content.numType);
  writeLe(header + 4, content.width);
  writeLe(header + 8, content.height);
  writeLe(header + 20, content.version);
  writeLe(header + 24, content.pixelSizeX);
  writeLe(header + 32, content.pixelSizeY);
  writeLe(header + 56, content.heightScale);
  if (content.version >= 3) {
    putText(header, 72, 15, content.timeStamp);
    writeLe(header + 88, content.headerValue);
    putText(header, 92, 15, content.dataType);
    putText(header, 108, 63, content.partName);
    writeLe(header + 172, content.surfaceType);
    if (content.version >= 4) writeLe(header + 176, content.algorithmType);
    putRecord(header, content.version >= 4 ? 180 : 176, content.record);
  }
  append(bytes, content.heights);
  append(bytes, content.counts);
  return bytes;
}

void writeBytes(const std::string& path, const std::vector<std::byte>& bytes) {
  SafeFile file(path);
  file.write(bytes.data(), bytes.size());
  if (const std::string reason = file.commit(); !reason.empty()) {
    throw std::runtime_error(path + ": " + reason);
  }
}

}  // namespace morvane
