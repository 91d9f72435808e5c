// The question before the main window closes.
#pragma once

class Fl_Widget;

namespace morvane {

/// The main window's close callback: asks, and exits with status 1 if confirmed.
void confirmQuit(Fl_Widget* window, void* data);

}  // namespace morvane
