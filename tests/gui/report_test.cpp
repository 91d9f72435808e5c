// The report button, from the press to the page.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <memory>

#include "tests/gui/program.h"
#include "tests/support/golden.h"

namespace morvane::gui {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;

constexpr Point kReport{77, 484};

/// What a command prints.
std::string outputOf(const std::string& command) {
  struct Close {
    void operator()(std::FILE* pipe) const { ::pclose(pipe); }
  };
  const std::unique_ptr<std::FILE, Close> pipe(::popen(command.c_str(), "r"));
  std::string output;
  for (int c = std::fgetc(pipe.get()); c != EOF; c = std::fgetc(pipe.get())) {
    output += static_cast<char>(c);
  }
  return output;
}

class Report : public testing::Test {
 protected:
  void open() {
    program_ = std::make_unique<Program>(
        std::vector<std::string>{golden::file("panel/measurement.res").string()});
    program_->mainWindow().awaitPicture("the surface", [](const Image& p) {
      return p.part({650, 370, 130, 90}).count([](const Rgb& c) { return chroma(c) > 80; }) > 2000;
    });
  }
  void press(const std::string& name) {
    program_->mainWindow().click(kReport);
    program_->answerChooser(name, "");
  }
  TemporaryFolder folder_;
  std::unique_ptr<Program> program_;
};

TEST_F(Report, IsAPageWithThePictureAndItsNumbers) {
  open();
  press(folder_.file("report"));
  const std::string path = folder_.file("report.pdf");
  program_->mainWindow().awaitPicture("the report",
                                      [&](const Image&) { return std::filesystem::exists(path); });
  const std::string text = outputOf("pdftotext -layout '" + path + "' -");
  for (const char* words : {"Morvane Reader Report:", "Date: ", "Time: ", "measurement.res",
                            "Scaling: 498.8x", "Crop Min: -6.1", "Crop Max: 6.2"}) {
    EXPECT_THAT(text, HasSubstr(words));
  }
  EXPECT_THAT(outputOf("pdfinfo '" + path + "'"), HasSubstr("Pages:           1"));
  EXPECT_THAT(outputOf("pdfinfo '" + path + "'"), HasSubstr("A4"));
  EXPECT_THAT(outputOf("pdffonts '" + path + "'"), HasSubstr("Helvetica"));
  EXPECT_THAT(outputOf("qpdf --check '" + path + "' 2>&1"), HasSubstr("No syntax"));
  // The view without its first five columns.
  EXPECT_THAT(outputOf("pdfimages -list '" + path + "'"), ContainsRegex("image +1125 +775 +rgb"));
  // And the clipboard holds it.
  EXPECT_GT(outputOf("xclip -selection clipboard -o -t image/bmp 2>/dev/null").size(),
            std::size_t{1125} * 775 * 3);
}

TEST_F(Report, LeftOrImpossibleIsSaidAndTheProgramRunsOn) {
  open();
  press("");
  press("/proc/report");
  program_->awaitLine("The report could not be saved: ");
  EXPECT_EQ(program_->quit(), 0);
}

}  // namespace
}  // namespace morvane::gui
