#include "resfile/memory_advice.h"

#include <malloc.h>
#include <sys/mman.h>

#include <cstdint>
#include <cstdlib>

namespace morvane {
namespace {

constexpr std::uintptr_t kHugePage = std::uintptr_t{2} << 20;

}  // namespace

void adviseHugePages(void* address, std::size_t bytes) {
  const auto first = reinterpret_cast<std::uintptr_t>(address);
  const std::uintptr_t begin = (first + kHugePage - 1) & ~(kHugePage - 1);
  const std::uintptr_t end = (first + bytes) & ~(kHugePage - 1);
  if (end > begin) {
    // A refusal only costs speed, so the result is of no interest.
    (void)madvise(static_cast<std::byte*>(address) + (begin - first), end - begin, MADV_HUGEPAGE);
  }
}

void PagesFree::operator()(std::byte* pages) const { std::free(pages); }

Pages freshPages(std::size_t bytes) {
  const std::size_t whole = (bytes + kHugePage - 1) & ~(kHugePage - 1);
  Pages pages(static_cast<std::byte*>(std::aligned_alloc(kHugePage, whole)));
  if (pages) adviseHugePages(pages.get(), whole);
  return pages;
}

#ifdef __GLIBC__
void releaseSpareMemory() { malloc_trim(0); }
#else
void releaseSpareMemory() {}
#endif

}  // namespace morvane
