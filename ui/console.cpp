#include "ui/console.h"

#include <FL/Fl_Text_Buffer.H>

#include "ui/app_state.h"
#include "ui/status_line.h"

namespace morvane {

void appendConsole(std::string_view text) {
  appState().consoleText->append((std::string(text) + '\n').c_str());
}

void tellUser(const std::string& text) {
  appendConsole(text);
  appState().statusLine->say(text);
}

}  // namespace morvane
