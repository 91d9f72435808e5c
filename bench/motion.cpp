// How soon the picture follows the mouse: drives the program through the X server, at a fixed rate
// and without waiting for it, and reads from its output and from the changes of its window which
// frame shows which event. Where that is not certain, the longer time is taken.
#include <sched.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/watched_program.h"
#include "tools/menu_keys.h"
#include "tools/usage.h"
#include "ui/menu.h"
#include "ui/window_geometry.h"

namespace {

using namespace morvane;
using namespace morvane::bench;

constexpr const char* kUse =
    "motion PROGRAM BARE_VIEW MAKE_GRID [RUNS [SIDE...]]\n"
    "Drags and zooms the surface of squares of SIDE points (1000 2000 4000) in the program's\n"
    "window and prints how soon the picture follows. Needs a local X server with a window\n"
    "manager, and 4 GB of memory for 4000 points.";

constexpr PixelArea kView = kFirstLayout.view;
constexpr const char* kFrameLine = "Drawing Time for HM Key: %lf";

/// An event needs so long, at the most, from the program's queue into the next frame. An event that
/// is sent later before a frame begins is taken as shown by the one after.
constexpr double kIntoFrame = 2.0;

using Times = std::vector<double>;  // milliseconds

/// The figures of one side, one or more of each run.
struct Measured {
  Times startToFirst, startToFull, drag, wheel, heldToFull, releaseToFull, keyWaits, fullFrame,
      bare;
};

/// Of the measurement files; it is also the home of the program.
std::string folder = std::filesystem::temp_directory_path() / "motion-XXXXXX";

/// Milliseconds that the measurement itself was delayed, at the most.
double heldUp = 0.0;

struct Frame {
  double began;
  double logged;
};

/// The frames of a record. The last line of each tells the time since it began.
std::vector<Frame> framesOf(const Record& record) {
  std::vector<Frame> frames;
  for (const Line& line : record.lines) {
    double took = 0.0;
    if (std::sscanf(line.text.c_str(), kFrameLine, &took) != 1) continue;
    frames.push_back({line.earliest - took, line.read});
  }
  return frames;
}

double lastChange(const Record& record) {
  if (record.changes.empty()) throw std::runtime_error("the X server tells no change of the view");
  return record.changes.back();
}

/// A frame is on the screen at the first change after its line. If that was missed it is a later
/// one.
double shownAt(const Frame& frame, const Record& record) {
  const auto change = std::ranges::lower_bound(record.changes, frame.logged);
  return change != record.changes.end() ? *change : lastChange(record);
}

/// For each event the time until a frame that began after it is on the screen.
void addLatencies(Times& latencies, const std::vector<Sent>& events, const Record& record) {
  const std::vector<Frame> frames = framesOf(record);
  for (const Sent& event : events) {
    const auto frame = std::ranges::find_if(
        frames, [&](const Frame& f) { return f.began >= event.arrived + kIntoFrame; });
    // All events are shown when the picture rests.
    const double at = frame != frames.end() ? shownAt(*frame, record) : lastChange(record);
    latencies.push_back(at - event.from);
  }
}

/// Sends `count` events, one each 10 ms.
std::vector<Sent> sendAll(WatchedProgram& program, int count,
                          const std::function<Sent(int)>& event) {
  std::vector<Sent> sent;
  const double start = now();
  for (int i = 0; i < count; ++i) {
    program.watch(start + 10.0 * i);
    sent.push_back(event(i));
  }
  return sent;
}

Sent moveOnCircle(WatchedProgram& program, int step) {
  const double angle = 0.1 * step;
  return program.move(kView.w / 2 + static_cast<int>(120.0 * std::cos(angle)),
                      kView.h / 2 + static_cast<int>(120.0 * std::sin(angle)));
}

bool answersKey(const Line& line) {
  return line.text == "Key Down" || line.text.starts_with(">>> ZOOM");
}

/// How long each key waited until the view printed its lines.
void addKeyWaits(Times& waits, const std::vector<Sent>& keys, std::size_t linesEach,
                 const Record& record) {
  Times answers;
  for (const Line& line : record.lines) {
    if (answersKey(line)) answers.push_back(line.read);
  }
  if (linesEach == 0 || answers.size() != keys.size() * linesEach) {
    throw std::runtime_error("the view does not answer each key");
  }
  for (std::size_t i = 0; i < keys.size(); ++i) {
    waits.push_back(answers[(i + 1) * linesEach - 1] - keys[i].from);
  }
}

void measureStart(WatchedProgram& program, Measured& measured) {
  program.awaitLine("Drawing Time for HM Key: ");
  program.awaitQuiet();
  const Record& record = program.record();
  const double full = lastChange(record);
  measured.startToFirst.push_back(shownAt(framesOf(record).front(), record) - program.started());
  measured.startToFull.push_back(full - program.started());
}

void measureDrag(WatchedProgram& program, Measured& measured) {
  const auto turn = [&](int i) { return moveOnCircle(program, i); };
  (void)turn(0);
  (void)program.button(Button1, true);
  program.awaitQuiet();
  program.record() = {};
  const std::vector<Sent> moves = sendAll(program, 300, [&](int i) { return turn(i + 1); });
  program.awaitQuiet();
  addLatencies(measured.drag, moves, program.record());
  measured.heldToFull.push_back(lastChange(program.record()) - moves.back().from);
  (void)program.button(Button1, false);
  program.awaitQuiet();
}

void measureWheel(WatchedProgram& program, Measured& measured) {
  program.record() = {};
  const std::vector<Sent> turns = sendAll(
      program, 304, [&](int i) { return program.click(i / 8 % 2 == 0 ? Button4 : Button5); });
  program.awaitQuiet();
  addLatencies(measured.wheel, turns, program.record());
}

/// Keys are pressed during a drag and while the full picture after it is drawn.
void measureKeys(WatchedProgram& program, Measured& measured) {
  std::vector<Sent> keys;
  const auto press = [&] { keys.push_back(program.key("F9")); };
  program.record() = {};
  press();
  program.awaitQuiet();
  const auto linesEach =
      static_cast<std::size_t>(std::ranges::count_if(program.record().lines, answersKey));
  (void)program.button(Button1, true);
  (void)sendAll(program, 50, [&](int i) {
    if (i % 2 == 0) press();
    return moveOnCircle(program, i);
  });
  (void)program.button(Button1, false);
  program.awaitQuiet([&] {
    for (int i = 0; i < 25; ++i) {
      press();
      program.watch(now() + 20.0);
    }
  });
  program.awaitQuiet();
  addKeyWaits(measured.keyWaits, keys, linesEach, program.record());
}

void measureRelease(WatchedProgram& program, Measured& measured) {
  (void)moveOnCircle(program, 0);
  (void)program.button(Button1, true);
  program.awaitQuiet();
  (void)sendAll(program, 50, [&](int i) { return moveOnCircle(program, i); });
  program.record() = {};
  const Sent release = program.button(Button1, false);
  program.awaitQuiet();
  measured.releaseToFull.push_back(lastChange(program.record()) - release.from);
}

/// A screenshot draws the full picture at once and reads it. The line that tells of it follows.
void measureFullFrame(WatchedProgram& program, Measured& measured) {
  const auto groups = menuKeys(menuPaths(), "Tools/Screenshot");
  if (groups.empty()) throw std::runtime_error("the menu has no entry for a screenshot");
  for (const std::vector<std::string>& keys : groups) {
    program.awaitQuiet();
    program.record() = {};
    for (const std::string& key : keys) (void)program.key(key);
  }
  const double read = program.awaitLine("SCREENSHOT ROUTINE").read;
  const std::vector<Frame> frames = framesOf(program.record());
  if (frames.empty()) throw std::runtime_error("the screenshot is not drawn");
  measured.fullFrame.push_back(read - frames.back().began);
}

void measureBare(const std::string& bare, const std::string& grid, Measured& measured) {
  const std::string command = '"' + bare + "\" \"" + grid + "\" 4";
  const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
  double frame = 0.0;
  std::array<char, 256> line{};
  while (output && std::fgets(line.data(), line.size(), output.get()) != nullptr) {
    (void)std::sscanf(line.data(), "frame %lf", &frame);
  }
  if (frame == 0.0) throw std::runtime_error("the bare program draws nothing");
  measured.bare.push_back(frame);
}

void measure(const std::string& path, const std::string& grid, Measured& measured) {
  WatchedProgram program({path, grid}, kView.w, kView.h);
  measureStart(program, measured);
  measureDrag(program, measured);
  measureWheel(program, measured);
  measureKeys(program, measured);
  measureRelease(program, measured);
  measureFullFrame(program, measured);
  heldUp = std::max(heldUp, program.heldUp());
}

double quantile(Times times, double part) {
  std::ranges::sort(times);
  const double count = static_cast<double>(times.size());
  return times[static_cast<std::size_t>(std::ceil(part * count)) - 1];
}

double median(const Times& times) { return quantile(times, 0.5); }

/// One line of the table. A floor or goal of 0 is none.
void row(int side, const char* figure, double value, double floor, double goal) {
  std::printf("%4d² %-36s %9.1f", side, figure, value);
  floor > 0.0 ? std::printf(" %9.1f %7.2f", floor, value / floor) : std::printf(" %9s %7s", "", "");
  if (goal > 0.0) std::printf(" %9.1f%s", goal, value > goal ? "  over" : "");
  std::printf("\n");
}

void printTable(int side, const Measured& measured) {
  const double bare = median(measured.bare);
  const double full = median(measured.fullFrame);
  const double firstGoal = side == 1000 ? 350.0 : side == 4000 ? 1000.0 : 0.0;
  row(side, "start to first picture", median(measured.startToFirst), 0.0, firstGoal);
  row(side, "start to full picture", median(measured.startToFull), 0.0, 0.0);
  row(side, "drag to picture, median", median(measured.drag), bare, 50.0);
  row(side, "drag to picture, 95th percentile", quantile(measured.drag, 0.95), bare, 80.0);
  row(side, "wheel to picture, median", median(measured.wheel), bare, 50.0);
  row(side, "wheel to picture, 95th percentile", quantile(measured.wheel, 0.95), bare, 80.0);
  row(side, "last motion, held, to full picture", median(measured.heldToFull), full, 0.0);
  row(side, "release to full picture", median(measured.releaseToFull), full, 1.15 * full);
  row(side, "longest wait of a key", quantile(measured.keyWaits, 1.0), 0.0, 100.0);
  row(side, "full frame at once", full, bare, 0.0);
}

void measureAll(const std::vector<std::string>& words) {
  setenv("HOME", folder.c_str(), 1);
  setenv("MORVANE_MENU", "full", 1);
  const int runs = words.size() > 3 ? std::atoi(words[3].c_str()) : 3;
  std::vector<std::string> sides = {"1000", "2000", "4000"};
  if (words.size() > 4) sides.assign(words.begin() + 4, words.end());
  std::map<int, Measured> measured;
  for (int run = 1; run <= runs; ++run) {
    for (const std::string& side : sides) {
      std::fprintf(stderr, "run %d of %d, %s²\n", run, runs, side.c_str());
      const std::string grid = folder + '/' + side + ".res";
      const std::string make = '"' + words[2] + "\" " + side + " \"" + grid + '"';
      if (run == 1 && std::system(make.c_str()) != 0) {
        throw std::runtime_error("the measurement file cannot be written");
      }
      Measured& figures = measured[std::atoi(side.c_str())];
      measure(words[0], grid, figures);
      measureBare(words[1], grid, figures);
    }
  }
  std::printf("%-42s %9s %9s %7s %9s\n", "milliseconds", "value", "floor", "ratio", "goal");
  for (const auto& [side, figures] : measured) printTable(side, figures);
  std::printf("The measurement itself was delayed by at most %.1f ms.\n", heldUp);
}

}  // namespace

int main(int argc, char** argv) {
  if (const auto status = toldUse(argc, argv, argc > 3, kUse)) return *status;
  if (mkdtemp(folder.data()) == nullptr) return EXIT_FAILURE;
  // Xlib exits by itself when the display is gone.
  std::atexit([] { std::filesystem::remove_all(folder); });
  // Without the right to this, the measurement may be delayed on a busy machine.
  const sched_param first{.sched_priority = 1};
  sched_setscheduler(0, SCHED_FIFO | SCHED_RESET_ON_FORK, &first);
  try {
    measureAll({argv + 1, argv + argc});
  } catch (const std::exception& problem) {
    std::fprintf(stderr, "motion: %s\n", problem.what());
    return EXIT_FAILURE;
  }
}
