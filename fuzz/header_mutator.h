// Changes to files that begin with a header of fixed layout: fields by their meaning, sizes with
// the body that belongs to them, numbers of the body.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <type_traits>
#include <vector>

namespace morvane {

using FileBytes = std::vector<std::byte>;
using Dice = std::minstd_rand;

/// A number from 0 to below `end`.
std::size_t roll(Dice& dice, std::size_t end);

/// One number of a header.
struct HeaderField {
  std::size_t offset = 0;
  std::size_t bytes = 4;  ///< 1, 2, 4 or 8
  bool isFloat = false;
};

/// The field that a reader takes `member` from. `read` decodes the bytes of a header: the field
/// begins where a bit, set in an empty header, reaches the member. So there is no second list of
/// places that could differ from the reader's.
template <typename Header, typename T, typename Read>
HeaderField locate(T Header::*member, std::size_t headerBytes, const Read& read) {
  for (std::size_t offset = 0; offset < headerBytes; ++offset) {
    FileBytes bytes(headerBytes);
    bytes[offset] = std::byte{1};
    if (read(bytes).*member != T{}) return {offset, sizeof(T), std::is_floating_point_v<T>};
  }
  std::abort();
}

/// The fields of all `members`, in their order.
template <typename Header, typename Read, typename... T>
std::vector<HeaderField> locateAll(std::size_t headerBytes, const Read& read,
                                   T Header::*... members) {
  return {locate(members, headerBytes, read)...};
}

/// Puts `value` into a whole-number field of `file`, cut to its size; a file too short keeps its
/// bytes.
void putInteger(FileBytes& file, const HeaderField& field, std::int64_t value);

/// A kind of file, its sizes first among the fields.
struct FileLayout {
  std::size_t headerBytes = 0;
  std::vector<HeaderField> fields;
  std::size_t bodyElement = 1;  ///< bytes of one number of the body: 1, or 8 for doubles
  /// Gives the file small sizes of its choice and a body of exactly these.
  void (*fit)(const FileLayout& layout, FileBytes& file, Dice& dice) = nullptr;
};

/// Resizes the body; what is added repeats what is there.
void resizeBody(FileBytes& file, std::size_t begin, std::size_t bytes);

/// What LLVMFuzzerCustomMutator asks for: changes `data` in place, by the layout or as plain bytes,
/// and returns its new size.
std::size_t mutate(const FileLayout& layout, std::uint8_t* data, std::size_t size,
                   std::size_t mostBytes, unsigned seed);

}  // namespace morvane
