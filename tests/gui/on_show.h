// A program with an open measurement, and what most tests of its main window do.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "tests/gui/program.h"

namespace morvane::gui {

class OnShow : public testing::Test {
 protected:
  using Predicate = std::function<bool(const Image&)>;

  /// Starts the program on a file and waits until it is shown.
  void open(const std::string& path, const Start& start = {}) {
    program_ = std::make_unique<Program>(std::vector<std::string>{path}, start);
    start_ = program_->awaitSurface();
  }
  Window window() { return program_->mainWindow(); }
  /// Waits for a picture of the whole surface, without a pointer or tooltip over it.
  Image await(const std::string& what, const Predicate& predicate) {
    window().leave();
    return program_->awaitWhole(what, predicate);
  }
  [[nodiscard]] bool sameAsAtStart(const Image& picture, const Area& area) const {
    return picture.part(area) == start_.part(area);
  }
  /// Replaces the text of an input by real typing.
  static void type(const Window& window, const Area& input, const std::string& text) {
    window.click(middleOf(input));
    window.key({"ctrl+a", "BackSpace"});
    if (!text.empty()) window.type(text);
  }

  TemporaryFolder folder_;
  std::unique_ptr<Program> program_;
  Image start_;
};

}  // namespace morvane::gui
