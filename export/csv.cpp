#include "export/csv.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/number_text.h"
#include "base/utf8.h"

namespace morvane {

void CsvWriter::text(std::string_view cell) {
  beginCell();
  const std::string formed = wellFormed(cell);
  if (formed.find_first_of(std::string("\"\r\n") + style_.separator) == std::string::npos) {
    return out_.text(formed);
  }
  std::string quoted = "\"";
  for (const char letter : formed) quoted.append(letter == '"' ? 2 : 1, letter);
  out_.text(quoted + '"');
}

void CsvWriter::number(float value) {
  std::string text;
  if (std::isfinite(value)) appendExact(text, value);
  digits(std::move(text));
}

void CsvWriter::number(double value) {
  std::string text;
  if (std::isfinite(value)) appendExact(text, value);
  digits(std::move(text));
}

void CsvWriter::product(double value) {
  std::string text;
  if (std::isfinite(value)) appendRounded(text, value);
  digits(std::move(text));
}

void CsvWriter::digits(std::string text) {
  beginCell();
  std::ranges::replace(text, '.', style_.decimalSign);
  out_.text(text);
}

void CsvWriter::endLine() {
  out_.text("\n");
  lineBegun_ = false;
}

void CsvWriter::beginCell() {
  if (lineBegun_) out_.text({&style_.separator, 1});
  lineBegun_ = true;
}

}  // namespace morvane
