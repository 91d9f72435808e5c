#include "surface/row_bands.h"

#include <array>
#include <exception>
#include <system_error>
#include <thread>
#include <vector>

namespace morvane {

void forEachRowBand(std::size_t height,
                    const std::function<void(std::size_t, std::size_t, std::size_t)>& work) {
  if (height == 0) return;
  const std::size_t rows = height / kWorkers;
  std::array<std::exception_ptr, kWorkers> failures;
  std::vector<std::jthread> workers;
  workers.reserve(kWorkers);
  for (std::size_t band = 0; band < kWorkers; ++band) {
    const std::size_t first = band * rows;
    const std::size_t end = band + 1 < kWorkers ? first + rows : height - 1;
    if (first >= end) continue;
    const auto run = [&work, &failure = failures[band], band, first, end]() noexcept {
      try {
        work(band, first, end);
      } catch (...) {
        failure = std::current_exception();
      }
    };
    try {
      workers.emplace_back(run);
    } catch (const std::system_error&) {
      run();
    }
  }
  for (std::jthread& worker : workers) worker.join();
  for (const std::exception_ptr& failure : failures) {
    if (failure) std::rethrow_exception(failure);
  }
}

}  // namespace morvane
