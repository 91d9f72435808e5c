// The time of a measurement, in the forms of the exports.
#pragma once

#include <string>

#include "resfile/res_header.h"

namespace morvane {

/// "2026-03-14" (ISO 8601); empty if the header has no complete date.
std::string isoDate(const ResHeader& header);
/// "10:15:30"; empty if the header has no complete time stamp.
std::string isoTime(const ResHeader& header);
/// Day, month, year, hour and minute in twelve digits (ISO 25178-71); zeros without a time stamp.
std::string sdfDate(const ResHeader& header);

}  // namespace morvane
