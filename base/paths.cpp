#include "base/paths.h"

#include <algorithm>
#include <charconv>

namespace morvane {
namespace {

/// `text` with its percent-encoding (`%20`) decoded.
std::string decoded(std::string_view text) {
  std::string bytes;
  for (; !text.empty(); text.remove_prefix(1)) {
    unsigned char byte = 0;
    const char* digits = text.data() + 1;
    if (text.front() == '%' && text.size() > 2 &&
        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      bytes += static_cast<char>(byte);
      text.remove_prefix(2);
    } else {
      bytes += text.front();
    }
  }
  return bytes;
}

}  // namespace

std::string pathOfLink(std::string_view dropped) {
  constexpr std::string_view kScheme = "file://";
  std::string_view first = dropped.substr(0, dropped.find_first_of("\r\n"));
  if (!first.starts_with(kScheme)) return std::string(first);
  // Skips the host name before the path, if there is one.
  first.remove_prefix(kScheme.size());
  first.remove_prefix(std::min(first.find('/'), first.size()));
  // Windows: "/C:/a.res" stands for "C:/a.res".
  if (kPathSeparator == '\\' && first.size() > 2 && first[2] == ':') first.remove_prefix(1);
  return decoded(first);
}

std::string folderOf(std::string_view path) {
  return std::string(path.substr(0, path.find_last_of("/\\")));
}

std::string folderPrefix(std::string_view path) {
  return std::string(path.substr(0, path.find_last_of(kPathSeparators) + 1));
}

std::string fileNameOf(std::string_view path) {
  const auto separator = path.find_last_of("/\\");
  return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

bool hasExtension(std::string_view path, std::string_view extension) {
  const auto same = [](char a, char b) { return a == b || (a >= 'A' && a <= 'Z' && a + 32 == b); };
  return path.size() > extension.size() &&
         std::ranges::equal(path.substr(path.size() - extension.size()), extension, same);
}

std::string pathIn(std::string_view folder, std::string_view name) {
  std::string path(folder);
  path += kPathSeparator;
  path += name;
  if (kPathSeparator == '\\') std::replace(path.begin(), path.end(), '/', kPathSeparator);
  return path;
}

std::string resourcePath(std::string_view exeFolder, std::string_view subfolder,
                         std::string_view name) {
  std::string path(exeFolder);
  for (const std::string_view step : {std::string_view("resources"), subfolder, name}) {
    path += kPathSeparator;
    path += step;
  }
  return path;
}

}  // namespace morvane
