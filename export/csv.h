// Tables as text: comma-separated, for spreadsheets with a decimal comma, or for the clipboard.
#pragma once

#include <string_view>

#include "export/text_writer.h"

namespace morvane {

struct CsvStyle {
  char separator = ',';
  char decimalSign = '.';
};

inline constexpr CsvStyle kSemicolons = {';', ','};
inline constexpr CsvStyle kTabs = {'\t', '.'};

/// Writes a table cell by cell, in UTF-8. Lines end with a line feed.
class CsvWriter {
 public:
  /// `sink` must outlive the object, whose destructor writes the end of the table.
  CsvWriter(ByteSink& sink, const CsvStyle& style) : out_(sink), style_(style) {}

  /// A cell in quotation marks if it needs them (RFC 4180). Bytes that are not UTF-8 are read as
  /// Windows-1252.
  void text(std::string_view cell);
  /// A cell with the shortest text that reads back to the same number. NaN and infinity leave it
  /// empty.
  void number(double value);
  void number(float value);
  /// The same with 15 digits, without those of rounding: for products such as 3 × 0.1.
  void product(double value);
  void endLine();

  [[nodiscard]] bool failed() const { return out_.failed(); }

 private:
  void beginCell();
  void digits(std::string text);

  TextWriter out_;
  CsvStyle style_;
  bool lineBegun_ = false;
};

}  // namespace morvane
