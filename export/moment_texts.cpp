#include "export/moment_texts.h"

namespace morvane {
namespace {

constexpr int kFirstYear = 1900;  // year 0 of `std::tm`
constexpr int kPictureCentury = 2000;

std::string digits(int number) { return std::to_string(number); }

}  // namespace

std::tm localNow() {
  const std::time_t now = std::time(nullptr);
  const std::tm* moment = std::localtime(&now);
  return moment != nullptr ? *moment : std::tm{};
}

std::string dateText(const std::tm& moment) {
  return "Date: " + digits(moment.tm_mday) + "/" + digits(moment.tm_mon + 1) + "/" +
         digits(moment.tm_year + kFirstYear);
}

std::string timeText(const std::tm& moment) {
  return "Time: " + digits(moment.tm_hour) + (moment.tm_min < 10 ? ":0" : ":") +
         digits(moment.tm_min) + ":" + digits(moment.tm_sec);
}

std::string pictureName(const std::tm& moment) {
  return digits(moment.tm_sec + 1) + digits(moment.tm_min + 1) + digits(moment.tm_hour) +
         digits(moment.tm_mday) + digits(moment.tm_mon + 1) +
         digits(moment.tm_year + kFirstYear - kPictureCentury) + ".jpg";
}

}  // namespace morvane
