// A program under measurement: started in its real window, worked through the X server, and watched
// from the outside.
#pragma once

#include <X11/Xlib.h>
#include <sys/types.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace morvane::bench {

/// Milliseconds of the steady clock.
double now();

/// When an event was sent, and when it was certainly in the program's queue.
struct Sent {
  double from;
  double arrived;
};

/// A line of the program's output. It was written after `earliest` and read at `read`.
struct Line {
  double earliest;
  double read;
  std::string text;
};

/// What the program did since the record was cleared.
struct Record {
  std::vector<Line> lines;
  std::vector<double> changes;  ///< when something new was on the screen in the watched window
};

/// All functions throw std::runtime_error when the program ends, does not do what is awaited, or
/// the measurement is interrupted.
class WatchedProgram {
 public:
  /// Starts it. The watched window is the first one of this size inside another.
  WatchedProgram(std::vector<std::string> words, int width, int height);
  ~WatchedProgram();
  WatchedProgram(const WatchedProgram&) = delete;
  WatchedProgram& operator=(const WatchedProgram&) = delete;

  [[nodiscard]] double started() const { return started_; }
  [[nodiscard]] Record& record() { return record_; }
  /// By how many milliseconds watching has ended too late, at the most.
  [[nodiscard]] double heldUp() const { return heldUp_; }

  /// Moves the pointer to a point of the watched window.
  Sent move(int x, int y);
  Sent button(unsigned number, bool down);
  /// Presses and releases a button or key.
  Sent click(unsigned number);
  /// A key is named as Xlib names it, e.g. "Down"; "alt+T" is one with Alt.
  Sent key(const std::string& name);

  /// Records what the program does up to a time.
  void watch(double until);
  /// Records until a line contains `text`, and returns it.
  Line awaitLine(const char* text);
  /// Records until the program has changed nothing on the screen and used next to no processor time
  /// for half a second. `meanwhile` is done for each half second, instead of just watching.
  void awaitQuiet(const std::function<void()>& meanwhile = {});

 private:
  Sent send(const std::function<void()>& event);
  void spawn(std::vector<std::string>& words);
  void consider(Window window, int width, int height);
  void takeEvents();
  void readLines(double earliest);
  [[nodiscard]] double processorTime() const;

  std::unique_ptr<Display, int (*)(Display*)> display_;
  int damageEvent_ = 0;
  int width_, height_;
  Window view_ = None;
  pid_t id_ = -1;
  int output_ = -1;
  double started_ = 0.0;
  double watched_ = 0.0;  // until then
  double heldUp_ = 0.0;
  std::string unfinished_;
  Record record_;
};

}  // namespace morvane::bench
