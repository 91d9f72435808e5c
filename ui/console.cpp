#include "ui/console.h"

#include <FL/Fl_Text_Buffer.H>

#include <string>

#include "ui/app_state.h"

namespace morvane {

void appendConsole(std::string_view text) {
  appState().consoleText->append((std::string(text) + '\n').c_str());
}

}  // namespace morvane
