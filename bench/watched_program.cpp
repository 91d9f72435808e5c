#include "bench/watched_program.h"

#include <X11/XKBlib.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>
#include <X11/keysym.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <stdexcept>

namespace morvane::bench {
namespace {

constexpr double kPatience = 180'000.0;

volatile std::sig_atomic_t interrupted = 0;

/// A time of the X server, whose clock is this one in whole milliseconds and 32 bits. Rounded up,
/// so that nothing seems to be shown earlier than it was.
double fromServer(Time time) {
  const auto present = static_cast<std::int64_t>(now());
  const auto passed = static_cast<std::int32_t>(present - static_cast<std::int64_t>(time));
  if (std::abs(passed) > 60'000) {
    throw std::runtime_error("the X server's clock is not that of this machine");
  }
  return static_cast<double>(present - passed + 1);
}

}  // namespace

double now() {
  return std::chrono::duration<double, std::milli>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

WatchedProgram::WatchedProgram(std::vector<std::string> words, int width, int height)
    : display_(XOpenDisplay(nullptr), XCloseDisplay), width_(width), height_(height) {
  if (!display_) throw std::runtime_error("there is no display");
  int error = 0;
  int other = 0;
  if (XDamageQueryExtension(display_.get(), &damageEvent_, &error) == False ||
      XTestQueryExtension(display_.get(), &error, &error, &other, &other) == False) {
    throw std::runtime_error("the X server lacks the DAMAGE or XTEST extension");
  }
  // Windows may be closed while they are asked about. That is noticed otherwise.
  XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
  for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, [](int) { interrupted = 1; });
  XSelectInput(display_.get(), DefaultRootWindow(display_.get()), SubstructureNotifyMask);
  XTestFakeMotionEvent(display_.get(), -1, 0, 0, CurrentTime);
  XSync(display_.get(), False);
  spawn(words);
}

WatchedProgram::~WatchedProgram() {
  kill(id_, SIGKILL);
  waitpid(id_, nullptr, 0);
  close(output_);
}

void WatchedProgram::spawn(std::vector<std::string>& words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  std::array<int, 2> pipe{};
  if (pipe2(pipe.data(), O_CLOEXEC) != 0) throw std::runtime_error("there is no pipe");
  started_ = now();
  id_ = fork();
  if (id_ == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    dup2(pipe[1], STDOUT_FILENO);
    execvp(arguments[0], arguments.data());
    perror(arguments[0]);
    _exit(127);
  }
  close(pipe[1]);
  output_ = pipe[0];
  fcntl(output_, F_SETFL, O_NONBLOCK);
  if (id_ < 0) throw std::runtime_error("the program cannot be started");
}

Sent WatchedProgram::send(const std::function<void()>& event) {
  const double from = now();
  event();
  XSync(display_.get(), False);
  return {from, now()};
}

Sent WatchedProgram::move(int x, int y) {
  int left = 0;
  int top = 0;
  Window child = None;
  Display* display = display_.get();
  XTranslateCoordinates(display, view_, DefaultRootWindow(display), x, y, &left, &top, &child);
  return send([=] { XTestFakeMotionEvent(display, -1, left, top, CurrentTime); });
}

Sent WatchedProgram::button(unsigned number, bool down) {
  return send(
      [&] { XTestFakeButtonEvent(display_.get(), number, down ? True : False, CurrentTime); });
}

Sent WatchedProgram::click(unsigned number) {
  return {button(number, true).from, button(number, false).arrived};
}

Sent WatchedProgram::key(const std::string& name) {
  const std::size_t plus = name.find('+');
  const KeySym symbol = XStringToKeysym(name.substr(plus + 1).c_str());
  const KeyCode code = XKeysymToKeycode(display_.get(), symbol);
  std::vector<KeyCode> codes;
  const auto add = [&](KeySym modifier) {
    codes.push_back(XKeysymToKeycode(display_.get(), modifier));
  };
  if (plus != std::string::npos) add(XK_Alt_L);
  if (XkbKeycodeToKeysym(display_.get(), code, 0, 0) != symbol) add(XK_Shift_L);
  codes.push_back(code);
  const auto sendAll = [&](bool down) {
    for (const KeyCode each : codes) {
      XTestFakeKeyEvent(display_.get(), each, down ? True : False, CurrentTime);
    }
  };
  return send([&] {
    sendAll(true);
    sendAll(false);
  });
}

/// Watches a window when it is the awaited one, else for windows that are created in it.
void WatchedProgram::consider(Window window, int width, int height) {
  Display* display = display_.get();
  if (view_ != None) return;
  if (width == width_ && height == height_) {
    view_ = window;
    XDamageCreate(display, window, XDamageReportRawRectangles);
    return;
  }
  XSelectInput(display, window, SubstructureNotifyMask);
  Window root = None;
  Window parent = None;
  Window* children = nullptr;
  unsigned count = 0;
  // What was created before the selection
  if (XQueryTree(display, window, &root, &parent, &children, &count) == 0) return;
  for (unsigned i = 0; i < count; ++i) {
    XWindowAttributes child{};
    if (XGetWindowAttributes(display, children[i], &child) != 0) {
      consider(children[i], child.width, child.height);
    }
  }
  if (children != nullptr) XFree(children);
}

void WatchedProgram::takeEvents() {
  while (XPending(display_.get()) > 0) {
    XEvent event{};
    XNextEvent(display_.get(), &event);
    if (event.type == damageEvent_ + XDamageNotify) {
      const auto& damage = reinterpret_cast<const XDamageNotifyEvent&>(event);
      record_.changes.push_back(fromServer(damage.timestamp));
    } else if (event.type == CreateNotify) {
      const XCreateWindowEvent& created = event.xcreatewindow;
      consider(created.window, created.width, created.height);
    }
  }
}

void WatchedProgram::readLines(double earliest) {
  std::array<char, 4096> bytes{};
  for (ssize_t count = 0; (count = read(output_, bytes.data(), bytes.size())) >= 0;) {
    if (count == 0) throw std::runtime_error("the program has ended");
    unfinished_.append(bytes.data(), static_cast<std::size_t>(count));
  }
  for (std::size_t end = 0; (end = unfinished_.find('\n')) != std::string::npos;) {
    record_.lines.push_back({earliest, now(), unfinished_.substr(0, end)});
    unfinished_.erase(0, end + 1);
  }
}

void WatchedProgram::watch(double until) {
  readLines(watched_);
  takeEvents();
  while ((watched_ = now()) < until) {
    const auto left = static_cast<long>((until - watched_) * 1e6);
    const timespec limit{left / 1'000'000'000, left % 1'000'000'000};
    std::array<pollfd, 2> sources{
        {{ConnectionNumber(display_.get()), POLLIN, 0}, {output_, POLLIN, 0}}};
    ppoll(sources.data(), sources.size(), &limit, nullptr);
    if (interrupted != 0) throw std::runtime_error("interrupted");
    heldUp_ = std::max(heldUp_, now() - until);
    readLines(now());
    takeEvents();
  }
}

Line WatchedProgram::awaitLine(const char* text) {
  const double deadline = now() + kPatience;
  for (std::size_t next = 0; now() < deadline;) {
    watch(now() + 10.0);
    for (; next < record_.lines.size(); ++next) {
      if (record_.lines[next].text.find(text) != std::string::npos) return record_.lines[next];
    }
  }
  throw std::runtime_error(std::string("the program did not print \"") + text + '"');
}

double WatchedProgram::processorTime() const {
  clockid_t clock{};
  timespec time{};
  if (clock_getcpuclockid(id_, &clock) != 0 || clock_gettime(clock, &time) != 0) return 0.0;
  return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
}

void WatchedProgram::awaitQuiet(const std::function<void()>& meanwhile) {
  constexpr double kNextToNothing = 25.0;
  for (const double deadline = now() + kPatience; now() < deadline;) {
    const std::size_t changes = record_.changes.size();
    const double used = processorTime();
    meanwhile ? meanwhile() : watch(now() + 500.0);
    if (record_.changes.size() == changes && processorTime() - used < kNextToNothing) return;
  }
  throw std::runtime_error("the program never rests");
}

}  // namespace morvane::bench
