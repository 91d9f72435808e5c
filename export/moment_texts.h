// What a report and a picture call the moment they are made.
#pragma once

#include <ctime>
#include <string>

namespace morvane {

/// The local date and time now.
std::tm localNow();

/// "Date: 3/7/2022": day, month and year without leading zeros.
std::string dateText(const std::tm& moment);

/// "Time: 9:05:7". Kept: of the three numbers only the minute is filled up to two digits.
std::string timeText(const std::tm& moment);

/// File name of a picture: second + 1, minute + 1, hour, day, month and year - 2000 run together,
/// with ".jpg" behind. Kept: without separators two moments of a day can share a name, and the
/// later picture then takes the earlier one's place.
std::string pictureName(const std::tm& moment);

}  // namespace morvane
