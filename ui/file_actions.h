// The actions on whole measurement files.
#pragma once

#include <string>

class Fl_Widget;

namespace morvane {

/// Modes of `openMeasurement`; every mode but the start-up one asks with a chooser.
inline constexpr long kOpenFromMenu = 0;
inline constexpr long kOpenStartupFile = 2;
inline constexpr long kOpenFromButton = 4;

/// Opens a measurement: the start-up file, or the one the operator chooses. A file that cannot be
/// opened adds a line to the console strip; one that is no whole measurement brings an alert. In
/// both cases what is on show stays as it is and usable.
void openMeasurement(Fl_Widget* widget, long mode);

/// Where choosers start: the folder of the measurement on show; before the first, the documents.
std::string startFolder();

/// Opens `path` as `openMeasurement` does with the file that was chosen.
void openFile(const std::string& path);

/// Writes a byte-for-byte copy of the measurement on show under a name the operator chooses, with
/// ".res" behind it whatever was typed. An existing file is replaced only after asking; the open
/// measurement itself never. A failure is shown with the system's reason and leaves no file.
void saveCopy();

}  // namespace morvane
