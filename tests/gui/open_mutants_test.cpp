// Broken files by the thousand through the program's own open action, in one process.
#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Double_Window.H>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "base/memory_advice.h"
#include "base/paths.h"
#include "resfile/res_file.h"
#include "tests/support/temporary_folder.h"
#include "ui/app_state.h"
#include "ui/file_actions.h"
#include "ui/gl_window.h"
#include "ui/main_window.h"

namespace morvane {
namespace {

constexpr std::size_t kHeader = 256;
constexpr std::size_t kLongestCut = 400;
/// So many are opened, evenly picked, unless MORVANE_MUTANTS says otherwise.
constexpr std::size_t kMutants = 400;

/// Changes the bytes of a file.
struct Mutation {
  std::string name;
  std::function<void(std::string&)> apply;
};

template <class Value>
Mutation overwrite(std::size_t offset, Value value, const std::string& type) {
  return {type + " at " + std::to_string(offset) + " becomes " + std::to_string(value),
          [=](std::string& bytes) {
            if (offset + sizeof value <= bytes.size()) {
              std::memcpy(bytes.data() + offset, &value, sizeof value);
            }
          }};
}

/// NaN, both infinities, the largest and a denormal number at each place.
template <class Value>
void addNumbers(std::vector<Mutation>& all, std::size_t begin, std::size_t end,
                const std::string& type) {
  using Limits = std::numeric_limits<Value>;
  for (std::size_t offset = begin; offset < end; offset += 4) {
    for (const Value value : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
                              Limits::max(), Limits::denorm_min()}) {
      all.push_back(overwrite(offset, value, type));
    }
  }
}

/// The same for the height in the middle of a file and for the last one.
void addHeights(std::vector<Mutation>& all) {
  using Limits = std::numeric_limits<double>;
  for (const double value : {Limits::quiet_NaN(), Limits::infinity(), Limits::max()}) {
    for (const std::size_t part : {1U, 2U}) {
      all.push_back({"height " + std::to_string(part) + "/2 becomes " + std::to_string(value),
                     [=](std::string& bytes) {
                       const std::size_t heights = (bytes.size() - kHeader) / sizeof value;
                       const std::size_t at = (heights * part / 2 - 1) * sizeof value;
                       std::memcpy(bytes.data() + kHeader + at, &value, sizeof value);
                     }});
    }
  }
}

std::vector<Mutation> mutations() {
  std::vector<Mutation> all;
  for (std::size_t length = 0; length <= kLongestCut; ++length) {
    all.push_back({"cut at " + std::to_string(length),
                   [=](std::string& bytes) { bytes.resize(std::min(bytes.size(), length)); }});
  }
  for (std::size_t offset = 0; offset < kHeader; ++offset) {
    for (const unsigned value : {0U, 127U, 128U, 255U}) {
      all.push_back(overwrite(offset, static_cast<std::uint8_t>(value), "byte"));
    }
  }
  for (std::size_t offset = 0; offset < 24; offset += 4) {
    for (const std::int32_t value : {-1, 0, 1, 65536, 46341, 0x7FFFFFFF, -0x7FFFFFFF - 1}) {
      all.push_back(overwrite(offset, value, "int"));
    }
  }
  addNumbers<float>(all, 0, kHeader, "float");
  addNumbers<double>(all, 0, kHeader + 64, "double");
  addHeights(all);
  return all;
}

std::string bytesOf(const std::filesystem::path& path) { return contentOf(path.string()); }

/// Memory held when the program has tidied up, as it does while it is left alone.
long residentKilobytes() {
  releaseSpareMemory();
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (long kilobytes = 0; word == "VmRSS:" && status >> kilobytes) return kilobytes;
  }
  return 0;
}

/// Closes every message box as soon as it is up, and keeps what it said.
std::vector<std::string> messages;

void closeMessages(void* /*unused*/) {
  Fl_Window* box = Fl::modal();
  if (box == nullptr) return;
  for (int i = 0; i < box->children(); ++i) {
    const Fl_Widget* child = box->child(i);
    if (child->label() != nullptr && child->w() > 200) messages.emplace_back(child->label());
  }
  box->hide();
}

class OpenMutants : public testing::Test {
 protected:
  OpenMutants() {
    appState().exeFolder = folderOf(MORVANE_PROGRAM);
    buildMainWindow();
    appState().mainWindow->size(700, 560);  // quicker to draw
    appState().mainWindow->show();
    Fl::add_check(closeMessages);
    while (!appState().mainWindow->visible() || Fl::wait(0.1) > 0) {
    }
  }

  /// Opens `path` as the command line does, and draws what is to be drawn.
  static void open(const std::string& path) {
    messages.clear();
    appState().startupFile = path;
    openMeasurement(nullptr, kOpenStartupFile);
    Fl::check();
  }

  /// What the reader alone says of a file.
  static bool isValid(const std::string& path) {
    std::ostringstream log;
    resFile file(log);
    file.update(path);
    return file.isValid() && file.grid() != nullptr;
  }

  TemporaryFolder folder_;
};

TEST_F(OpenMutants, AreRefusedOrShownAndTheLastGoodOneStays) {
  const char* wanted = std::getenv("MORVANE_MUTANTS");
  std::vector<std::filesystem::path> seeds;
  for (const auto& entry : std::filesystem::directory_iterator(MORVANE_SAMPLES "/codes")) {
    seeds.push_back(entry.path());
  }
  std::sort(seeds.begin(), seeds.end());
  ASSERT_GE(seeds.size(), 12U);

  open(seeds.front().string());
  std::string shown = seeds.front().string();
  const std::vector<Mutation> mutants = mutations();
  const std::size_t count = wanted != nullptr ? std::strtoul(wanted, nullptr, 10) : kMutants;
  const std::size_t stride =
      std::max<std::size_t>(1, seeds.size() * mutants.size() / std::max<std::size_t>(1, count));
  std::size_t number = 0;
  std::size_t opened = 0;
  std::size_t refused = 0;
  long settled = 0;
  std::chrono::duration<double> longest{};
  for (const std::filesystem::path& seed : seeds) {
    const std::string whole = bytesOf(seed);
    for (const Mutation& mutant : mutants) {
      if (++number % stride != 0) continue;
      SCOPED_TRACE(seed.filename().string() + ", " + mutant.name);
      std::string bytes = whole;
      mutant.apply(bytes);
      const std::string path = folder_.file(opened % 2 == 0 ? "even.res" : "odd.res");
      std::ofstream(path, std::ios::binary) << bytes;
      const bool valid = isValid(path);
      const SurfaceModel& model = appState().glView->surface().measured();
      const HeightGrid* const before = model.raw().get();

      const auto start = std::chrono::steady_clock::now();
      open(path);
      longest = std::max<std::chrono::duration<double>>(longest,
                                                        std::chrono::steady_clock::now() - start);
      if (valid) {
        shown = path;
        ++opened;
        EXPECT_TRUE(messages.empty()) << messages.front();
      } else {
        ++refused;
        EXPECT_EQ(messages, std::vector<std::string>{"Invalid file"});
        EXPECT_EQ(model.raw().get(), before);
      }
      ASSERT_EQ(appState().glView->surface().measurement().path, shown);
      if (number > seeds.size() * mutants.size() / 5 && settled == 0) {
        settled = residentKilobytes();
      }
    }
  }
  std::cerr << opened << " opened, " << refused << " refused, longest " << longest.count()
            << " s, memory " << settled << " kB after a fifth, " << residentKilobytes()
            << " kB in the end\n";
  EXPECT_LT(longest.count(), 1.0);
  EXPECT_LT(static_cast<double>(residentKilobytes()), 1.1 * static_cast<double>(settled));
}

}  // namespace
}  // namespace morvane
