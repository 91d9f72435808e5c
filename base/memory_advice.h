// Hints to the system about the memory of the process, and how much is available. On systems
// without such a service nothing happens.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace morvane {

/// Asks for huge pages for the `bytes` bytes at `address`, which must be memory not written to yet.
/// The request covers the whole huge pages inside the range and does not change their content.
void adviseHugePages(void* address, std::size_t bytes);

struct PagesFree {
  void operator()(std::byte* pages) const;
};
/// Memory in whole pages.
using Pages = std::unique_ptr<std::byte[], PagesFree>;

/// Allocates at least `bytes` bytes of untouched, page-aligned memory, with huge pages where the
/// system has them. Null when there is not enough memory, or on a system without such a service.
Pages freshPages(std::size_t bytes);

/// Whether `bytes` more bytes fit into memory when all of them are written to. Linux overcommits: a
/// large allocation succeeds, and the OOM killer ends the program when it writes to it. So the
/// available memory is checked first. True where it is unknown, or where the system does not
/// overcommit.
bool fitsIntoMemory(std::uint64_t bytes);

/// Returns freed memory that the allocator still holds to the system.
void releaseSpareMemory();

}  // namespace morvane
