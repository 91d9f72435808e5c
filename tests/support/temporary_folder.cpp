#include "tests/support/temporary_folder.h"

#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

namespace morvane {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    path_ = fs::temp_directory_path() / ("morvane-test-" + std::to_string(random()));
  } while (!fs::create_directory(path_));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

long TemporaryFolder::entries() const {
  return static_cast<long>(std::distance(fs::directory_iterator(path_), fs::directory_iterator()));
}

std::string contentOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace morvane
