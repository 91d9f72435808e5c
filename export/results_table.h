// The results of measurements as tables.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "export/csv.h"
#include "resfile/measurement.h"
#include "results/layouts.h"

namespace morvane {

/// One row of the table of results.
struct FileResults {
  std::string file;  ///< its path as given
  std::string part;
  std::string date;
  std::string time;
  std::string algorithm;
  std::vector<ResultValue> values;
};
FileResults fileResults(const Measurement& measurement);

/// Writes a row for each file and a column for each name and unit that any of them has.
void writeResults(std::span<const FileResults> files, const CsvStyle& style, ByteSink& sink);

/// Lines of label, value and unit, for the clipboard.
std::string resultsText(const Measurement& measurement, const CsvStyle& style);

}  // namespace morvane
