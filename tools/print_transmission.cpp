// Prints the transmission of the band filter over the wavelength.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numbers>
#include <vector>

#include "filter/band_filter.h"
#include "tools/usage.h"

namespace {

using namespace morvane;

constexpr const char* kUse =
    "print_transmission POINTS PITCH L1 L2\n"
    "Lengths are in mm. Prints a line for each wave that fits a whole number of times onto POINTS\n"
    "points: its length, then the parts that high pass, low pass and band pass let through.";

struct Settings {
  int points;
  float pitch, l1, l2;
};

/// The transmission along a row for the wave numbers 0 to `points` / 2, computed as the spectrum of
/// the filter's impulse response. Empty when there is not enough memory for the grid.
std::vector<double> transmissions(const Settings& settings, FilterType type) {
  const auto n = static_cast<std::size_t>(settings.points);
  std::vector<double> raised(n * n);
  std::vector<double> answer(n * n);
  raised[0] = 1.0;
  const auto& [points, pitch, l1, l2] = settings;
  if (!filterGrid(raised, answer, points, points, l1, l1, l2, l2, pitch, pitch, type)) return {};
  // The sum over the rows removes everything that varies along a column.
  std::vector<double> columns(n);
  for (std::size_t i = 0; i < answer.size(); ++i) columns[i % n] += answer[i];
  std::vector<double> cosines(n);
  for (std::size_t i = 0; i < n; ++i) {
    cosines[i] = std::cos(2.0 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(n));
  }
  std::vector<double> parts(n / 2 + 1);
  for (std::size_t k = 0; k < parts.size(); ++k) {
    for (std::size_t x = 0; x < n; ++x) parts[k] += columns[x] * cosines[k * x % n];
  }
  return parts;
}

}  // namespace

int main(int argc, char** argv) {
  const bool valid = argc == 5 && std::atoi(argv[1]) >= 2;
  if (const auto status = toldUse(argc, argv, valid, kUse)) return *status;
  const Settings settings{std::atoi(argv[1]), cutOffOf(argv[2]), cutOffOf(argv[3]),
                          cutOffOf(argv[4])};
  const auto high = transmissions(settings, FilterType::kHighPass);
  const auto low = transmissions(settings, FilterType::kLowPass);
  const auto band = transmissions(settings, FilterType::kBandPass);
  if (high.empty() || low.empty() || band.empty()) {
    std::fprintf(stderr, "print_transmission: there is not enough memory\n");
    return 1;
  }
  for (std::size_t k = 1; k < high.size(); ++k) {
    const double length = settings.points * static_cast<double>(settings.pitch);
    std::printf("%.5f %.5f %.5f %.5f\n", length / static_cast<double>(k), high[k], low[k], band[k]);
  }
  return 0;
}
