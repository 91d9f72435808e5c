#include "tools/sample_surface.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace morvane {
namespace {

/// A random number generator (splitmix64), since the distributions of the standard library differ
/// between systems.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}
  /// Uniformly distributed in [low, high).
  double between(double low, double high) {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    z ^= z >> 31U;
    return low + (high - low) * (static_cast<double>(z >> 11U) * 0x1p-53);
  }

 private:
  std::uint64_t state_;
};

/// Waves of random direction with wavelengths in a band. Together they look like orange peel.
struct WaveBand {
  int waves;
  double shortest, longest;  // mm
  double amplitude;          // µm, of the sum, roughly
};

constexpr WaveBand kPaint[] = {
    {24, 6.0, 14.0, 0.9}, {40, 1.6, 4.0, 0.55}, {60, 0.35, 0.9, 0.2}, {60, 0.12, 0.25, 0.05}};

// A wave along a row is the real part of a rotating phasor, which saves a sine per point.
void addWave(SampleSurface& surface, double kx, double ky, double amplitude, double phase) {
  const double stepCos = std::cos(kx * surface.pitch);
  const double stepSin = std::sin(kx * surface.pitch);
  for (std::size_t r = 0; r < surface.height; ++r) {
    const double start = ky * surface.pitch * static_cast<double>(r) + phase;
    double c = amplitude * std::cos(start);
    double s = amplitude * std::sin(start);
    double* row = surface.heights.data() + r * surface.width;
    for (std::size_t x = 0; x < surface.width; ++x) {
      row[x] += c;
      const double next = c * stepCos - s * stepSin;
      s = s * stepCos + c * stepSin;
      c = next;
    }
  }
}

void addPaint(SampleSurface& surface, Random& random) {
  for (const WaveBand& band : kPaint) {
    const double amplitude = band.amplitude * std::sqrt(2.0 / band.waves);
    for (int wave = 0; wave < band.waves; ++wave) {
      const double length =
          std::exp(random.between(std::log(band.shortest), std::log(band.longest)));
      // One wave per sector of the half circle, since fully random directions would cluster.
      const double angle = std::numbers::pi * (wave + random.between(0.0, 1.0)) / band.waves;
      const double k = 2.0 * std::numbers::pi / length;
      addWave(surface, k * std::cos(angle), k * std::sin(angle), amplitude,
              random.between(0.0, 2.0 * std::numbers::pi));
    }
  }
}

double gauss(double distance, double width) {
  const double part = distance / width;
  return std::exp(-part * part);
}

/// Calls `height(x, y)` for every point, with x and y in mm.
template <typename Height>
void addHeights(SampleSurface& surface, Height height) {
  for (std::size_t r = 0; r < surface.height; ++r) {
    for (std::size_t c = 0; c < surface.width; ++c) {
      surface.heights[r * surface.width + c] +=
          height(static_cast<double>(c) * surface.pitch, static_cast<double>(r) * surface.pitch);
    }
  }
}

void addDefects(SampleSurface& surface) {
  const double width = static_cast<double>(surface.width) * surface.pitch;
  const double height = static_cast<double>(surface.height) * surface.pitch;
  // Not smaller than the pitch can resolve: a narrower groove would break up into dots.
  const double size = std::max(std::min(width, height) / 20.0, 16.0 * surface.pitch);
  addHeights(surface, [=](double x, double y) {
    const double form = 1.6 * std::sin(x / width * 2.2) * std::cos(y / height * 1.7);
    // The scratch: a curved groove with raised edges that tapers off at both ends.
    const double along = x / width;
    const double off = y - height * (0.66 - 0.42 * along + 0.27 * along * along);
    const double ends = gauss(along - 0.58, 0.22);
    const double scratch = ends * (2.4 * gauss(std::abs(off) - 0.16 * size, 0.07 * size) -
                                   9.5 * gauss(off, 0.07 * size));
    const double toCrater = std::hypot(x - 0.27 * width, y - 0.36 * height);
    const double crater =
        3.4 * gauss(toCrater - 0.62 * size, 0.2 * size) - 7.5 * gauss(toCrater, 0.45 * size);
    const double inclusions =
        7.0 * gauss(std::hypot(x - 0.74 * width, y - 0.22 * height), 0.24 * size) +
        5.0 * gauss(std::hypot(x - 0.43 * width, y - 0.83 * height), 0.16 * size);
    return form + scratch + crater + inclusions;
  });
}

/// Moving averages over 2 × `reach` + 1 points along one direction. Border points are repeated.
std::vector<double> boxMeans(const std::vector<double>& values, std::size_t lines,
                             std::size_t points, std::size_t lineStep, std::size_t pointStep,
                             std::size_t reach) {
  std::vector<double> means(values.size());
  const auto last = static_cast<std::ptrdiff_t>(points) - 1;
  for (std::size_t line = 0; line < lines; ++line) {
    const double* in = values.data() + line * lineStep;
    double* out = means.data() + line * lineStep;
    const auto at = [&](std::ptrdiff_t i) {
      return in[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(i, 0, last)) * pointStep];
    };
    const auto half = static_cast<std::ptrdiff_t>(reach);
    double sum = 0.0;
    for (std::ptrdiff_t i = -half; i <= half; ++i) sum += at(i);
    for (std::ptrdiff_t i = 0; i <= last; ++i) {
      out[static_cast<std::size_t>(i) * pointStep] = sum / static_cast<double>(2 * half + 1);
      sum += at(i + half + 1) - at(i - half);
    }
  }
  return means;
}

std::vector<double> smooth(const SampleSurface& surface, double length) {
  const auto reach = static_cast<std::size_t>(length / surface.pitch / 2.0);
  const std::vector<double> rows =
      boxMeans(surface.heights, surface.height, surface.width, surface.width, 1, reach);
  return boxMeans(rows, surface.width, surface.height, 1, surface.width, reach);
}

struct Roughness {
  double sa = 0.0, raX = 0.0, raY = 0.0, rsM = 0.0;
};

/// The mean absolute deviation of lines of `points` values, each from its own mean.
double meanLineDeviation(const std::vector<double>& values, std::size_t lines, std::size_t points,
                         std::size_t lineStep, std::size_t pointStep) {
  double total = 0.0;
  for (std::size_t line = 0; line < lines; ++line) {
    double mean = 0.0;
    for (std::size_t i = 0; i < points; ++i) mean += values[line * lineStep + i * pointStep];
    mean /= static_cast<double>(points);
    for (std::size_t i = 0; i < points; ++i) {
      total += std::abs(values[line * lineStep + i * pointStep] - mean);
    }
  }
  return total / static_cast<double>(lines * points);
}

Roughness roughnessOf(const std::vector<double>& band, const SampleSurface& surface) {
  const std::size_t w = surface.width;
  const std::size_t h = surface.height;
  Roughness result;
  std::size_t crossings = 0;
  for (std::size_t i = 0; i < band.size(); ++i) {
    result.sa += std::abs(band[i]);
    if (i % w != 0 && band[i - 1] < 0.0 && band[i] >= 0.0) ++crossings;
  }
  result.sa /= static_cast<double>(band.size());
  result.raX = meanLineDeviation(band, h, w, w, 1);
  result.raY = meanLineDeviation(band, w, h, 1, w);
  // RSm, the mean width of profile elements: the evaluation length divided by the number of upward
  // crossings.
  result.rsM = static_cast<double>(band.size()) * surface.pitch /
               static_cast<double>(std::max<std::size_t>(crossings, 1));
  return result;
}

struct Slope {
  double x = 0.0, y = 0.0;  // µm over two points
};

Slope slopeAt(const SampleSurface& surface, std::size_t r, std::size_t c) {
  const auto height = [&](std::size_t row, std::size_t column) {
    return surface.heights[row * surface.width + column];
  };
  const std::size_t right = std::min(c + 1, surface.width - 1);
  const std::size_t above = std::min(r + 1, surface.height - 1);
  return {height(r, right) - height(r, c > 0 ? c - 1 : c),
          height(above, c) - height(r > 0 ? r - 1 : r, c)};
}

std::uint8_t shade(double value) {
  return static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0));
}

}  // namespace

SampleSurface paintedPanel(std::size_t width, std::size_t height, double pitch) {
  constexpr std::uint64_t kSeed = 20260314;
  SampleSurface surface{width, height, pitch, std::vector<double>(width * height)};
  Random random(kSeed);
  addPaint(surface, random);
  addDefects(surface);
  // The noise of the instrument, and its resolution of 0.1 nm.
  for (double& z : surface.heights) {
    z = std::round((z + random.between(-0.04, 0.04)) * 1e4) / 1e4;
  }
  return surface;
}

std::vector<RecordWord> orangePeelRecord(const SampleSurface& surface) {
  struct Band {
    double low, high;  // mm
  };
  constexpr Band kBands[] = {{0.1, 0.6}, {0.6, 3.0}};
  constexpr std::uint32_t kBandPass = 2;
  std::vector<RecordWord> record = {kBandPass, kBandPass};
  std::vector<RecordWord> values;
  for (const Band& band : kBands) {
    record.emplace_back(static_cast<float>(band.low));
    record.emplace_back(static_cast<float>(band.high));
    std::vector<double> heights = smooth(surface, band.low);
    const std::vector<double> longer = smooth(surface, band.high);
    for (std::size_t i = 0; i < heights.size(); ++i) heights[i] -= longer[i];
    const Roughness r = roughnessOf(heights, surface);
    for (const double value : {r.sa, r.raX, r.raY, r.rsM}) {
      values.emplace_back(static_cast<float>(value));
    }
  }
  record.insert(record.end(), values.begin(), values.end());
  return record;
}

BitmapContent grazingPicture(const SampleSurface& surface) {
  BitmapContent picture{
      static_cast<std::int32_t>(surface.width), static_cast<std::int32_t>(surface.height), 8, {}};
  for (std::size_t r = 0; r < surface.height; ++r) {
    for (std::size_t c = 0; c < surface.width; ++c) {
      const Slope slope = slopeAt(surface, r, c);
      picture.pixels.push_back(shade(132.0 - 170.0 * slope.x + 85.0 * slope.y));
    }
  }
  return picture;
}

BitmapContent diffusePicture(const SampleSurface& surface, std::size_t border) {
  const std::size_t width = surface.width - 2 * border;
  const std::size_t height = surface.height - 2 * border;
  BitmapContent picture{
      static_cast<std::int32_t>(width), static_cast<std::int32_t>(height), 24, {}};
  constexpr double kTint[] = {0.62, 0.30, 0.24};  // blue, green, red: a dark blue paint
  for (std::size_t r = border; r < border + height; ++r) {
    for (std::size_t c = border; c < border + width; ++c) {
      const Slope slope = slopeAt(surface, r, c);
      const double light = 205.0 - 60.0 * std::hypot(slope.x, slope.y) +
                           4.0 * surface.heights[r * surface.width + c];
      for (const double tint : kTint) picture.pixels.push_back(shade(light * tint + 30.0));
    }
  }
  return picture;
}

}  // namespace morvane
