#include "tests/support/golden.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

namespace morvane::golden {
namespace {

namespace fs = std::filesystem;

std::string unescaped(const std::string& text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.compare(i, 2, "\\x") == 0) {
      bytes += static_cast<char>(std::stoi(text.substr(i + 2, 2), nullptr, 16));
      i += 3;
    } else {
      bytes += text[i];
    }
  }
  return bytes;
}

std::string withoutBlanksAtEnd(std::string line) {
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

std::string replaced(std::string line, const std::string& path) {
  const std::string mark = "{path}";
  if (const auto at = line.find(mark); at != std::string::npos) line.replace(at, mark.size(), path);
  return line;
}

}  // namespace

fs::path file(const std::string& name) { return fs::path(MORVANE_GOLDEN_FOLDER) / name; }

std::string measurement(const std::string& name) {
  return (file(name) / "measurement.res").string();
}

std::vector<std::string> lines(const fs::path& path) {
  std::ifstream in(path);
  EXPECT_TRUE(in) << path;
  std::vector<std::string> all;
  for (std::string line; std::getline(in, line);) all.push_back(unescaped(line));
  EXPECT_FALSE(all.empty()) << path;
  return all;
}

std::vector<std::string> words(const std::string& line) {
  std::istringstream in(line);
  std::vector<std::string> all;
  for (std::string word; in >> word;) all.push_back(word);
  return all;
}

double number(const std::string& word) { return std::strtod(word.c_str(), nullptr); }

std::vector<std::string> casesWith(const std::string& name) {
  std::vector<std::string> cases;
  for (const auto& entry : fs::recursive_directory_iterator(MORVANE_GOLDEN_FOLDER)) {
    if (entry.path().filename() != name) continue;
    cases.push_back(fs::relative(entry.path().parent_path(), MORVANE_GOLDEN_FOLDER).string());
  }
  std::sort(cases.begin(), cases.end());
  return cases;
}

bool isClose(double value, double expected) {
  if (std::isnan(expected)) return std::isnan(value);
  if (std::isinf(expected)) return value == expected;
  return std::abs(value - expected) <= std::max(2e-5 * std::abs(expected), 1e-6);
}

bool isExactly(double value, const std::string& word) {
  const double expected = number(word);
  return value == expected || (std::isnan(value) && std::isnan(expected));
}

bool isExactly(float value, const std::string& word) {
  const auto expected = static_cast<float>(number(word));
  return value == expected || (std::isnan(value) && std::isnan(expected));
}

void expectLog(const fs::path& expected, const std::string& log, const std::string& path) {
  std::vector<std::string> written;
  std::istringstream in(log);
  for (std::string line; std::getline(in, line);) written.push_back(withoutBlanksAtEnd(line));

  std::vector<std::string> needed;
  std::vector<std::string> all;
  for (const std::string& line : lines(expected)) {
    const bool optional = line.starts_with("? ");
    EXPECT_TRUE(optional || line.starts_with("= ") || line == "=") << expected << ": " << line;
    all.push_back(withoutBlanksAtEnd(replaced(line.size() < 2 ? "" : line.substr(2), path)));
    if (!optional) needed.push_back(all.back());
  }
  EXPECT_TRUE(written == all || written == needed) << expected << "\nwritten:\n" << log;
}

void expectFloats(const std::string& name, std::span<const float> floats, const std::string& line,
                  double tolerance, float unwritten) {
  const std::vector<std::string> expected = words(line);
  ASSERT_EQ(floats.size() + 1, expected.size()) << line;
  EXPECT_EQ(expected[0], name);
  for (std::size_t i = 0; i < floats.size(); ++i) {
    const std::string& word = expected[i + 1];
    if (word == "?") continue;
    const double wanted = word == "-" ? static_cast<double>(unwritten) : number(word);
    EXPECT_TRUE(isClose(floats[i], wanted) || std::abs(floats[i] - wanted) <= tolerance)
        << expected[0] << " float " << i << ": " << floats[i] << ", expected " << word;
  }
}

}  // namespace morvane::golden
