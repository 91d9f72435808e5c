// Dates and times in reports and in the names of screenshots.
#pragma once

#include <ctime>
#include <string>

namespace morvane {

/// The current local date and time.
std::tm localNow();

/// "Date: 3/7/2022": day, month and year without leading zeros.
std::string dateText(const std::tm& moment);

/// "Time: 9:05:7". Kept: only the minute is padded to two digits.
std::string timeText(const std::tm& moment);

/// The file name of a screenshot: second + 1, minute + 1, hour, day, month and year - 2000 without
/// separators, then ".jpg". Kept: two different times can give the same name; then the later
/// picture replaces the earlier one.
std::string pictureName(const std::tm& moment);

}  // namespace morvane
