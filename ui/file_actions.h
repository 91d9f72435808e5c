// The actions on whole measurement files.
#pragma once

#include <string>

class Fl_Widget;

namespace morvane {

/// Modes of `openMeasurement`. All except the start-up mode show a file chooser.
inline constexpr long kOpenFromMenu = 0;
inline constexpr long kOpenStartupFile = 2;
inline constexpr long kOpenFromButton = 4;

/// Opens a measurement: the start-up file, or one that the operator chooses. A file that cannot be
/// opened adds a line to the console strip. An invalid measurement shows an alert. In both cases
/// the measurement shown stays.
void openMeasurement(Fl_Widget* widget, long mode);

/// The initial folder of choosers: that of the measurement shown, else the documents folder.
std::string startFolder();

/// Opens `path` as `openMeasurement` opens a chosen file.
void openFile(const std::string& path);

/// Saves a byte-for-byte copy of the measurement shown under a name that the operator chooses;
/// ".res" is always added. Asks before replacing an existing file, and never replaces the open
/// measurement. On failure it shows the system's error message and leaves no file.
void saveCopy();

}  // namespace morvane
