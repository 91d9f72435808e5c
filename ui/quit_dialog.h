// The question that closing the main window asks.
#pragma once

class Fl_Widget;

namespace morvane {

/// The main window's close callback: asks, and ends the process with status 1 when confirmed.
void confirmQuit(Fl_Widget* window, void* data);

}  // namespace morvane
