#include "ui/light_window.h"

#include <FL/Fl.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Double_Window.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "geometry/light.h"
#include "ui/app_state.h"
#include "ui/gl_window.h"
#include "widgets/button_box.h"
#include "widgets/look.h"
#include "widgets/number_input.h"
#include "widgets/styles.h"

namespace morvane {
namespace {

constexpr int kWidth = 340;
constexpr int kHeight = 185;

/// A ball seen from above, lit by the lamp. A drag on it moves the lamp.
class Ball : public Fl_Widget {
 public:
  Ball(int x, int y, int size, std::function<void(const Lamp&)> onMove)
      : Fl_Widget(x, y, size, size), onMove_(std::move(onMove)) {}

  void show(const std::optional<Lamp>& lamp) {
    toLamp_ = -lightDirection(lamp, glm::identity<glm::quat>());
    redraw();
  }

  int handle(int event) override {
    if (event != FL_PUSH && event != FL_DRAG) return Fl_Widget::handle(event);
    const glm::vec2 place = (glm::vec2(Fl::event_x(), -Fl::event_y()) - centre()) / radius();
    const float squared = std::min(glm::dot(place, place), 1.0F);
    onMove_(lampTowards({place, std::sqrt(1.0F - squared)}));
    return 1;
  }

 protected:
  void draw() override {
    fl_rectf(x(), y(), w(), h(), kBlack);
    for (int row = 0; row < h(); ++row) {
      for (int column = 0; column < w(); ++column) drawPixel(x() + column, y() + row);
    }
    const glm::vec2 spot = centre() + radius() * glm::vec2(toLamp_);
    fl_color(kBlack);
    fl_pie(static_cast<int>(spot.x) - 5, static_cast<int>(-spot.y) - 5, 11, 11, 0, 360);
    fl_color(kWhite);
    fl_pie(static_cast<int>(spot.x) - 3, static_cast<int>(-spot.y) - 3, 7, 7, 0, 360);
  }

 private:
  /// In the window with y up.
  [[nodiscard]] glm::vec2 centre() const {
    return {static_cast<float>(x()) + radius(), -static_cast<float>(y()) - radius()};
  }
  [[nodiscard]] float radius() const { return static_cast<float>(w()) / 2.0F; }

  void drawPixel(int column, int row) const {
    const glm::vec2 place = (glm::vec2(column, -row) - centre()) / radius();
    const float squared = glm::dot(place, place);
    if (squared > 1.0F) return;
    const float facing = glm::dot(glm::vec3(place, std::sqrt(1.0F - squared)), toLamp_);
    const auto grey = static_cast<uchar>(45.0F + 190.0F * std::max(facing, 0.0F));
    fl_color(grey, grey, grey);
    fl_point(column, row);
  }

  std::function<void(const Lamp&)> onMove_;
  glm::vec3 toLamp_{0.0F, 0.0F, 1.0F};
};

class LightWindow : public Fl_Double_Window {
 public:
  LightWindow() : Fl_Double_Window(kWidth, kHeight, "Light") {
    color(kBlack);
    ball_ = new Ball(20, 20, 145, [this](const Lamp& lamp) { use(lamp); });
    azimuth_ = addInput(20, "Azimuth");
    elevation_ = addInput(60, "Elevation");
    auto* headlight = new Fl_Button(190, 130, 130, 35, "Headlight");
    styleButton(*headlight);
    headlight->callback(
        [](Fl_Widget*, void* window) { static_cast<LightWindow*>(window)->use({}); }, this);
    end();
    hide();
  }

  void show() override {
    use(appState().glView->options().lamp);
    Fl_Double_Window::show();
  }

 private:
  NumberInput* addInput(int y, const char* label) {
    auto* input = new NumberInput(260, y, 60, 30, label);
    styleInput(*input);
    input->when(FL_WHEN_CHANGED);
    input->callback([](Fl_Widget*, void* window) { static_cast<LightWindow*>(window)->useTyped(); },
                    this);
    return input;
  }

  void useTyped() {
    if (!isNumber(azimuth_->value()) || !isNumber(elevation_->value())) return;
    const Lamp lamp{std::fmod(leadingFloat(azimuth_->value()), 360.0F),
                    std::clamp(leadingFloat(elevation_->value()), 0.0F, 90.0F)};
    appState().glView->setLamp(lamp);
    ball_->show(lamp);
  }

  void use(const std::optional<Lamp>& lamp) {
    appState().glView->setLamp(lamp);
    ball_->show(lamp);
    const auto text = [&](float angle) { return lamp ? shownText(angle, 0) : std::string(); };
    azimuth_->value(text(lamp ? lamp->azimuth : 0.0F).c_str());
    elevation_->value(text(lamp ? lamp->elevation : 0.0F).c_str());
  }

  Ball* ball_;
  NumberInput* azimuth_;
  NumberInput* elevation_;
};

}  // namespace

Fl_Window* buildLightWindow() {
  registerButtonBox();
  return new LightWindow;
}

}  // namespace morvane
