#include "export/results_table.h"

#include <algorithm>

#include "export/stamp.h"

namespace morvane {
namespace {

/// The column of a value: "Sa_A_um", "Band_B_Rsm_mm".
std::string columnOf(const ResultValue& value) {
  std::string name = value.name;
  if (!value.unit.empty()) {
    name += ' ';
    name += value.unit == "µm" ? "um" : value.unit == "%" ? "percent" : value.unit;
  }
  std::ranges::replace(name, ' ', '_');
  return name;
}

void addValue(CsvWriter& table, const ResultValue& value) {
  value.text.empty() ? table.number(value.number) : table.text(value.text);
}

}  // namespace

FileResults fileResults(const Measurement& measurement) {
  const ResHeader& header = measurement.header;
  ResultLayout layout = resultLayout(header, measurement.results);
  return {measurement.path,
          std::string(fieldText(header.headerText3)),
          isoDate(header),
          isoTime(header),
          std::string(layout.algorithm),
          std::move(layout.values)};
}

void writeResults(std::span<const FileResults> files, const CsvStyle& style, ByteSink& sink) {
  std::vector<std::string> columns;
  for (const FileResults& file : files) {
    for (const ResultValue& value : file.values) {
      const std::string column = columnOf(value);
      if (std::ranges::find(columns, column) == columns.end()) columns.push_back(column);
    }
  }
  CsvWriter table(sink, style);
  for (const char* name : {"file", "part", "date", "time", "algorithm"}) table.text(name);
  for (const std::string& column : columns) table.text(column);
  table.endLine();
  for (const FileResults& file : files) {
    for (const auto* cell : {&file.file, &file.part, &file.date, &file.time, &file.algorithm}) {
      table.text(*cell);
    }
    for (const std::string& column : columns) {
      const auto value = std::ranges::find(file.values, column, columnOf);
      addValue(table, value == file.values.end() ? ResultValue{} : *value);
    }
    table.endLine();
  }
}

std::string resultsText(const Measurement& measurement, const CsvStyle& style) {
  TextSink sink;
  {
    CsvWriter table(sink, style);
    for (const ResultValue& value : fileResults(measurement).values) {
      table.text(value.name);
      addValue(table, value);
      table.text(value.unit);
      table.endLine();
    }
  }
  return sink.text;
}

}  // namespace morvane
