// The seven short-lived worker threads that share the rows of a grid.
#pragma once

#include <cstddef>
#include <functional>

namespace morvane {

inline constexpr std::size_t kWorkers = 7;

/// Runs `work(band, firstRow, endRow)` for each of the seven bands of a grid of `height` rows, each
/// on its own thread. Returns when all have ended, and rethrows an exception of any of them. Band k
/// < 6 has the rows [k × b, (k + 1) × b) with b = height / 7. The last band has [6 × b, height −
/// 1), since no cells start at the last grid row. Bands may be empty. A band whose thread cannot be
/// started runs on the calling thread.
void forEachRowBand(std::size_t height,
                    const std::function<void(std::size_t, std::size_t, std::size_t)>& work);

}  // namespace morvane
