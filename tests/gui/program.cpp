#include "tests/gui/program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "tests/support/golden.h"
#include "tools/menu_keys.h"
#include "ui/menu.h"

namespace morvane::gui {
namespace {

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

/// By default FLTK uses the file chooser of a desktop library that it finds. With this setting in
/// the home folder it uses its own, which is the same everywhere.
void choosePlainChooser(const std::string& home) {
  const std::string folder = home + "/.fltk/fltk.org";
  std::filesystem::create_directories(folder);
  std::ofstream(folder + "/fltk.prefs")
      << "; FLTK preferences file format 1.0\n; vendor: fltk.org\n; application: fltk\n\n[.]\n\n"
         "[./options]\n\nFNFCUsesGTK:0\n";
}

std::vector<std::string> startWords(const std::vector<std::string>& arguments, const Start& start,
                                    const std::string& home, const Screen& screen) {
  choosePlainChooser(home);
  // If an earlier test has left the pointer over a button, its tooltip would be shown.
  screen.xdotool({"mousemove", "0", "0"});
  // Memory that GL drivers and toolkits keep until the end is not a leak of the program.
  std::vector<std::string> words = {"env",
                                    "-C",
                                    start.folder,
                                    "HOME=" + home,
                                    "USERPROFILE=" + home,
                                    "DISPLAY=" + screen.name(),
                                    "MORVANE_CHECK_GL=1",
                                    "ASAN_OPTIONS=" + variable("ASAN_OPTIONS") + ":detect_leaks=0"};
  words.insert(words.end(), start.environment.begin(), start.environment.end());
  words.push_back(start.program);
  words.insert(words.end(), arguments.begin(), arguments.end());
  return words;
}

}  // namespace

std::string brokenFile(const TemporaryFolder& folder) {
  std::string path = folder.file("broken.res");
  std::ofstream(path, std::ios::binary) << contentOf(golden::measurement("panel")).substr(0, 300);
  return path;
}

Program::Program(const std::vector<std::string>& arguments, const Start& start)
    : screen_(start.display.empty() ? variable("DISPLAY") : start.display),
      process_(startWords(arguments, start, home(), screen_)) {}

Program::~Program() {
  for (const std::string& line : lines(Stream::kErrors)) {
    if (line.find("Sanitizer") != std::string::npos ||
        line.find("runtime error:") != std::string::npos || line.starts_with("GL error")) {
      ADD_FAILURE() << line;
    }
  }
  if (!testing::Test::HasFailure() && std::uncaught_exceptions() == 0) return;
  const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
  std::string name = std::string(test->test_suite_name()) + '.' + test->name() + ".png";
  std::replace(name.begin(), name.end(), '/', '-');
  screen_.capture().savePng(name);
  std::cerr << "The screen is in " << std::filesystem::absolute(name).string() << '\n';
  for (const Stream stream : {Stream::kOutput, Stream::kErrors}) {
    std::cerr << (stream == Stream::kOutput ? "---- output\n" : "---- errors\n");
    for (const std::string& line : lines(stream)) std::cerr << line << '\n';
  }
}

Window Program::window(const std::string& title) const {
  std::vector<Window> found;
  const auto there = [&] {
    found = windows();
    std::erase_if(found, [&](const Window& window) { return window.title() != title; });
    return !found.empty();
  };
  if (!eventually(there)) throw GuiError("there is no window \"" + title + '"');
  return found.front();
}

bool Program::wholeFrameShown() const {
  const auto errors = lines(Stream::kErrors);
  const auto frame = std::find_if(errors.rbegin(), errors.rend(), [](const std::string& line) {
    return line.starts_with("frame: ");
  });
  return frame != errors.rend() && *frame == "frame: whole";
}

Image Program::awaitWhole(const std::string& what,
                          const std::function<bool(const Image&)>& predicate) const {
  Image picture;
  const auto seen = [&] {
    if (!wholeFrameShown()) return false;
    picture = mainWindow().capture();
    return predicate(picture);
  };
  if (!eventually(seen)) throw GuiError("the picture never showed " + what);
  return picture;
}

void Program::answerChooser(const std::string& path, const std::string& title) const {
  const Window chooser = window(title);
  if (path.empty()) {
    chooser.key({"Escape"});
  } else {
    // The first separator stays, since the chooser would drop one that is typed into an empty
    // field.
    chooser.key({"Home", "Right", "shift+End", "Delete"});
    chooser.type(std::filesystem::absolute(path).string().substr(1));
    // The chooser completes names by itself. Delete removes what it has added.
    chooser.key({"Delete", "Return"});
  }
  chooser.awaitGone();
}

void Program::open(const std::string& path) const {
  mainWindow().key({"ctrl+o"});
  answerChooser(path);
}

void Program::answerAlert(const std::string& key) const {
  const Window box = alert();
  box.key({key});
  box.awaitGone();
}

Image Program::awaitSurface() const {
  return awaitWhole("the surface and nothing over it", [](const Image& picture) {
    const auto [x, y] = middleOf(viewOf(picture));
    const auto isColourful = [](const Rgb& c) { return chroma(c) > 80; };
    const Image status = statusOf(picture);
    return picture.part({x - 30, y - 20, 60, 40}).count(isColourful) > 1000 &&
           status.count(isSky) == status.width() * status.height();
  });
}

void Program::choose(const std::string& entry) const {
  const auto groups = menuKeys(menuPaths(), entry);
  if (groups.empty()) throw GuiError("the menu has no entry \"" + entry + '"');
  std::size_t menus = 2;  // the title has a window, too
  for (const std::vector<std::string>& keys : groups) {
    mainWindow().key(keys);
    const std::size_t open = &keys == &groups.back() ? 0 : menus++;
    if (!eventually([&] { return screen_.menusOf(id()) == open; })) {
      throw GuiError("the menu did not " + std::string(open > 0 ? "open" : "close"));
    }
  }
  // A menu keeps the pointer a little longer than its windows.
  if (!eventually([this] { return screen_.pointerFree(); })) throw GuiError("the pointer is kept");
}

long Program::residentKilobytes() const {
  std::ifstream status("/proc/" + std::to_string(process_.id()) + "/status");
  for (std::string word; status >> word;) {
    if (long kilobytes = 0; word == "VmRSS:" && status >> kilobytes) return kilobytes;
  }
  throw GuiError("the program's memory is not known");
}

int Program::quit() {
  mainWindow().key({"ctrl+q"});
  return awaitExit();
}

}  // namespace morvane::gui
