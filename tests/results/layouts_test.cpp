// Rows, units and decimals of the results column, without a window.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "results/layouts.h"
#include "tests/support/golden.h"
#include "tests/support/reader.h"

namespace morvane {
namespace {

/// What the column shows of the reader's measurement, in the form of rows.txt.
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

TEST(LayoutsGolden, RowsOfSingleFiles) {
  const std::vector<std::string> cases = golden::casesWith("rows.txt");
  EXPECT_GE(cases.size(), 17U + 9U) << "every algorithm code and the other cases";
  for (const std::string& name : cases) {
    EXPECT_EQ(shownLines(Reader(golden::measurement(name)).file),
              golden::lines(golden::file(name) / "rows.txt"))
        << name;
  }
}

TEST(LayoutsGolden, RowsOfFilesReadInTurn) {
  Reader reader("");
  int rows = 0;
  for (const std::string& step : golden::lines(golden::file("sequence/steps.txt"))) {
    const std::vector<std::string> words = golden::words(step);
    reader.file.update(golden::file("sequence/" + words[1]).string());
    EXPECT_EQ(shownLines(reader.file),
              golden::lines(golden::file("sequence/step" + words[0] + "_rows.txt")))
        << step;
    ++rows;
  }
  EXPECT_EQ(rows, 7);
}

// ---- cases that are in no reference file

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
