// Numbers and pictures of what is shown, to files and to the clipboard.
#pragma once

namespace morvane {

/// Each says in an alert what is missing if there is nothing to save or to copy. The others ask for
/// a name first, in the folder of the measurement.

/// The section between the pins.
void saveSection();
void copySection();

/// The results that the instrument stored.
void saveResults();
void copyResults();

/// The heights shown, in the format that the operator chooses.
void saveHeights();

/// The view with the plot of the section, with `factor` × `factor` pixels for each of the window.
void savePicture(int factor);

}  // namespace morvane
