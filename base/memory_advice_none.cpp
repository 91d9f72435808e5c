#include "base/memory_advice.h"

namespace morvane {

void adviseHugePages(void* /*address*/, std::size_t /*bytes*/) {}

void PagesFree::operator()(std::byte* /*pages*/) const {}

Pages freshPages(std::size_t /*bytes*/) { return nullptr; }

bool fitsIntoMemory(std::uint64_t /*bytes*/) { return true; }

void releaseSpareMemory() {}

}  // namespace morvane
