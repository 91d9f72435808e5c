// The settings of the user's region.
#pragma once

namespace morvane {

/// The decimal sign of the user's region, which its spreadsheets expect in pasted text: a comma or
/// a point.
char userDecimalSign();

}  // namespace morvane
