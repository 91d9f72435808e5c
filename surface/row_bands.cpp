#include "surface/row_bands.h"

#include <system_error>
#include <thread>
#include <vector>

namespace morvane {

void forEachRowBand(std::size_t height,
                    const std::function<void(std::size_t, std::size_t, std::size_t)>& work) {
  if (height == 0) return;
  const std::size_t rows = height / kWorkers;
  std::vector<std::jthread> workers;  // joined in start order when it goes
  workers.reserve(kWorkers);
  for (std::size_t band = 0; band < kWorkers; ++band) {
    const std::size_t first = band * rows;
    const std::size_t end = band + 1 < kWorkers ? first + rows : height - 1;
    if (first >= end) continue;
    try {
      workers.emplace_back([&work, band, first, end] { work(band, first, end); });
    } catch (const std::system_error&) {
      work(band, first, end);
    }
  }
}

}  // namespace morvane
