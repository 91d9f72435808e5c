// Exported numbers: the texts and bytes of each format.
#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <random>

#include "base/number_text.h"
#include "base/utf8.h"
#include "export/formats.h"
#include "export/height_files.h"
#include "export/info_json.h"
#include "export/results_table.h"
#include "export/section_table.h"
#include "geometry/profile_section.h"
#include "tests/support/reader.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_grid.h"
#include "tools/measurement_builder.h"

namespace morvane {
namespace {

/// 3 × 2 filtered points, one of which is missing.
ExportSource smallSource() {
  ExportSource source;
  source.measurement.path = "a,b.res";
  ResHeader& header = source.measurement.header;
  header.pixelSizeX = 0.1;
  header.pixelSizeY = 0.02;
  std::ranges::copy(std::string_view("20260314101530"), header.headerText1.begin());
  std::ranges::copy(std::string_view("T\xFCr \"7\"\n"), header.headerText3.begin());
  source.heights = gridOf(3, 2, {0.1, NAN, -2.5, 1e-7, 4, 1.0 / 3.0});
  source.heightWords = "Low pass 0.8 mm";
  return source;
}

std::string written(void (*write)(const ExportSource&, ByteSink&), const ExportSource& source) {
  TextSink sink;
  write(source, sink);
  return sink.text;
}

template <typename Number, typename Bits>
void expectExact(Bits bits) {
  const auto value = std::bit_cast<Number>(bits);
  if (!std::isfinite(value)) return;
  std::string text;
  appendExact(text, value);
  Number read = 0;
  std::from_chars(text.data(), text.data() + text.size(), read);
  EXPECT_EQ(std::bit_cast<Bits>(read), bits) << text;
}

TEST(Numbers, ReadBackToTheSameBits) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 100'000; ++i) {
    const std::uint64_t bits = random();
    expectExact<double>(bits);
    expectExact<float>(static_cast<std::uint32_t>(bits));
  }
  std::string text;
  for (const double value : {3 * 0.1, 1200 * 0.02, 0.0, 1e-5}) appendRounded(text += ' ', value);
  EXPECT_EQ(text, " 0.3 24 0 1e-05");
}

TEST(Utf8, BytesThatAreNotUtf8BecomeUtf8) {
  EXPECT_EQ(wellFormed("Tür 測 \U0001F600"), "Tür 測 \U0001F600");
  EXPECT_EQ(wellFormed("T\xFCr \x80 \xE6\xB8 \xED\xA0\x80"), "Tür € æ¸ \uFFFD");
}

TEST(Csv, QuotesCellsAndLeavesMissingOnesEmpty) {
  const auto line = [](const CsvStyle& style) {
    TextSink sink;
    {
      CsvWriter table(sink, style);
      for (const char* cell : {"a,\"b", "c\r\nd", "e;f"}) table.text(cell);
      for (const float number : {-0.25F, NAN, 1e-7F}) table.number(number);
    }
    return sink.text;
  };
  EXPECT_EQ(line({}), "\"a,\"\"b\",\"c\r\nd\",e;f,-0.25,,1e-07");
  EXPECT_EQ(line(kSemicolons), "\"a,\"\"b\";\"c\r\nd\";\"e;f\";-0,25;;1e-07");
}

TEST(SectionTable, HasTrueHeightsAndTellsWhereLimitsCut) {
  ExportSource source = smallSource();
  source.heights = gridOf(4, 3, {9, 9, 9, 9, 0.5, 1.5, NAN, 3.25, 9, 9, 9, 9});
  source.section = sectionBetween(source, {0.3, 0.02}, {0.02, 0.021});
  ASSERT_TRUE(source.section);
  EXPECT_EQ(written(writeSection, source),
            "x_mm,y_mm,distance_mm,height_um,cut\n"
            "0.3,0.02,0,3.25,0\n0.2,0.02,0.1,,0\n0.1,0.02,0.2,1.5,0\n0,0.02,0.3,0.5,0\n");
  source.limits = {.on = true, .min = 2.0F, .max = 3.0F};
  source.csv = kSemicolons;
  EXPECT_EQ(written(writeSection, source),
            "x_mm;y_mm;distance_mm;height_um;cut\n"
            "0,3;0,02;0;3,25;1\n0,2;0,02;0,1;;0\n0,1;0,02;0,2;1,5;1\n0;0,02;0,3;0,5;1\n");
  EXPECT_FALSE(sectionBetween(source, {0.0, 0.0}, {0.36, 0.0}));
  // On a plane a slanted section has the plane's heights; with a point missing, gaps beside it.
  source.heights = gridOf(4, 3, {0, 10, 20, 30, 100, 110, NAN, 130, 200, 210, 220, 230});
  source.section = sectionBetween(source, {0.0, 0.0}, {0.3, 0.04});
  source.limits = {};
  source.csv = {};
  EXPECT_EQ(written(writeSection, source),
            "x_mm,y_mm,distance_mm,height_um,cut\n0,0,0,0,0\n"
            "0.075,0.01,0.0756637297521078,57.5,0\n0.15,0.02,0.151327459504216,,0\n"
            "0.225,0.03,0.226991189256323,,0\n"
            "0.3,0.04,0.302654919008431,230,0\n");
  // In single precision the quotient is just below the column.
  EXPECT_EQ(sampleLine({400, 400}, pinsOn({251, 253}, {0, 0})).start.column, 251);
}

FileResults resultsOf(const TemporaryFolder& folder, const std::string& name,
                      const MeasurementContent& content) {
  writeBytes(folder.file(name), encodeMeasurement(content));
  FileResults results = fileResults(Reader(folder.file(name)).file.measurement());
  results.file = name;
  return results;
}

TEST(ResultsTable, HasTheUnionOfTheColumnsWithTrueUnits) {
  const TemporaryFolder folder;
  const FileResults files[] = {
      resultsOf(folder, "vw", {.algorithmType = 8, .record = {0.5F, NAN}}),
      resultsOf(folder, "gm",
                {.timeStamp = "20260314",
                 .algorithmType = 9,
                 .record = {0.F, 1.F, 2.F, 3.F, 4.F, 5.F, 6.F, 7.F, 8.F, 9.F, 10.F, 11.F, 12.F,
                            13.F, 14.F, 15.F}}),
      resultsOf(folder, "rough",
                {.algorithmType = 4,
                 .record = {2U, 0U, .15F, 2.F, .8F, 9.F, 1.F, 2.F, 3.F, 4.F, 5.F, 6.F, 7.F, 8.F}}),
      resultsOf(folder, "none", {.algorithmType = 0})};
  TextSink sink;
  writeResults(files, {}, sink);
  EXPECT_EQ(
      sink.text,
      "file,part,date,time,algorithm,Wa_0.8_um,Wsa_1-5_um,Appearance_Sa_um,Appearance_Rax_um,"
      "Appearance_Rsm_mm,Appearance_Ray_um,Peel_Sa_um,Peel_Rax_um,Peel_Rsm_mm,Peel_Ray_um,"
      "Band_B_Sa_um,Band_B_Rax_um,Band_B_Rsm_mm,Band_B_Ray_um,Band_C_Sa_um,Band_C_Rax_um,"
      "Band_C_Rsm_mm,Band_C_Ray_um,Band_1_Type,Band_1_Bandwidth_low_mm,Band_1_Bandwidth_high_mm,"
      "Band_1_Sa_um,Band_1_Rax_um,Band_1_Rsm_mm,Band_1_Ray_um,Band_2_Type,Band_2_Cut-Off_mm,"
      "Band_2_Sa_um,Band_2_Rax_um,Band_2_Rsm_mm,Band_2_Ray_um\n"
      "vw,Sample,2026-03-14,10:15:30,EC_RM_VW_STD,0.5" +
          std::string(30, ',') +
          "\ngm,Sample,2026-03-14,,EC_RM_GM_STD,,,0,1,3,2,4,5,7,6,8,9,11,10,12,13,15,14" +
          std::string(13, ',') + "\nrough,Sample,2026-03-14,10:15:30,O_ROUGH" +
          std::string(18, ',') + ",BPF,0.15,2,1,2,4,3,HPF,0.8,5,6,8,7\n" +
          "none,Sample,2026-03-14,10:15:30" + std::string(32, ',') + "\n");
}

TEST(Info, EscapesTextsAndHasNullForMissingNumbers) {
  ExportSource source = smallSource();
  source.measurement.header.algorithmType = 2;
  source.measurement.results.copr = {NAN};
  source.automaticScale = INFINITY;
  const std::string object = infoObject(source);
  EXPECT_EQ(object, R"({
  "file": "a,b.res",
  "version": 0,
  "width": 0,
  "height": 0,
  "pitch_x_mm": 0.1,
  "pitch_y_mm": 0.02,
  "element_type": 0,
  "part": "Tür \"7\"\u000a",
  "date": "2026-03-14",
  "time": "10:15:30",
  "surface": "N/A",
  "data_type": "",
  "algorithm": {"number": 2, "name": "COPR"},
  "results": [
    {"name": "COPR", "value": null, "unit": ""}
  ],
  "minimum_um": -2.5,
  "maximum_um": 4,
  "missing": 1,
  "scale": null
})");
  const std::string both[] = {object, "{}"};
  EXPECT_EQ(infoDocument(both, true), "[" + object + ",\n{}]\n");
  EXPECT_EQ(resultsText(source.measurement, kTabs), "COPR\t\t\n");
}

TEST(HeightFiles, AsciiSdf) {
  EXPECT_EQ(written(writeSdf, smallSource()),
            "aISO-1.0\r\nManufacID   = Morvane\r\nCreateDate  = 140320261015\r\n"
            "ModDate     = 140320261015\r\nNumPoints   = 3\r\nNumProfiles = 2\r\n"
            "Xscale      = 0.0001\r\nYscale      = 2e-05\r\nZscale      = 1e-06\r\n"
            "Zresolution = -1\r\nCompression = 0\r\nDataType    = 7\r\nCheckType   = 0\r\n*\r\n"
            "0.1 BAD -2.5\r\n1e-07 4 0.3333333333333333\r\n*\r\n"
            "Comment     = Low pass 0.8 mm\r\n*\r\n");
}

TEST(HeightFiles, GsfIsAlignedAndBeginsWithTheLastRow) {
  ExportSource source = smallSource();
  for (std::size_t words = 0; words < 4; ++words) {
    source.heightWords = std::string(words, 'w');
    const std::string file = written(writeGsf, source);
    const std::size_t end = file.find('\0');
    EXPECT_EQ(file.substr(0, end),
              "Gwyddion Simple Field 1.0\nXRes = 3\nYRes = 2\nXReal = 0.0003\nYReal = 4e-05\n"
              "XYUnits = m\nZUnits = m\nTitle = Tür \"7\" \n" +
                  (words > 0 ? "Comment = " + source.heightWords + "\n" : ""));
    const std::size_t data = end + 4 - end % 4;
    ASSERT_EQ(file.size(), data + 6 * sizeof(float));
    std::array<float, 6> heights;
    std::memcpy(heights.data(), file.data() + data, sizeof heights);
    EXPECT_FLOAT_EQ(heights[1], 4e-6F);
    EXPECT_FLOAT_EQ(heights[5], -2.5e-6F);
    EXPECT_TRUE(std::isnan(heights[4]));
  }
}

TEST(HeightFiles, PointsLeaveMissingOnesOut) {
  EXPECT_EQ(written(writeXyz, smallSource()),
            "0 0 0.1\n200 0 -2.5\n0 20 1e-07\n100 20 4\n200 20 0.3333333333333333\n");
}

TEST(HeightFiles, MeasurementOpensWithTheHeightsShown) {
  const TemporaryFolder folder;
  writeBytes(
      folder.file("counts.res"),
      encodeMeasurement(
          {.numType = kNumTypeCounts16, .width = 3, .height = 2, .counts = {1, 2, 3, 4, 5, 6}}));
  ExportSource source = smallSource();
  source.measurement = Reader(folder.file("counts.res")).file.measurement();
  const std::string path = folder.file("filtered.RES");
  const ExportFormat* format = exportFormat(ExportKind::kHeights, path);
  ASSERT_NE(format, nullptr);
  EXPECT_EQ(saveExport(*format, source, path), "");
  const Reader again(path);
  ASSERT_TRUE(again.file.isValid());
  const auto shown = source.heights->values();
  EXPECT_EQ(std::memcmp(again.file.grid()->values().data(), shown.data(), shown.size_bytes()), 0);
  EXPECT_EQ(saveExport(*format, source, folder.file("no/x.res")), "No such file or directory");
  EXPECT_EQ(exportFormat(ExportKind::kSection, path), nullptr);
}

/// A full disk.
struct FullSink : ByteSink {
  void write(const void*, std::size_t) override { ++writes; }
  [[nodiscard]] bool failed() const override { return writes > 0; }
  int writes = 0;
};

TEST(HeightFiles, WritingStopsAtTheFirstError) {
  ExportSource source = smallSource();
  source.heights = HeightGrid::zeroed(1000, 1000);
  for (const ExportFormat& format : exportFormats()) {
    if (format.kind != ExportKind::kHeights || format.extension == ".res") continue;
    FullSink sink;
    format.write(source, sink);
    EXPECT_LE(sink.writes, 2) << format.extension;
  }
}

}  // namespace
}  // namespace morvane
