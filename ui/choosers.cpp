#include "ui/choosers.h"

#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Native_File_Chooser.H>
#include <FL/fl_ask.H>
#include <FL/fl_draw.H>

#include <algorithm>

#include "base/paths.h"
#include "ui/app_state.h"
#include "ui/call_soon.h"
#include "ui/draw_pending.h"
#include "ui/wrapped_text.h"
#include "widgets/styles.h"

namespace morvane {
namespace {

// Not the main window's title, so that they differ in a list of windows.
constexpr const char* kBoxTitle = "Morvane Reader";

/// `text` escaped for FLTK's message boxes.
std::string plain(const std::string& text) { return labelText(text, "@"); }

/// Prepares FLTK's message box for `text`: centred over the main window and owned by it. Returns
/// the text wrapped so that the box fits.
std::string prepareBox(const std::string& text) {
  constexpr int kBesideText = 80;  // icon and margins
  constexpr int kBelowText = 70;   // buttons and margins
  constexpr int kMinWidth = 410;
  Fl_Window& main = *appState().mainWindow;
  // FLTK makes a modal dialog transient for the first window of its list.
  Fl::first_window(&main);
  fl_message_hotspot(0);
  fl_message_title_default(kBoxTitle);
  fl_font(FL_HELVETICA, FL_NORMAL_SIZE);
  const std::string lines = wrappedText(text, main.w() - 2 * kBesideText);
  int width = 0;
  int height = 0;
  fl_measure(lines.c_str(), width, height, 0);
  width = std::max(width + kBesideText, kMinWidth);
  fl_message_icon()->window()->position(
      main.x() + (main.w() - width) / 2,
      std::max(main.y(), main.y() + (main.h() - height - kBelowText) / 2));
  return plain(lines);
}

/// Runs the chooser. Its own questions look like the program's.
std::string answerOf(Fl_Native_File_Chooser& chooser, const FileRequest& request) {
  chooser.title(request.title.c_str());
  chooser.filter(request.filter.c_str());
  chooser.directory(request.folder.c_str());
  prepareBox(Fl_Native_File_Chooser::file_exists_message);
  const int outcome = chooser.show();
  drawUncovered();
  if (outcome != 0) return {};
  const char* name = chooser.filename();
  return name != nullptr ? name : "";
}

std::string nameToSave(Fl_Native_File_Chooser& chooser, const FileRequest& request) {
  if (!request.presetName.empty()) {
    // A full path: FLTK's own chooser would put a bare name into the current folder.
    chooser.preset_file(pathIn(request.folder, request.presetName).c_str());
  }
  if (request.confirmOverwrite) chooser.options(Fl_Native_File_Chooser::SAVEAS_CONFIRM);
  return answerOf(chooser, request);
}

int choose(const std::string& question, const char* no, const char* yes) {
  return fl_choice("%s", no, yes, nullptr, prepareBox(question).c_str());
}

}  // namespace

std::string chooseFileToOpen(const FileRequest& request) {
  Fl_Native_File_Chooser chooser(Fl_Native_File_Chooser::BROWSE_FILE);
  return answerOf(chooser, request);
}

std::string chooseFileToSave(const FileRequest& request) {
  Fl_Native_File_Chooser chooser(Fl_Native_File_Chooser::BROWSE_SAVE_FILE);
  return nameToSave(chooser, request);
}

SaveChoice chooseKindToSave(const FileRequest& request, std::span<const FileKind> kinds,
                            std::size_t preferred) {
  FileRequest withKinds = request;
  for (const FileKind& kind : kinds) {
    withKinds.filter.append(kind.name).append(" \t*").append(kind.extension) += '\n';
  }
  Fl_Native_File_Chooser chooser(Fl_Native_File_Chooser::BROWSE_SAVE_FILE);
  chooser.filter_value(static_cast<int>(preferred));
  SaveChoice choice = {nameToSave(chooser, withKinds), preferred};
  if (choice.path.empty()) return choice;
  // The chooser may add a filter for all files.
  const auto filter = static_cast<std::size_t>(chooser.filter_value());
  if (filter < kinds.size()) choice.kind = filter;
  const auto endsLike = [&](const FileKind& kind) {
    return hasExtension(choice.path, kind.extension);
  };
  if (endsLike(kinds[choice.kind])) return choice;
  const auto typed = std::ranges::find_if(kinds, endsLike);
  if (typed == kinds.end()) {
    choice.path += kinds[choice.kind].extension;
  } else {
    choice.kind = static_cast<std::size_t>(typed - kinds.begin());
  }
  return choice;
}

void showAlert(const std::string& text) { fl_alert("%s", prepareBox(text).c_str()); }

void showAlertSoon(const std::string& text) { callSoon(showAlert, text); }

std::string askName(const std::string& question, const std::string& preset) {
  const char* answer = fl_input("%s", preset.c_str(), prepareBox(question).c_str());
  return answer != nullptr ? answer : "";
}

bool confirmOpen(const std::string& path) {
  return choose(path + "\n\nThe file is saved. Open it now?", "No", "Open") == 1;
}

bool confirmReplace(const std::string& path) {
  return choose(path + "\n\nThis file exists already.", "Cancel", "Replace") == 1;
}

}  // namespace morvane
