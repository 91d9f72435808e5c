// What the fuzz targets share: a file for readers that take paths, and their demands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace morvane {

/// Stops the run when a promise of the product does not hold, so that the input is kept as a
/// finding; `promise` is what the report says.
void demand(bool holds, const char* promise);

/// Demands that none of `values` is infinite or NaN.
void demandFinite(std::span<const float> values, const char* promise);

/// Puts the input into a file of this process and returns its path; the next input replaces it.
std::string inputFile(const std::uint8_t* data, std::size_t size);

/// A path beside the input file. Both are removed when the process ends.
std::string fileBesideInput(const std::string& name);

}  // namespace morvane
