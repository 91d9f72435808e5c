#include "ui/choosers.h"

#include <FL/Fl_Native_File_Chooser.H>
#include <FL/fl_ask.H>

#include "ui/call_soon.h"

namespace morvane {
namespace {

std::string answerOf(Fl_Native_File_Chooser& chooser) {
  if (chooser.show() != 0) return {};
  const char* name = chooser.filename();
  return name != nullptr ? name : "";
}

/// `text` as the toolkit's boxes show it unchanged: their sign for a symbol is doubled.
std::string plain(const std::string& text) {
  std::string masked;
  for (const char c : text) {
    if (c == '@') masked += c;
    masked += c;
  }
  return masked;
}

}  // namespace

std::string chooseFileToOpen(const char* filter, const std::string& folder) {
  Fl_Native_File_Chooser chooser(Fl_Native_File_Chooser::BROWSE_FILE);
  chooser.filter(filter);
  if (!folder.empty()) chooser.directory(folder.c_str());
  return answerOf(chooser);
}

std::string chooseFileToSave(const SaveRequest& request) {
  Fl_Native_File_Chooser chooser(Fl_Native_File_Chooser::BROWSE_SAVE_FILE);
  chooser.title(request.title);
  chooser.filter(request.filter);
  if (!request.folder.empty()) chooser.directory(request.folder.c_str());
  if (request.presetName != nullptr) chooser.preset_file(request.presetName);
  if (request.confirmOverwrite) chooser.options(Fl_Native_File_Chooser::SAVEAS_CONFIRM);
  return answerOf(chooser);
}

void showAlert(const std::string& text) { fl_alert("%s", plain(text).c_str()); }

void showAlertSoon(const std::string& text) { callSoon(showAlert, text); }

std::string askName(const std::string& question, const std::string& preset) {
  const char* answer = fl_input("%s", preset.c_str(), question.c_str());
  return answer != nullptr ? answer : "";
}

bool confirmOpen(const std::string& path) {
  return fl_choice("%s\n\nThe file is saved. Open it now?", "No", "Open", nullptr,
                   plain(path).c_str()) == 1;
}

bool confirmReplace(const std::string& path) {
  return fl_choice("%s\n\nThis file exists already.", "Cancel", "Replace", nullptr,
                   plain(path).c_str()) == 1;
}

}  // namespace morvane
