// Written reports, read back with other programs.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <fstream>
#include <random>
#include <regex>
#include <string>

#include "export/pdf_report.h"
#include "export/screen_picture.h"
#include "tests/gui/image.h"
#include "tests/support/output.h"
#include "tests/support/temporary_folder.h"

namespace morvane {
namespace {

ReportValues exampleValues() {
  ReportValues values;
  strptime("2022-07-03 10:05:03", "%F %T", &values.moment);
  values.measurementPath =
      "/data/door panel/T\u00FCr 5 \u00B5m \u2013 \u20AC it's \u6E2C\u5B9A.res";
  values.zScale = 3.0F;
  values.minimum = "-4.2";
  values.maximum = "12.5 ";
  return values;
}

/// Saves a report with the picture `jpeg`. Returns why it could not be saved, or nothing.
std::string writeReport(const ReportValues& values, const Bytes& jpeg, const std::string& path) {
  PdfReport report;
  const ReportPage page = describePage(values);
  report.writeTexts(page, values.maximum + "m");
  report.drawPicture(jpeg, page.picture);
  return report.save(path);
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
    // Noise of red shades: more bytes than the encoder writes at a time.
    RgbImage red(643, 407);
    std::minstd_rand random(1);  // NOLINT(bugprone-random-generator-seed): the same every time
    for (std::size_t i = 0; i < red.pixels.size(); i += 3) {
      red.pixels[i] = 255;
      red.pixels[i + 1] = red.pixels[i + 2] = static_cast<unsigned char>(random() % 128);
    }
    EXPECT_EQ(encodeJpeg(red, jpeg_), "");
    EXPECT_GT(jpeg_.size(), std::size_t{1} << 16);
  }

  TemporaryFolder folder_;
  Bytes jpeg_;
  std::string pdf_ = folder_.file("\u6E2C\u5B9A \u0394.pdf");  // letters outside ASCII
  CollectedOutput output_;
};

TEST_F(PdfReportTest, HasItsTextsInTheirPlaces) {
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

  // The ascender and the line height of Helvetica, in units of the font size.
  constexpr double kAscent = 0.718;
  constexpr double kLine = 0.925;
  // The left edge of the word after "Crop ", from the advance widths of its letters.
  constexpr double kValue = 700 + 12 * (0.722 + 0.333 + 0.556 + 0.556 + 0.278);
  struct {
    const char* text;
    double x, belowTop, size;
  } const starts[] = {{"Morvane", (841.89 - 264.096) / 2, 50, 24},
                      {"Date:", 40, 90, 16},
                      {"Time:", 200, 90, 16},
                      {"T\u00FCr", 40, 105, 12},
                      {"Scaling:", 700, 130, 12},
                      {"Min:", kValue, 150, 12},
                      {"Max:", kValue, 170, 12}};
  const std::string words = outputOf("pdftotext -bbox '" + pdf_ + "' -");
  for (const auto& start : starts) {
    // Lengths in points from the upper left corner.
    std::smatch box;
    const std::regex word(R"re(xMin="(\S+)" yMin="(\S+)" xMax="\S+" yMax="(\S+)">)re" +
                          std::string(start.text) + "<");
    ASSERT_TRUE(std::regex_search(words, box, word)) << start.text;
    EXPECT_NEAR(std::stod(box[1]), start.x, 0.1) << start.text;
    EXPECT_NEAR(std::stod(box[2]) + kAscent * start.size, start.belowTop, 0.01) << start.text;
    EXPECT_NEAR(std::stod(box[3]) - std::stod(box[2]), kLine * start.size, 0.01) << start.text;
  }
  const std::string text = textOf(pdf_);
  for (const char* line :
       {"Morvane Reader Report:", "T\u00FCr 5 \u00B5m \u2013 \u20AC it's ??.res", "Date: 3/7/2022",
        "Time: 10:05:3", "Scaling: 3.0x", "Crop Min: -4.2", "Crop Max: 12.5"}) {
    EXPECT_NE(text.find(line), std::string::npos) << text;
  }
}

TEST_F(PdfReportTest, DrawsItsPictureInItsPlace) {
  ASSERT_EQ(writeReport(exampleValues(), jpeg_, pdf_), "");
  EXPECT_EQ(picturesIn(pdf_), 1);
  // One point is one pixel.
  const auto page = gui::Image::ofPpm(outputOf("pdftoppm -r 72 '" + pdf_ + "'"));
  const auto isRed = [&](int x, int y) {
    return chroma(page.at({x, static_cast<int>(kPageHeight) - y})) > 0;
  };
  for (const int y : {72, 468}) {
    for (const int x : {42, 678}) EXPECT_TRUE(isRed(x, y)) << x << ' ' << y;
    for (const int x : {38, 682}) EXPECT_FALSE(isRed(x, y)) << x << ' ' << y;
  }
  for (const int y : {68, 472}) EXPECT_FALSE(isRed(300, y)) << y;
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

TEST_F(PdfReportTest, SaysWhyItCannotBeSavedAndReplacesAnOldOne) {
  EXPECT_EQ(writeReport(exampleValues(), jpeg_, folder_.file("no such folder/a.pdf")),
            "No such file or directory");

  std::ofstream(pdf_) << "old";
  EXPECT_EQ(writeReport(exampleValues(), jpeg_, pdf_), "");
  EXPECT_TRUE(contentOf(pdf_).starts_with("%PDF-"));
  EXPECT_EQ(folder_.entries(), 1);
}

TEST(JpegFile, IsEmptyForAnImpossiblePicture) {
  Bytes file = {'o', 'l', 'd'};
  EXPECT_EQ(encodeJpeg(RgbImage(), file), "Empty JPEG image (DNL not supported)");
  EXPECT_NE(encodeJpeg(RgbImage(65501, 1), file), "");
  EXPECT_TRUE(file.empty());
}

}  // namespace
}  // namespace morvane
