// Replaces row_bands.cpp in fuzz targets: runs the bands one after the other, since under the
// address sanitizer starting threads is slow and each leaves memory behind. The replay uses the
// real threads.
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
