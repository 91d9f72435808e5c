#include "base/file_copy.h"

#include <cerrno>
#include <cstring>
#include <vector>

#include "base/safe_file.h"

namespace morvane {

std::string copyFile(const std::string& source, const std::string& destination) {
  SafeFile copy(destination);
  if (source.empty()) return copy.commit();
  const FilePtr file = openForReading(source);
  if (!file) return std::strerror(errno);
  std::vector<char> piece(std::size_t{1} << 18);
  while (const std::size_t got = std::fread(piece.data(), 1, piece.size(), file.get())) {
    copy.write(piece.data(), got);
  }
  if (std::ferror(file.get()) != 0) return std::strerror(errno);
  return copy.commit();
}

}  // namespace morvane
