#include "base/memory_advice.h"

#include <malloc.h>
#include <sys/mman.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace morvane {
namespace {

constexpr std::uintptr_t kHugePage = std::uintptr_t{2} << 20;

}  // namespace

void adviseHugePages(void* address, std::size_t bytes) {
  const auto first = reinterpret_cast<std::uintptr_t>(address);
  const std::uintptr_t begin = (first + kHugePage - 1) & ~(kHugePage - 1);
  const std::uintptr_t end = (first + bytes) & ~(kHugePage - 1);
  if (end > begin) {
    // A failure only costs speed, so the result is ignored.
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

bool fitsIntoMemory(std::uint64_t bytes) {
  std::ifstream info("/proc/meminfo");
  std::uint64_t kilobytes = 0;
  bool known = false;
  for (std::string line; std::getline(info, line);) {
    std::istringstream words(line);
    std::string name;
    std::uint64_t value = 0;
    words >> name >> value;
    if (name != "MemAvailable:" && name != "SwapFree:") continue;
    kilobytes += value;
    known = known || name == "MemAvailable:";
  }
  // An eighth of the available memory is left to other programs.
  return !known || bytes / 1024 <= kilobytes / 8 * 7;
}

#ifdef __GLIBC__
void releaseSpareMemory() { malloc_trim(0); }
#else
void releaseSpareMemory() {}
#endif

}  // namespace morvane
