#include "geometry/axis_labels.h"

#include <algorithm>
#include <cmath>
#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <glm/vec2.hpp>
#include <optional>
#include <utility>
#include <vector>

#include "base/number_text.h"
#include "geometry/camera.h"
#include "surface/mesh.h"

namespace morvane {
namespace {

constexpr float kLineGap = 0.02F;    // between the surface and the lines beside it
constexpr float kLabelGap = 0.05F;   // between the surface and the labels beside it
constexpr float kHeightGap = 0.2F;   // between the surface and the labels of its heights
constexpr float kLetterGap = 0.01F;  // between a label and a line

// Units of text.
constexpr float kRim = 5.0F;              // around a label
constexpr float kDescent = 11.0F + kRim;  // below the baseline
constexpr float kAscent = 36.0F + kRim;   // above it

/// The distance of two lines of text that touch, model units.
float lineOf(const AxisLabel& label) { return (kAscent + kDescent) * label.scale * kTextToModel; }

/// How much larger than usual labels are, so that in a low view the first picture can be read.
float growth(int height) {
  constexpr float kMinHeight = 650.0F;  // pixels of a view in which they can be as they are
  return std::max(1.0F, kMinHeight / static_cast<float>(std::max(height, 1)));
}

// How far the search for a free place goes from the label's default place.
constexpr float kStepOut = 0.01F;
constexpr int kStepsOut = 25;
constexpr std::array kLines = {0.0F,  -0.55F, 0.55F, -1.1F, 1.1F, -1.65F,
                               1.65F, -2.2F,  2.2F,  -3.3F, 3.3F};

constexpr std::size_t kLengthX = 3;
constexpr std::size_t kLengthY = 4;
constexpr std::size_t kBottomLabel = 5;
constexpr std::size_t kTopLabel = 6;
using Labels = std::array<AxisLabel, 7>;

/// Finds free places for the labels that would overlap something.
class FreePlaces {
 public:
  FreePlaces(const glm::mat4& toClip, int width, int height, const TextWidth& textWidth,
             std::vector<ScreenQuad> taken)
      : toClip_(toClip),
        width_(width),
        height_(height),
        textWidth_(textWidth),
        obstacles_(std::move(taken)) {}

  void place(Labels& labels, const AxisLines& lines) {
    const auto isFree = [this](const AxisLabel& moved) { return free(moved); };
    for (std::size_t i = 0; i < kLengthX; ++i) addObstacle(quadOf(labels[i]));
    // Lengths avoid names and the taken areas. Those that have to move also avoid the lines.
    std::vector<AxisLabel*> moving;
    for (const std::size_t i : {kLengthX, kLengthY}) {
      if (!free(labels[i])) moving.push_back(&labels[i]);
    }
    for (const auto& [from, to] : {std::pair{lines.corner, lines.endX},
                                   {lines.corner, lines.endY},
                                   {lines.bottom, lines.top}}) {
      const auto a = onScreen(from);
      const auto b = onScreen(to);
      if (a && b) addObstacle(ScreenQuad{*a, *a, *b, *b});
    }
    for (AxisLabel* label : moving) move(*label, 1, isFree);
    for (const std::size_t i : {kLengthX, kLengthY}) addObstacle(quadOf(labels[i]));
    AxisLabel& bottom = labels[kBottomLabel];
    AxisLabel& top = labels[kTopLabel];
    if (endsCoincide(bottom, lines)) {
      move(bottom, kStepsOut,
           [&](const AxisLabel& moved) { return free(moved) && free(onTopOf(moved, top)); });
      top = onTopOf(bottom, top);
    } else {
      for (AxisLabel* label : {&bottom, &top}) {
        move(*label, kStepsOut, isFree);
        addObstacle(quadOf(*label));
      }
    }
  }

  /// Empties the labels that overlap an earlier one or reach out of the window.
  void dropUnfit(Labels& labels) {
    const auto inside = [this](const glm::vec2& corner) {
      return corner.x >= 0.0F && corner.x <= static_cast<float>(width_) && corner.y >= 0.0F &&
             corner.y <= static_cast<float>(height_);
    };
    for (AxisLabel& label : labels) {
      const auto quad = quadOf(label);
      if (quad && std::ranges::all_of(*quad, inside) && isFree(core(*quad))) {
        addObstacle(quad);
      } else {
        label.text.clear();
      }
    }
  }

 private:
  /// The screen position of a point, in pixels; none when it is beside or behind the eye.
  [[nodiscard]] std::optional<glm::vec2> onScreen(const glm::vec3& point) const {
    const glm::vec3 seen = project(toClip_, width_, height_, point);
    if (!(std::abs(seen.z) <= 1.0F)) return {};
    return glm::vec2(seen);
  }

  [[nodiscard]] std::optional<ScreenQuad> quadOf(const AxisLabel& label) const {
    ScreenQuad quad;
    const auto corners = cornersOf(label, textWidth_);
    for (std::size_t i = 0; i < quad.size(); ++i) {
      const auto seen = onScreen(corners[i]);
      if (!seen) return {};
      quad[i] = *seen;
    }
    return quad;
  }

  void addObstacle(const std::optional<ScreenQuad>& quad) {
    if (quad) obstacles_.push_back(*quad);
  }

  [[nodiscard]] bool isFree(const ScreenQuad& quad) const {
    return std::ranges::none_of(
        obstacles_, [&](const ScreenQuad& obstacle) { return overlap(quad, obstacle); });
  }

  [[nodiscard]] bool free(const AxisLabel& label) const {
    const auto quad = quadOf(label);
    return !quad || isFree(*quad);
  }

  /// A label's box without most of its rim: the boxes of two heights touch.
  static ScreenQuad core(ScreenQuad quad) {
    const glm::vec2 middle = (quad[0] + quad[1] + quad[2] + quad[3]) / 4.0F;
    for (glm::vec2& corner : quad) corner = glm::mix(middle, corner, 0.9F);
    return quad;
  }

  /// Whether the ends of the Z axis are too close on the screen to show which height is the top
  /// one.
  [[nodiscard]] bool endsCoincide(const AxisLabel& bottom, const AxisLines& lines) const {
    constexpr float kFromAbove = 0.9F;  // cosine of the tilt of the surface
    constexpr float kOnePlace = 1.5F;   // lines
    const auto tip = onScreen(lines.top);
    const auto foot = onScreen(lines.bottom);
    const auto start = onScreen(bottom.place);
    const auto lineUp = onScreen(bottom.place + glm::vec3(0.0F, lineOf(bottom), 0.0F));
    const auto lineRight = onScreen(bottom.place + glm::vec3(lineOf(bottom), 0.0F, 0.0F));
    if (!tip || !foot || !start || !lineUp || !lineRight) return false;
    const glm::vec2 up = *lineUp - *start;
    const glm::vec2 right = *lineRight - *start;
    const glm::vec2 axis = *tip - *foot;
    const float line = std::max(glm::length(up), glm::length(right));
    const float rise = glm::dot(axis, up) / glm::dot(up, up);
    const float facing = (right.y * up.x - right.x * up.y) / (line * line);
    return rise < 1.0F && (facing > kFromAbove || glm::length(axis) < kOnePlace * line);
  }

  /// `label` moved in its plane so that it appears directly above `base`, aligned at one edge.
  [[nodiscard]] AxisLabel onTopOf(const AxisLabel& base, AxisLabel label) const {
    const auto target = onScreen(cornersOf(base, textWidth_)[2]);
    if (!target) return label;
    const glm::vec3 corner = cornersOf(label, textWidth_)[1];
    const auto at = pointSeenAt(*target, label.place.z);
    if (at) label.place += glm::vec3(*at - glm::vec2(corner), 0.0F);
    return label;
  }

  /// The point of the plane of height `z` at `pixel`; none when the plane is seen edge-on.
  [[nodiscard]] std::optional<glm::vec2> pointSeenAt(const glm::vec2& pixel, float z) const {
    const glm::vec3 near = unproject(toClip_, width_, height_, {pixel, -1.0F});
    const glm::vec3 far = unproject(toClip_, width_, height_, {pixel, 0.9F});
    const float part = (z - near.z) / (far.z - near.z);
    if (!std::isfinite(part)) return {};
    return glm::vec2(near + part * (far - near));
  }

  /// Moves `label` by half lines, and outwards by fewer than `steps` steps, to the first place
  /// that `fits`. It stays where it is when no place fits.
  template <typename Fits>
  static void move(AxisLabel& label, int steps, const Fits& fits) {
    for (const float lines : kLines) {
      for (int step = 0; step < steps; ++step) {
        AxisLabel moved = label;
        moved.place += glm::vec3(-kStepOut * static_cast<float>(step), lines * lineOf(label), 0.0F);
        if (!fits(moved)) continue;
        label = moved;
        return;
      }
    }
  }

  glm::mat4 toClip_;
  int width_;
  int height_;
  const TextWidth& textWidth_;
  std::vector<ScreenQuad> obstacles_;
};

}  // namespace

AxisLines axisLines(const AxesRange& range) {
  const float width = static_cast<float>(range.header->width) / kPointsPerUnit;
  const float height = static_cast<float>(range.header->height) / kPointsPerUnit;
  const auto beside = [](float z) { return glm::vec3(-kLineGap, -kLineGap, z); };
  return {.corner = beside(0.0F),
          .endX = {width, -kLineGap, 0.0F},
          .endY = {-kLineGap, height - kLetterGap, 0.0F},
          .bottom = beside(range.bottom * range.heightToModel + range.lift),
          .top = beside(range.top * range.heightToModel + range.lift)};
}

std::array<glm::vec3, 4> cornersOf(const AxisLabel& label, const TextWidth& textWidth) {
  const float unit = label.scale * kTextToModel;
  const float right = textWidth(label.text, label.scale) * kTextToModel + kRim * unit;
  const auto corner = [&](float x, float y) { return label.place + glm::vec3(x, y * unit, 0.0F); };
  return {corner(-kRim * unit, -kDescent), corner(right, -kDescent), corner(right, kAscent),
          corner(-kRim * unit, kAscent)};
}

std::array<AxisLabel, 7> axisLabels(const AxesRange& range, const glm::mat4& toClip, int width,
                                    int height, const TextWidth& textWidth,
                                    std::vector<ScreenQuad> taken, bool onlyFitting) {
  const ResHeader& header = *range.header;
  const float x = static_cast<float>(header.width) / kPointsPerUnit;
  const float y = static_cast<float>(header.height) / kPointsPerUnit;
  const auto length = [](double millimetres) { return shownText(millimetres, 2) + "mm"; };
  const AxisLines lines = axisLines(range);
  const float scale = AxisLabel{}.scale * growth(height);
  const float gap = kLabelGap * growth(height);
  // Long labels are placed further out, so that they end before the lines.
  const auto heightLabel = [&](float micrometres, float z) -> AxisLabel {
    std::string text = shownText(micrometres, 2) + "µm";
    const float textEnd = textWidth(text, scale) * kTextToModel;
    const float left = std::min(-kHeightGap, -kLineGap - kLetterGap - textEnd);
    return {std::move(text), {left, 0.0F, z}, scale};
  };
  Labels labels = {{
      {"X", {x / 2, -gap, 0}, scale},
      {"Y", {-gap, y / 2, 0}, scale},
      {"Z", {-kHeightGap, y, 0}, scale},
      {length(header.width * header.pixelSizeX), {x, -gap, 0}, scale},
      {length(header.height * header.pixelSizeY), {-gap, y, 0}, scale},
      heightLabel(range.bottom, lines.bottom.z),
      heightLabel(range.top, lines.top.z),
  }};
  FreePlaces(toClip, width, height, textWidth, taken).place(labels, lines);
  if (onlyFitting) {
    FreePlaces(toClip, width, height, textWidth, std::move(taken)).dropUnfit(labels);
  }
  return labels;
}

}  // namespace morvane
