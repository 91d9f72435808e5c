// Rows, units and decimals of the results column, without a window.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "resfile/res_file.h"
#include "results/layouts.h"
#include "tests/support/golden.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

/// What the column shows of the reader's measurement, in the words of a rows file.
std::vector<std::string> shownLines(const resFile& reader) {
  const ResHeader& header = reader.header();
  std::vector<std::string> lines = {"panel_shown " +
                                    std::to_string(offersResultsColumn(header.algorithmType))};
  for (const ResultRow& row : headerRows(header, surfaceTypeText(header.surfaceType))) {
    lines.push_back("H " + row.label + "\t" + row.value);
  }
  for (const ResultRow& row : resultLayout(header, reader.results()).rows) {
    EXPECT_TRUE(!row.heading || row.value.empty());
    lines.push_back("R " + row.label + "\t" + row.value);
  }
  return lines;
}

void expectRows(const fs::path& rowsFile, const resFile& reader) {
  EXPECT_EQ(shownLines(reader), golden::lines(rowsFile)) << rowsFile;
}

TEST(LayoutsGolden, RowsOfSingleFiles) {
  const std::vector<std::string> cases = golden::casesWith("rows.txt");
  EXPECT_GE(cases.size(), 17U + 9U) << "every algorithm code and the other cases";
  for (const std::string& name : cases) {
    std::ostringstream log;
    resFile reader(log);
    reader.update((golden::file(name) / "measurement.res").string());
    expectRows(golden::file(name) / "rows.txt", reader);
  }
}

TEST(LayoutsGolden, RowsOfFilesReadInTurn) {
  const fs::path folder = golden::file("sequence");
  std::ifstream steps(folder / "steps.txt");
  std::ostringstream log;
  resFile reader(log);
  int step = -1;
  std::string file;
  std::string presence;
  while (steps >> step >> file >> presence) {
    reader.update((folder / file).string());
    expectRows(folder / ("step" + std::to_string(step) + "_rows.txt"), reader);
  }
  EXPECT_EQ(step, 6);
}

// ---- what no golden file holds

ResHeader headerOf(std::int32_t version, std::uint32_t surfaceType, std::uint32_t algorithmType) {
  ResHeader header;
  header.headerVersion = version;
  header.surfaceType = surfaceType;
  header.algorithmType = algorithmType;
  return header;
}

std::string tagOf(const ResHeader& header) {
  const ResultLayout layout = resultLayout(header, {});
  return layout.rows.empty() ? "" : layout.rows.front().value;
}

TEST(Layouts, Version3ShowsWhatTheSurfaceTypeSelectsUnlessAnAlgorithmCoversIt) {
  EXPECT_EQ(tagOf(headerOf(3, 1, 0)), "VEXA_STD");
  EXPECT_EQ(tagOf(headerOf(3, 2, 14)), "EC_RM_VEXA_STD");
  EXPECT_EQ(tagOf(headerOf(3, 3, 99)), "EC_RM_VEXA_STD");
  EXPECT_EQ(tagOf(headerOf(3, 4, 0)), "");
  EXPECT_EQ(tagOf(headerOf(3, 1, 6)), "TEXTURE");
  EXPECT_EQ(tagOf(headerOf(4, 1, 0)), "");
  EXPECT_EQ(tagOf(headerOf(2, 1, 0)), "");
}

TEST(Layouts, FilterTypeSelectsTheLimits) {
  ResResults results;
  results.orangePeel.filterType = {0, 3};
  results.orangePeel.values = {0.15F, 2.0F, 3.0F, 4.0F};
  const auto rows = resultLayout(headerOf(4, 1, 4), results).rows;
  ASSERT_EQ(rows.size(), 15U);
  EXPECT_EQ(rows[2].value + "|" + rows[3].label + rows[3].value, "HPF|Cut-Off:0.15mm");
  EXPECT_EQ(rows[9].value + "|" + rows[10].label + rows[10].value, "|");
}

TEST(Layouts, ShortTimeStampGivesEmptyPieces) {
  const auto dateAndTime = [](std::string_view stamp) {
    ResHeader header;
    std::ranges::copy(stamp, header.headerText1.begin());
    const auto rows = headerRows(header, "");
    return rows[1].value + " " + rows[2].value;
  };
  EXPECT_EQ(dateAndTime("20260105093007"), "05/01/2026 09:30:07");
  EXPECT_EQ(dateAndTime("2026010509300799"), "05/01/2026 09:30:07");
  EXPECT_EQ(dateAndTime("202601050930"), "05/01/2026 09:30:");
  EXPECT_EQ(dateAndTime("2026011"), "/01/2026 ::");
  EXPECT_EQ(dateAndTime("2026"), "//2026 ::");
  EXPECT_EQ(dateAndTime(""), "// ::");
}

TEST(Layouts, NumbersAreRoundedAsFloatsAndAZeroHasNoSign) {
  EXPECT_EQ(fixedText(0.05F, 1), "0.1");
  EXPECT_EQ(fixedText(0.25F, 1), "0.2");
  EXPECT_EQ(fixedText(-12345.678F, 3), "-12345.678");
  EXPECT_EQ(fixedText(std::numeric_limits<float>::quiet_NaN(), 1), "nan");
  EXPECT_EQ(fixedText(-std::numeric_limits<float>::infinity(), 3), "-inf");
  EXPECT_EQ(fixedText(std::numeric_limits<double>::max(), 2).size(), 312U);
  EXPECT_EQ(shownText(-0.004F, 2) + shownText(-0.0, 0) + shownText(-0.006F, 2), "0.000-0.01");
  EXPECT_EQ(shownText(-std::numeric_limits<double>::infinity(), 1), "-inf");
}

}  // namespace
}  // namespace morvane
