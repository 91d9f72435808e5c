#include "ui/choosers.h"

#include <FL/Fl_Native_File_Chooser.H>
#include <FL/fl_ask.H>

namespace morvane {

std::string chooseFileToOpen(const char* filter) {
  Fl_Native_File_Chooser chooser(Fl_Native_File_Chooser::BROWSE_FILE);
  chooser.filter(filter);
  chooser.show();
  const char* name = chooser.filename();
  return name != nullptr ? name : "";
}

void showAlert(const char* text) {
  fl_beep(FL_BEEP_DEFAULT);
  fl_alert("%s", text);
}

}  // namespace morvane
