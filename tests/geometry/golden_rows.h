// The rows of a reference file of the view: a name and the numbers after it.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "tests/support/golden.h"

namespace morvane {

struct GoldenRow {
  std::string line;
  std::string name;
  std::vector<double> numbers;  ///< a word that is not a number counts as 0

  [[nodiscard]] float at(std::size_t i) const { return static_cast<float>(numbers.at(i)); }
  [[nodiscard]] int whole(std::size_t i) const { return static_cast<int>(numbers.at(i)); }
  [[nodiscard]] std::size_t size(std::size_t i) const {
    return static_cast<std::size_t>(numbers.at(i));
  }
};

/// Expects `found` to be the row's last numbers.
inline void expectEnd(const GoldenRow& row, std::initializer_list<float> found) {
  ASSERT_GE(row.numbers.size(), found.size()) << row.line;
  const double* expected = row.numbers.data() + (row.numbers.size() - found.size());
  for (const float value : found) {
    EXPECT_TRUE(golden::isClose(value, *expected++)) << row.line << "\n" << value << " found";
  }
}

inline std::vector<GoldenRow> goldenRows(const std::string& file) {
  std::vector<GoldenRow> rows;
  for (const std::string& line : golden::lines(golden::file(file))) {
    const auto words = golden::words(line);
    if (words.empty() || words[0] == "#") continue;
    rows.push_back({line, words[0], {}});
    for (std::size_t i = 1; i < words.size(); ++i) {
      rows.back().numbers.push_back(golden::number(words[i]));
    }
  }
  EXPECT_FALSE(rows.empty()) << file;
  return rows;
}

}  // namespace morvane
