// Hints to the system about the process's memory; where it knows no such thing, nothing happens.
#pragma once

#include <cstddef>
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

/// Hands memory that was freed, but is still held for the next allocation, back to the system.
void releaseSpareMemory();

}  // namespace morvane
