#include "ui/config_manager.h"

#include <FL/Fl_Button.H>
#include <FL/Fl_Choice.H>
#include <FL/Fl_Input.H>
#include <FL/Fl_Table_Row.H>

#include <charconv>
#include <string>
#include <string_view>

#include "base/debug_log.h"

namespace morvane {
namespace {

/// The table of saved configurations, which is always empty. It selects whole rows.
class SavedConfigs : public Fl_Table_Row {
 public:
  SavedConfigs(int x, int y, int w, int h, const char* label) : Fl_Table_Row(x, y, w, h, label) {
    constexpr int kRowsInSight = 3;
    end();
    rows() < kRowsInSight ? vscrollbar->hide() : vscrollbar->show();
    table_resized();
  }
};

struct ButtonEntry {
  int x, y, w, h;
  const char* label;
};

// Kept: none of these does anything.
constexpr ButtonEntry kIdleButtons[] = {
    {370, 175, 75, 25, "Save"},
    {370, 205, 75, 25, "Load"},
    {370, 235, 75, 25, "Delete"},
};

/// The number at the start of `text`; 0 when there is none or it does not fit into an int.
int leadingInteger(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

/// Reads the fields of a connection. No connection is made, so they are not used.
void openConnection(Fl_Widget* /*widget*/, void* data) {
  const auto& fields = *static_cast<const ConnectionFields*>(data);
  [[maybe_unused]] const std::string hostname = fields.hostname->value();
  [[maybe_unused]] const int port = leadingInteger(fields.port->value());
  [[maybe_unused]] const int connection = fields.connection->value();
  logStream() << "Session Launched\n";
}

}  // namespace

ConfigManagerWindow::ConfigManagerWindow() : Fl_Double_Window(550, 500, "Configuration Manager") {
  fields_.hostname = new Fl_Input(100, 25, 160, 25, "Hostname:");
  fields_.port = new Fl_Input(100, 55, 50, 25, "Port:");
  fields_.connection = new Fl_Choice(100, 85, 100, 25, "Connection:");
  fields_.connection->add("TCP");
  fields_.connection->add("UDP");
  fields_.connection->value(0);
  new Fl_Input(100, 115, 200, 25, "Key Path:");
  new Fl_Button(320, 115, 80, 25, "Choose");
  new SavedConfigs(50, 175, 300, 275, "Saved Configs");
  for (const ButtonEntry& entry : kIdleButtons) {
    new Fl_Button(entry.x, entry.y, entry.w, entry.h, entry.label);
  }
  auto* open = new Fl_Button(370, 400, 150, 25, "Open Connection");
  open->callback(openConnection, &fields_);
  end();
  hide();
}

}  // namespace morvane
