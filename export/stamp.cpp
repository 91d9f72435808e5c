#include "export/stamp.h"

#include <algorithm>
#include <string_view>

namespace morvane {
namespace {

constexpr std::size_t kDate = 8;    // digits: year, month, day
constexpr std::size_t kWhole = 14;  // and hour, minute, second

/// The first `count` characters of the time stamp; empty if they are not all digits.
std::string digitsOf(const ResHeader& header, std::size_t count) {
  const std::string_view stamp = fieldText(header.headerText1).substr(0, count);
  const bool all = stamp.size() == count &&
                   std::ranges::all_of(stamp, [](char c) { return c >= '0' && c <= '9'; });
  return all ? std::string(stamp) : std::string();
}

}  // namespace

std::string isoDate(const ResHeader& header) {
  const std::string d = digitsOf(header, kDate);
  return d.empty() ? d : d.substr(0, 4) + '-' + d.substr(4, 2) + '-' + d.substr(6, 2);
}

std::string isoTime(const ResHeader& header) {
  const std::string d = digitsOf(header, kWhole);
  return d.empty() ? d : d.substr(8, 2) + ':' + d.substr(10, 2) + ':' + d.substr(12, 2);
}

std::string sdfDate(const ResHeader& header) {
  const std::string d = digitsOf(header, kWhole);
  if (d.empty()) return "000000000000";
  return d.substr(6, 2) + d.substr(4, 2) + d.substr(0, 4) + d.substr(8, 4);
}

}  // namespace morvane
