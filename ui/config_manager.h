// The window for the settings of a network connection to an instrument.
#pragma once

#include <FL/Fl_Double_Window.H>

class Fl_Choice;
class Fl_Input;

namespace morvane {

/// The fields that "Open Connection" reads.
struct ConnectionFields {
  Fl_Input* hostname = nullptr;
  Fl_Input* port = nullptr;
  Fl_Choice* connection = nullptr;  ///< 0 TCP, 1 UDP
};

class ConfigManagerWindow : public Fl_Double_Window {
 public:
  /// Creates the window with its widgets, hidden.
  ConfigManagerWindow();

 private:
  ConnectionFields fields_;
};

}  // namespace morvane
