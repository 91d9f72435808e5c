// Hints to the system about the process's memory, and what it says of its own; where it knows no
// such thing, nothing happens.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace morvane {

/// Asks for huge pages behind `bytes` bytes at `address`, which must be fresh memory of the
/// process. Only whole huge pages inside the range are touched by the request; their content is
/// not changed.
void adviseHugePages(void* address, std::size_t bytes);

struct PagesFree {
  void operator()(std::byte* pages) const;
};
/// Memory of whole pages.
using Pages = std::unique_ptr<std::byte[], PagesFree>;

/// At least `bytes` bytes of memory not yet touched, beginning on a page and on huge pages where
/// the system has them. Null when memory cannot hold them, or on a system without such a service.
Pages freshPages(std::size_t bytes);

/// Whether `bytes` more bytes fit into memory when all of them are written to. A system that
/// promises more than it has ends a program that takes it at its word; asked before, it says what
/// it has. True where it cannot be asked, or never promises too much.
bool fitsIntoMemory(std::uint64_t bytes);

/// Hands memory that was freed, but is still held for the next allocation, back to the system.
void releaseSpareMemory();

}  // namespace morvane
