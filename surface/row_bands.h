// The seven short-lived workers that share the rows of a grid.
#pragma once

#include <cstddef>
#include <functional>

namespace morvane {

inline constexpr std::size_t kWorkers = 7;

/// Runs `work(band, firstRow, endRow)` for each of the seven bands of a grid of `height` rows, each
/// on a thread of its own, and returns when all have ended; what one of them threw is thrown then.
/// Band k below 6 holds the rows [k × b, (k + 1) × b) with b = height / 7, the last one [6 × b,
/// height − 1): the last grid row starts no cells. Bands may be empty. A band whose thread the
/// system refuses runs on the caller's.
void forEachRowBand(std::size_t height,
                    const std::function<void(std::size_t, std::size_t, std::size_t)>& work);

}  // namespace morvane
