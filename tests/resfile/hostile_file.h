// A reader and the files it is given that lie.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "resfile/res_file.h"
#include "tests/support/temporary_folder.h"
#include "tools/measurement_builder.h"

namespace morvane {

inline MeasurementContent smallContent(std::int32_t version) {
  MeasurementContent content;
  content.version = version;
  content.width = 3;
  content.height = 2;
  content.algorithmType = 9;
  content.record.assign(16, 1.25F);
  content.heights = {1.1, 2.2, 3.3, 4.4, 5.5, 6.6};
  return content;
}

inline constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
inline constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

class HostileFile : public testing::Test {
 protected:
  // There are thousands: not written the builder's way, which waits for the disk.
  std::string write(const std::vector<std::byte>& bytes) {
    std::string path = folder_.file("hostile.res");
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return path;
  }
  bool opens(const std::vector<std::byte>& bytes) { return opens(write(bytes)); }
  bool opens(const std::string& path) {
    log_.str("");
    file_.update(path);
    return file_.isValid();
  }

  TemporaryFolder folder_;
  std::ostringstream log_;
  resFile file_{log_};
};

}  // namespace morvane
