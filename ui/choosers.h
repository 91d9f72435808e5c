// Alerts and file choosers: the one place where the program waits for an operator's answer.
#pragma once

#include <string>

namespace morvane {

/// Asks for one existing file that fits `filter`, e.g. "*.res", starting in `folder` where that is
/// not empty. Empty when cancelled.
std::string chooseFileToOpen(const char* filter, const std::string& folder);

/// What a save chooser starts with.
struct SaveRequest {
  const char* title;
  const char* filter;
  std::string folder;
  const char* presetName;
  bool confirmOverwrite;
};

/// Asks for a name to save under. Empty when cancelled.
std::string chooseFileToSave(const SaveRequest& request);

/// Shows `text` until it is confirmed.
void showAlert(const std::string& text);

/// The same as soon as what is being drawn is done.
void showAlertSoon(const std::string& text);

/// Asks for a name, offering `preset`. Empty when cancelled.
std::string askName(const std::string& question, const std::string& preset);

/// Asks whether the file `path`, which has just been written, shall be opened.
bool confirmOpen(const std::string& path);

/// Asks whether the existing file `path` may be replaced.
bool confirmReplace(const std::string& path);

}  // namespace morvane
