// The report and the screenshot.
#pragma once

class Fl_Widget;

namespace morvane {

/// Makes the report and saves it under a name that the operator chooses; ".pdf" is always added.
/// Errors are written to standard output and to the console strip.
void writePdfReport(Fl_Widget* widget, long action);

/// Saves a screenshot of the view to the clipboard and to the user's folder of screenshots.
void takeScreenshot();

}  // namespace morvane
