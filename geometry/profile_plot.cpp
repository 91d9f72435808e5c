#include "geometry/profile_plot.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <glm/common.hpp>
#include <limits>
#include <utility>

#include "base/number_text.h"
#include "geometry/screen_quad.h"
#include "geometry/surface_line.h"

namespace morvane {
namespace {

constexpr float kGlyphPixels = 48.0F;  // the height of glyphs at a scale of 1
constexpr float kNumberScale = 0.25F;
constexpr float kNumberGap = 8.0F;   // pixels between neighbouring numbers
constexpr float kNumberDrop = 4.0F;  // pixels from a level down to the baseline of its number
constexpr float kBottom = plot::kMiddle - plot::kHalfAxis;

constexpr float kLineScale = 0.3F;   // of the two lines of text below the plot
constexpr float kLineBase = 10.0F;   // pixels above the bottom
constexpr float kLineMargin = 6.0F;  // pixels from the right edge
constexpr double kPlainMost = 1e6;   // larger numbers are written with a power of ten

/// `value` with enough decimals to distinguish numbers that are `step` apart. `most` is the largest
/// number of the scale.
std::string numberText(double value, double step, double most) {
  const auto digits = [](double x) { return static_cast<int>(std::floor(std::log10(x) + 1e-9)); };
  // The pitch in a file may have any value; infinity has no digits to count.
  if (!(step > 0.0) || !std::isfinite(most / step)) return shownText(value, 2);
  if (most < kPlainMost && most > 1.0 / kPlainMost) {
    return shownText(value, std::clamp(-digits(step), 0, 9));
  }
  std::array<char, 32> text;
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific,
                    std::clamp(digits(most / step), 1, 9));
  return unsignedZero({text.data(), end});
}

/// The largest of 1, 2, 5, 10, 20 … that `span` holds at least four times.
double roundStep(double span) {
  const double power = std::pow(10.0, std::floor(std::log10(span / 4.0)));
  for (const double factor : {5.0, 2.0}) {
    if (span / 4.0 >= factor * power) return factor * power;
  }
  return power;
}

/// The height range of the plot. A round height is in the middle, at the horizontal axis.
struct HeightRange {
  double middle = 0.0;
  double half = 1.0;
  double step = 1.0;  ///< between the heights that have a number
  [[nodiscard]] float deviceY(double height) const {
    return plot::kMiddle + plot::kHalfCurve * static_cast<float>((height - middle) / half);
  }
};

/// The extremes of the samples fill the plot. Around a flat line the range is the larger of the
/// heat-map limits, above and below it.
HeightRange heightRange(const PlotData& data) {
  // A typed limit too large for a float is infinite.
  const auto bounded = [](float height) {
    constexpr float kMax = std::numeric_limits<float>::max();
    return double{std::clamp(height, -kMax, kMax)};
  };
  double low = bounded(data.section.sampleMin);
  double high = bounded(data.section.sampleMax);
  const double least = 1e-6 * std::max({std::abs(low), std::abs(high), 1e-30});
  if (high - low <= least) {
    const double limit = std::max(std::abs(data.limitHigh), std::abs(data.limitLow));
    const double half = std::isfinite(limit) && limit > least ? limit : std::max(1.0, least);
    low -= half;
    high += half;
  }
  HeightRange range;
  range.step = roundStep(high - low);
  range.middle = std::round((low + high) / 2.0 / range.step) * range.step;
  range.half = std::max(high - range.middle, range.middle - low);
  return range;
}

class Layout {
 public:
  Layout(const PlotData& data, int width, int height, const TextWidth& textWidth)
      : data_(data),
        width_(static_cast<float>(width)),
        height_(static_cast<float>(height)),
        textWidth_(textWidth) {}

  ProfilePlot take() {
    if (data_.section.drawn > 0) {
      range_ = heightRange(data_);
      addCurve();
      addLevels();
    }
    if (!data_.section.samples.empty()) addDistances();
    addLines();
    if (data_.onlyTextsThatFit) dropUnfit();
    return std::move(plot_);
  }

 private:
  [[nodiscard]] float pixelX(float x) const { return (x + 1.0F) / 2.0F * width_; }
  [[nodiscard]] float pixelY(float y) const { return (y + 1.0F) / 2.0F * height_; }

  void addCurve() {
    const auto& samples = data_.section.samples;
    const std::vector<std::size_t> drawn = drawnSamples(data_.section);
    const float step = plot::kLength / static_cast<float>(samples.size());
    const auto height = [&](std::size_t i) { return samples[drawn[i]].y; };
    const auto there = [&](std::size_t i) { return i < drawn.size() && !std::isnan(height(i)); };
    const auto point = [&](std::size_t i) {
      return glm::vec2(plot::kLeft + static_cast<float>(drawn[i]) * step,
                       range_.deviceY(double{height(i)}));
    };
    // Whether the segment after a sample lies on a limit.
    const auto flat = [&](std::size_t i) {
      return data_.crop.on && (height(i) == data_.crop.max || height(i) == data_.crop.min) &&
             (!there(i + 1) || height(i) == height(i + 1));
    };
    for (std::size_t i = 0; i < drawn.size(); ++i) {
      if (!there(i)) continue;
      const bool clipped = flat(i);
      std::vector<glm::vec2> run = {point(i)};
      std::size_t last = i;
      while (there(last + 1) && flat(last) == clipped) run.push_back(point(++last));
      // A single sample between two gaps is drawn as one step of the line.
      if (last == i) run.emplace_back(run[0].x + step, run[0].y);
      addRun(run, clipped ? plot_.clipped : plot_.curve);
      // Where the kind of segment changes, the next run begins with the last sample of this one.
      i = there(last + 1) ? last - 1 : last;
    }
  }

  /// Adds the segments of a line without gaps, clamped to the plot and at least a pixel long.
  void addRun(const std::vector<glm::vec2>& run, std::vector<glm::vec2>& line) const {
    std::vector<glm::vec2> pixels;
    for (const glm::vec2& point : run) {
      pixels.push_back(data_.pixelRatio * glm::vec2(pixelX(point.x), pixelY(point.y)));
    }
    const std::size_t before = line.size();
    constexpr glm::vec2 kLow{plot::kLeft, plot::kMiddle - plot::kHalfCurve};
    constexpr glm::vec2 kHigh{plot::kLeft + plot::kLength, plot::kMiddle + plot::kHalfCurve};
    if (!addPieces(std::span(run), std::span<const glm::vec2>(pixels), line)) {
      const float pixel = 2.0F / (width_ * data_.pixelRatio);
      const float left = std::min(run[0].x, kHigh.x - pixel);
      line.insert(line.end(), {{left, run[0].y}, {left + pixel, run[0].y}});
    }
    for (std::size_t i = before; i < line.size(); ++i) line[i] = glm::clamp(line[i], kLow, kHigh);
  }

  void addLevels() {
    const auto most = static_cast<int>(std::floor(range_.half / range_.step + 1e-9));
    const double largest = std::abs(range_.middle) + range_.half;
    for (int i = -most; i <= most; ++i) {
      const double height = range_.middle + range_.step * i;
      const float y = range_.deviceY(height);
      plot_.levels.emplace_back(plot::kLeft, y);
      plot_.levels.emplace_back(plot::kLeft + plot::kLength, y);
      addLeftOfAxis(numberText(height, range_.step, largest), pixelY(y) - kNumberDrop);
    }
    addLeftOfAxis("µm", pixelY(plot::kMiddle + plot::kHalfCurve + 0.14F) - kNumberDrop);
  }

  /// The text is scaled down if the window is too narrow for it.
  void addLeftOfAxis(const std::string& text, float y) {
    const float right = pixelX(plot::kLeft - plot::kAxisWidth) - kNumberGap / 2.0F;
    const float wide = textWidth_(text, kNumberScale);
    const float scale = wide > right && wide > 0.0F ? kNumberScale * right / wide : kNumberScale;
    plot_.texts.push_back({text, {right - std::min(wide, right), y}, scale});
  }

  /// The numbers below the ticks: at every tick if there is room, else at every second, fifth or
  /// tenth.
  void addDistances() {
    const double distance = profileDistance(data_.section, data_.pixelSize);
    const double step = distance / (plot::kTicks - 1);
    const float y = pixelY(kBottom) + kNumberDrop;
    std::array<std::string, plot::kTicks> numbers;
    float widest = 0.0F;
    for (int i = 0; i < plot::kTicks; ++i) {
      numbers[static_cast<std::size_t>(i)] = numberText(step * i, step / 100.0, distance);
      widest = std::max(widest, textWidth_(numbers[static_cast<std::size_t>(i)], kNumberScale));
    }
    const float room = pixelX(plot::tickX(1)) - pixelX(plot::tickX(0));
    int every = 1;
    for (const int next : {2, 5, 10}) {
      // The first and the last number may be off their ticks by half their width.
      if (room * static_cast<float>(every) < 1.5F * widest + kNumberGap) every = next;
    }
    for (int i = 0; i < plot::kTicks; i += every) {
      const std::string& number = numbers[static_cast<std::size_t>(i)];
      const float wide = textWidth_(number, kNumberScale);
      const float centred = pixelX(plot::tickX(i)) - wide / 2.0F;
      // The first number starts at the vertical axis, the last one ends inside the window.
      const float least = pixelX(plot::kLeft) + kNumberGap / 2.0F;
      plot_.texts.push_back(
          {number, {std::clamp(centred, least, std::max(least, width_ - wide)), y}, kNumberScale});
    }
    addLeftOfAxis("mm", y);
  }

  void addLines() {
    const ProfileSection& section = data_.section;
    const std::string extremes = "Local min | max:  " + shownText(section.localMin, 2) + " | " +
                                 shownText(section.localMax, 2) + "µm";
    const std::string distance =
        "Distance: " + shownText(profileDistance(section, data_.pixelSize), 3) + "mm";
    const float left = 0.15F * width_;
    const float right = 0.8F * width_;
    const float extremesWidth = textWidth_(extremes, kLineScale);
    const float distanceWidth = textWidth_(distance, kLineScale);
    const float last = width_ - kLineMargin - distanceWidth;
    if (left + extremesWidth + kNumberGap <= std::min(right, last)) {
      plot_.texts.push_back({extremes, {left, kLineBase}, kLineScale});
      plot_.texts.push_back({distance, {std::min(right, last), kLineBase}, kLineScale});
      return;
    }
    // Too narrow for the usual places: side by side over the whole width, as large as possible.
    const float room = width_ - 2.0F * kLineMargin - kNumberGap;
    const float fits = std::min(1.0F, room / (extremesWidth + distanceWidth));
    const float scale = kLineScale * std::max(fits, 0.0F);
    plot_.texts.push_back({extremes, {kLineMargin, kLineBase}, scale});
    plot_.texts.push_back(
        {distance, {width_ - kLineMargin - distanceWidth * fits, kLineBase}, scale});
  }

  /// The lines below the plot, which are the last texts, are kept rather than numbers.
  void dropUnfit() {
    constexpr float kLeast = 0.2F;  // the scale of texts that can be read
    std::vector<ScreenQuad> taken;
    std::erase_if(plot_.texts, [](const PlotText& text) { return text.scale < kLeast; });
    for (std::size_t i = plot_.texts.size(); i-- > 0;) {
      const auto& [text, place, scale] = plot_.texts[i];
      const float em = kGlyphPixels * scale;
      const glm::vec2 low = place - glm::vec2(0.0F, 0.2F * em);
      const glm::vec2 high = place + glm::vec2(textWidth_(text, scale), 0.7F * em);
      const ScreenQuad box = {low, {high.x, low.y}, high, {low.x, high.y}};
      const bool inside = low.x >= 0.0F && low.y >= 0.0F && high.x <= width_ && high.y <= height_;
      const auto overlaps = [&](const ScreenQuad& other) { return overlap(box, other); };
      if (inside && std::ranges::none_of(taken, overlaps)) {
        taken.push_back(box);
      } else {
        plot_.texts.erase(plot_.texts.begin() + static_cast<std::ptrdiff_t>(i));
      }
    }
  }

  const PlotData& data_;
  float width_;
  float height_;
  const TextWidth& textWidth_;
  HeightRange range_;
  ProfilePlot plot_;
};

}  // namespace

ProfilePlot layOutProfile(const PlotData& data, int width, int height, const TextWidth& textWidth) {
  return Layout(data, width, height, textWidth).take();
}

}  // namespace morvane
