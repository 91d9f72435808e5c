// Shared by the fuzz targets: input files for readers that take paths, and checks of invariants.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace morvane {

/// Aborts when an invariant is violated, so that libFuzzer keeps the input; `invariant` is printed.
void require(bool holds, const char* invariant);

/// Requires that none of `values` is infinite or NaN.
void requireFinite(std::span<const float> values, const char* invariant);

/// Writes the input to a file of this process and returns its path. The next input replaces it.
std::string inputFile(const std::uint8_t* data, std::size_t size);

/// A path beside the input file. Both are removed when the process ends.
std::string fileBesideInput(const std::string& name);

}  // namespace morvane
