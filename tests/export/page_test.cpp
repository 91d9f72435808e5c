// The texts of the report's page, before it is drawn.
#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "export/moment_texts.h"
#include "export/report_page.h"
#include "export/win_ansi.h"
#include "tests/support/golden.h"

namespace morvane {
namespace {

TEST(MomentTexts, AreThoseOfTheReferenceRows) {
  int rows = 0;
  for (const std::string& line : golden::lines(golden::file("view/controls.txt"))) {
    if (!line.starts_with("time")) continue;
    ++rows;
    std::tm moment{};
    std::istringstream(line) >> std::get_time(&moment, "time %Y %m %d %H %M %S");
    const std::string found =
        pictureName(moment) + "\t" + dateText(moment) + "\t" + timeText(moment);
    EXPECT_TRUE(line.ends_with("\t" + found)) << line << "\n" << found << " found";
  }
  EXPECT_GT(rows, 0);
  std::tm nine{};
  nine.tm_min = 9;
  EXPECT_EQ(timeText(nine), "Time: 0:09:0");
}

TEST(ReportPage, TakesNameScaleAndLimitsAsTheyAre) {
  const auto texts = [](const ReportValues& values) {
    std::string all;
    for (const PageText& text : describePage(values).texts) all += text.text + "|";
    return all.substr(all.find("Time"));
  };
  ReportValues values;
  values.moment.tm_year = 122;
  values.moment.tm_mday = 1;
  values.minimum = "Miniu";
  values.maximum = "Maxiu";
  EXPECT_EQ(texts(values), "Time: 0:00:0||Scaling: 1.0x|Crop Min: Miniu|Crop Max: Maxiu|");
  values.measurementPath = "C:\\data/left door\\T\xC3\xBCr.res";
  values.zScale = 2.96F;
  values.minimum = "-12.5 ";
  values.maximum = "";
  EXPECT_EQ(texts(values),
            "Time: 0:00:0|T\xC3\xBCr.res|Scaling: 3.0x|Crop Min: -12.5 |Crop Max: |");
  EXPECT_EQ(reportPath("/home/a/report.pdf"), "/home/a/report.pdf.pdf");
  EXPECT_EQ(suggestedName("/data.res/left.door.res"), "left.door");
  EXPECT_EQ(suggestedName("UP.RES"), "UP");
  EXPECT_EQ(suggestedName(""), "");
}

TEST(WinAnsi, HasWhatTheFontHasAndAMarkForTheRest) {
  using namespace std::string_view_literals;
  constexpr std::pair<std::string_view, std::string_view> kTexts[] = {
      {"Door 7~.res", "Door 7~.res"},
      {"\u00E4\u00F6\u00FC\u00DF \u00B5m \u00FF\u00A0", "\xE4\xF6\xFC\xDF \xB5m \xFF\xA0"},
      {"\u20AC\u201E\u2013\u2122\u017E\u0178", "\x80\x84\x96\x99\x9E\x9F"},
      {"\u6E2C\u5B9A \u03A9 \U0001F600", "?? ? ?"},
      {"a\tb\nc\x7F\u0080\u009F"sv, "a?b?c???"},
      {"nul\0end"sv, "nul?end"},
      // Invalid UTF-8: a lone continuation byte, Latin-1, a cut character, an overlong one, a
      // surrogate.
      {"\x80"
       "a",
       "?a"},
      {"T\xFCr", "T?r"},
      {"\xE2\x82", "??"},
      {"\xC0\xAF", "??"},
      {"\xED\xA0\x80", "?"},
      {"", ""}};
  for (const auto& [utf8, bytes] : kTexts) EXPECT_EQ(winAnsiText(utf8), bytes);
  EXPECT_TRUE(isStandardText("Scaling: 3.0x (~|)"));
  for (const char* text : {"it's", "`", "\xE4"}) EXPECT_FALSE(isStandardText(text)) << text;
}

}  // namespace
}  // namespace morvane
