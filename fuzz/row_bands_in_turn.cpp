// Stands in the place of surface/row_bands.cpp in a fuzz target: the same bands, one after the
// other. Under the address sanitizer seven threads cost more than all that follows a read, and the
// sanitizer keeps a record of each for ever. The replay runs the real ones.
#include "surface/row_bands.h"

namespace morvane {

void forEachRowBand(std::size_t height,
                    const std::function<void(std::size_t, std::size_t, std::size_t)>& work) {
  const std::size_t rows = height / kWorkers;
  for (std::size_t band = 0; height > 0 && band < kWorkers; ++band) {
    const std::size_t end = band + 1 < kWorkers ? (band + 1) * rows : height - 1;
    if (band * rows < end) work(band, band * rows, end);
  }
}

}  // namespace morvane
