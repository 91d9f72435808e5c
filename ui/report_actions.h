// The report and the picture of what is on show.
#pragma once

class Fl_Widget;

namespace morvane {

/// Makes the report of what is on show and saves it under a name the operator chooses, ".pdf"
/// always behind it. What fails is said on standard output and in the console strip.
void writePdfReport(Fl_Widget* widget, long action);

/// Puts a picture of the view on the clipboard and into the user's folder of screenshots.
void takeScreenshot();

}  // namespace morvane
