// The reader against the reference cases: log lines, fields, records, heights, regions.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <span>
#include <sstream>

#include "resfile/region_file.h"
#include "tests/support/golden.h"
#include "tests/support/reader.h"
#include "tests/support/temporary_folder.h"

namespace morvane {
namespace {

/// Expects a record to have the reference's numbers. The first two of "orpeel" are integers.
void expectRecord(const ResResults& r, const std::vector<std::string>& words) {
  const std::map<std::string, std::span<const float>> records = {{"standard", r.standard},
                                                                 {"copr", r.copr},
                                                                 {"wavescan", r.waveScanBands},
                                                                 {"texcurv", r.textureCurvature},
                                                                 {"ecrm", r.standardEcRm},
                                                                 {"vw", r.vwEcRm},
                                                                 {"gm", r.gmEcRm},
                                                                 {"ecws", r.ecWaveScanBands},
                                                                 {"orpeel", r.orangePeel.values}};
  const std::span<const float> floats = records.at(words.at(1));
  const std::size_t integers = words[1] == "orpeel" ? 2 : 0;
  ASSERT_EQ(words.size(), 2 + integers + floats.size()) << words[1];
  for (std::size_t i = 0; i < integers; ++i) {
    EXPECT_EQ(words[2 + i], std::to_string(r.orangePeel.filterType[i]));
  }
  for (std::size_t i = 0; i < floats.size(); ++i) {
    EXPECT_TRUE(golden::isExactly(floats[i], words[2 + integers + i]))
        << words[1] << ' ' << i << ": " << floats[i];
  }
}

/// Expects the field `key`, a text or a number, to have the reference's value.
void expectField(const resFile& file, const std::string& key, const std::string& expected) {
  const ResHeader& h = file.header();
  const std::map<std::string, std::string_view> texts = {{"headerText1", fieldText(h.headerText1)},
                                                         {"headerText2", fieldText(h.headerText2)},
                                                         {"headerText3", fieldText(h.headerText3)}};
  const std::map<std::string, double> numbers = {{"numType", h.numType},
                                                 {"width", h.width},
                                                 {"height", h.height},
                                                 {"headerVersion", h.headerVersion},
                                                 {"surfaceType", h.surfaceType},
                                                 {"algorithmType", h.algorithmType},
                                                 {"headerSize", file.headerSize()},
                                                 {"fileSize", static_cast<double>(file.fileSize())},
                                                 {"pointCount", file.pointCount()},
                                                 {"pixelSizeX", h.pixelSizeX},
                                                 {"pixelSizeY", h.pixelSizeY},
                                                 {"heightScale", h.heightScale}};
  if (texts.contains(key)) {
    EXPECT_EQ(texts.at(key), expected) << key;
  } else if (key == "headerValue") {
    EXPECT_TRUE(golden::isExactly(h.headerValue, expected)) << expected;
  } else {
    EXPECT_TRUE(numbers.contains(key) && golden::isExactly(numbers.at(key), expected)) << key;
  }
}

void expectFields(const std::filesystem::path& expected, const resFile& file, bool valid) {
  for (const std::string& line : golden::lines(expected)) {
    const std::vector<std::string> words = golden::words(line);
    const std::string& key = words[0];
    const std::string rest = line.size() > key.size() ? line.substr(key.size() + 1) : "";
    if (key == "record") {
      expectRecord(file.results(), words);
    } else if (key == "height_at") {
      EXPECT_TRUE(golden::isExactly(file.grid()->values()[std::stoul(words[1])], words[2])) << line;
    } else if (key == "valid") {
      EXPECT_EQ(rest, valid ? "1" : "0") << expected;
    } else {
      expectField(file, key, rest);
    }
  }
}

// The other tests find the cases by their files, so they would not notice a missing one.
TEST(Golden, IsWhole) {
  const std::filesystem::recursive_directory_iterator all(golden::file(""));
  EXPECT_EQ(std::count_if(begin(all), end(all), [](const auto& e) { return e.is_regular_file(); }),
            229);
}

class GoldenRead : public testing::TestWithParam<std::string> {};

TEST_P(GoldenRead, GivesItsLogAndFields) {
  const auto folder = golden::file(GetParam());
  const std::string path = golden::measurement(GetParam());
  Reader reader(path);
  const bool valid = reader.file.isValid();
  golden::expectLog(folder / "log.txt", reader.log.str(), path);
  expectFields(folder / "fields.txt", reader.file, valid);
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenRead, testing::ValuesIn(golden::casesWith("fields.txt")));

TEST(GoldenSequence, OneReaderKeepsWhatLaterFilesDoNotHold) {
  const auto folder = golden::file("sequence");
  const TemporaryFolder temporary;
  std::ostringstream log;
  resFile file(log);
  std::size_t regions = 0;
  for (const std::string& line : golden::lines(folder / "steps.txt")) {
    const std::vector<std::string> step = golden::words(line);
    const std::string path = (folder / step[1]).string();
    EXPECT_EQ(step[2], std::filesystem::exists(path) ? "present" : "missing") << line;
    log.str("");
    file.update(path);
    const bool valid = file.isValid();
    golden::expectLog(folder / ("step" + step[0] + "_log.txt"), log.str(), path);
    expectFields(folder / ("step" + step[0] + "_fields.txt"), file, valid);
    for (const std::string& cut : golden::lines(folder / "regions.txt")) {
      const std::vector<std::string> words = golden::words(cut);
      if (words[0] != step[0]) continue;
      const auto at = [&](std::size_t i) { return std::stoul(words[i]); };
      const auto values = cutHeights(*file.grid(), {at(1), at(2), at(3), at(4)});
      const std::string target = temporary.file(words[5]);
      EXPECT_EQ(file.writeRegion(values, std::stoi(words[3]), std::stoi(words[4]), target), "");
      EXPECT_TRUE(contentOf(target) == contentOf((folder / words[5]).string())) << cut;
      ++regions;
    }
  }
  EXPECT_EQ(regions, 3U);
}

TEST(GoldenSequence, AFailedOpenLeavesEarlierHeightsToWhoeverHoldsThem) {
  Reader reader(golden::file("sequence/a.res").string());
  resFile& file = reader.file;
  const Measurement shown = file.measurement();
  file.update(golden::file("sequence/none.res").string());
  EXPECT_EQ(file.grid(), nullptr);
  EXPECT_TRUE(file.loaded());
  EXPECT_EQ(shown.grid->count(), 24U);
  EXPECT_EQ(shown.grid->values()[0], 3.644);
}

}  // namespace
}  // namespace morvane
