// Written reports, read back with other programs.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "export/pdf_report.h"
#include "export/screen_picture.h"
#include "tests/support/output.h"
#include "tests/support/temporary_folder.h"

namespace morvane {
namespace {

ReportValues exampleValues() {
  ReportValues values;
  values.moment.tm_year = 2022 - 1900;
  values.moment.tm_mon = 6;
  values.moment.tm_mday = 3;
  values.moment.tm_hour = 10;
  values.moment.tm_min = 5;
  values.moment.tm_sec = 3;
  values.measurementPath = "/data/door panel/left.res";
  values.zScale = 3.0F;
  values.minimum = "-4.2";
  values.maximum = "12.5 ";
  return values;
}

/// One whole report with the picture `jpeg`; what the saving answers.
std::string writeReport(const ReportValues& values, const Bytes& jpeg, const std::string& path) {
  PdfReport report;
  const ReportPage page = describePage(values);
  report.writeTexts(page, values.maximum + "m");
  report.drawPicture(jpeg, page.picture);
  return report.save(path);
}

/// A word as the page shows it; lengths in points, `top` counted from the upper edge.
struct Word {
  std::string text;
  double left, top, height;
};

std::vector<Word> wordsOf(const std::string& pdf) {
  static const std::regex kWord(
      R"re(<word xMin="(\S+)" yMin="(\S+)" xMax="\S+" yMax="(\S+)">(.*)</word>)re");
  std::istringstream lines(outputOf("pdftotext -bbox '" + pdf + "' -"));
  std::vector<Word> words;
  std::smatch match;
  for (std::string line; std::getline(lines, line);) {
    if (!std::regex_search(line, match, kWord)) continue;
    const double top = std::stod(match[2]);
    words.push_back({match[4], std::stod(match[1]), top, std::stod(match[3]) - top});
  }
  return words;
}

std::string textOf(const std::string& pdf) { return outputOf("pdftotext -raw '" + pdf + "' -"); }

/// How many pictures are drawn in a report.
long picturesIn(const std::string& pdf) {
  const std::string list = outputOf("pdfimages -list '" + pdf + "' 2>&1");
  return std::ranges::count(list, '\n') - 2;  // below the two lines of the heading
}

class PdfReportTest : public testing::Test {
 protected:
  PdfReportTest() {
    RgbImage red(64, 40);
    for (std::size_t i = 0; i < red.pixels.size(); i += 3) red.pixels[i] = 255;
    EXPECT_EQ(encodeJpeg(red, jpeg_), "");
  }

  TemporaryFolder folder_;
  Bytes jpeg_;
  std::string pdf_ = folder_.file("report.pdf");
  CollectedOutput output_;
};

TEST_F(PdfReportTest, StandsOnItsPageAsItShould) {
  ASSERT_EQ(writeReport(exampleValues(), jpeg_, pdf_), "");
  EXPECT_EQ(output_.text(),
            "Creating page_1\n"
            "Beginning text on Page_1\n"
            "cropMaxFormat:12.5 m\n"
            "Finished writing to Page_1\n"
            "Loading screenshot from JPEG...\n"
            "Screenshot loaded\n"
            "Freeing HPDF memory\n"
            "Memory Free Successfull\nDeconstructing File Chooser\n");
  outputOf("qpdf --check '" + pdf_ + "'");
  const std::string info = outputOf("pdfinfo '" + pdf_ + "'");
  EXPECT_NE(info.find("841.89 x 595.276 pts (A4)"), std::string::npos) << info;
  EXPECT_NE(contentOf(pdf_).find("/PageMode /UseOutlines"), std::string::npos);

  // Helvetica's ascender and its whole height, as parts of the font size.
  constexpr double kAscent = 0.718;
  constexpr double kLine = 0.925;
  // Behind "Crop ", whose advance widths these are.
  constexpr double kValue = 700 + 12 * (0.722 + 0.333 + 0.556 + 0.556 + 0.278);
  struct {
    const char* text;
    double x, belowTop, size;
  } const starts[] = {{"Morvane", (841.89 - 264.096) / 2, 50, 24},
                      {"Date:", 40, 90, 16},
                      {"Time:", 200, 90, 16},
                      {"left.res", 40, 105, 12},
                      {"Scaling:", 700, 130, 12},
                      {"Min:", kValue, 150, 12},
                      {"Max:", kValue, 170, 12}};
  const std::vector<Word> words = wordsOf(pdf_);
  for (const auto& start : starts) {
    const auto word = std::ranges::find(words, start.text, &Word::text);
    ASSERT_NE(word, words.end()) << start.text;
    EXPECT_NEAR(word->left, start.x, 0.1) << start.text;
    EXPECT_NEAR(word->top + kAscent * start.size, start.belowTop, 0.01) << start.text;
    EXPECT_NEAR(word->height, kLine * start.size, 0.01) << start.text;
  }
  const std::string text = textOf(pdf_);
  for (const char* line : {"Morvane Reader Report:", "Date: 3/7/2022", "Time: 10:05:3",
                           "Scaling: 3.0x", "Crop Min: -4.2", "Crop Max: 12.5"}) {
    EXPECT_NE(text.find(line), std::string::npos) << text;
  }
}

TEST_F(PdfReportTest, DrawsItsPictureInItsPlace) {
  ASSERT_EQ(writeReport(exampleValues(), jpeg_, pdf_), "");
  EXPECT_EQ(picturesIn(pdf_), 1);
  // One point is one pixel.
  std::istringstream picture(outputOf("pdftoppm -r 72 '" + pdf_ + "'"));
  std::string kind;
  int width = 0;
  int height = 0;
  int most = 0;
  picture >> kind >> width >> height >> most;
  picture.get();
  std::string pixels(static_cast<std::size_t>(3 * width * height), '\0');
  picture.read(pixels.data(), static_cast<std::streamsize>(pixels.size()));
  const auto isRed = [&](double x, double y) {
    const auto at =
        3 * (static_cast<std::size_t>(kPageHeight - y) * static_cast<std::size_t>(width) +
             static_cast<std::size_t>(x));
    return pixels.at(at) != pixels.at(at + 1);
  };
  for (const double y : {72.0, 468.0}) {
    for (const double x : {42.0, 678.0}) EXPECT_TRUE(isRed(x, y)) << x << ' ' << y;
    for (const double x : {38.0, 682.0}) EXPECT_FALSE(isRed(x, y)) << x << ' ' << y;
  }
  for (const double y : {68.0, 472.0}) EXPECT_FALSE(isRed(300, y)) << y;
}

TEST_F(PdfReportTest, KeepsItsTextsWithoutAPicture) {
  const Bytes pictures[] = {{}, {'t', 'e', 'x', 't'}, {jpeg_.begin(), jpeg_.begin() + 15}};
  for (const Bytes& jpeg : pictures) {
    const CollectedOutput output;
    ASSERT_EQ(writeReport(exampleValues(), jpeg, pdf_), "");
    EXPECT_NE(output.text().find("JPEG...\nERROR: error_no=10"), std::string::npos)
        << jpeg.size() << '\n'
        << output.text();
    outputOf("qpdf --check '" + pdf_ + "'");
    EXPECT_NE(textOf(pdf_).find("Crop Max: 12.5"), std::string::npos) << jpeg.size();
    EXPECT_EQ(picturesIn(pdf_), 0) << jpeg.size();
  }
}

TEST_F(PdfReportTest, ShowsOfANameWhatTheFontHas) {
  constexpr std::pair<const char*, const char*> kNames[] = {
      {"T\u00FCr 5 \u00B5m \u2013 \u20AC.res", "T\u00FCr 5 \u00B5m \u2013 \u20AC.res\n"},
      {"it's (ab).res", "it's (ab).res\n"},
      {"\u6E2C\u5B9A \u03A9.res", "?? ?.res\n"}};
  ReportValues values = exampleValues();
  for (const auto& [name, shown] : kNames) {
    values.measurementPath = folder_.file(name);
    ASSERT_EQ(writeReport(values, jpeg_, pdf_), "") << name;
    EXPECT_NE(textOf(pdf_).find("\n" + std::string(shown)), std::string::npos) << textOf(pdf_);
  }
  // The name on the disk is whatever was typed.
  const std::string path = reportPath(folder_.file("\u6E2C\u5B9A \u0394.pdf"));
  ASSERT_EQ(writeReport(values, jpeg_, path), "");
  EXPECT_TRUE(path.ends_with("\u6E2C\u5B9A \u0394.pdf.pdf"));
  EXPECT_TRUE(contentOf(path).starts_with("%PDF-"));
}

TEST_F(PdfReportTest, SaysWhyItCannotBeSavedAndLeavesNothing) {
  EXPECT_EQ(writeReport(exampleValues(), jpeg_, folder_.file("no such folder/a.pdf")),
            "No such file or directory");

  ASSERT_EQ(chmod(folder_.path().c_str(), 0555), 0);
  // To the superuser nothing is protected, so the attempt is made as nobody.
  constexpr uid_t kNobody = 65534;
  const uid_t self = geteuid();
  if (self == 0) {
    ASSERT_EQ(seteuid(kNobody), 0);
  }
  EXPECT_EQ(writeReport(exampleValues(), jpeg_, pdf_), "Permission denied");
  ASSERT_EQ(seteuid(self), 0);
  ASSERT_EQ(chmod(folder_.path().c_str(), 0755), 0);
  EXPECT_EQ(folder_.entries(), 0);

  std::ofstream(pdf_) << "old";
  // A limit on the size of files stands for the full disk.
  rlimit limit{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlimit small = {100, limit.rlim_max};
  const auto previous = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const std::string reason = writeReport(exampleValues(), jpeg_, pdf_);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  std::signal(SIGXFSZ, previous);
  EXPECT_EQ(reason, "File too large");
  EXPECT_EQ(contentOf(pdf_), "old");
  EXPECT_EQ(folder_.entries(), 1);
  EXPECT_EQ(writeReport(exampleValues(), jpeg_, pdf_), "");
  EXPECT_TRUE(contentOf(pdf_).starts_with("%PDF-"));
}

}  // namespace
}  // namespace morvane
