// Modal dialogs: alerts, questions and file choosers.
#pragma once

#include <string>

namespace morvane {

/// The settings of a file chooser.
struct FileRequest {
  const char* title;
  const char* filter;  ///< e.g. "*.res"
  std::string folder;
  std::string presetName = {};    ///< to save under
  bool confirmOverwrite = false;  ///< asks before it returns the name of an existing file
};

/// Asks for an existing file. Empty when cancelled.
std::string chooseFileToOpen(const FileRequest& request);

/// Asks for a name to save under. Empty when cancelled.
std::string chooseFileToSave(const FileRequest& request);

/// Shows `text` until it is confirmed.
void showAlert(const std::string& text);

/// The same, deferred until drawing has finished.
void showAlertSoon(const std::string& text);

/// Asks for a name, offering `preset`. Empty when cancelled.
std::string askName(const std::string& question, const std::string& preset);

/// Asks whether to open the file `path`, which has just been saved.
bool confirmOpen(const std::string& path);

/// Asks whether to replace the existing file `path`.
bool confirmReplace(const std::string& path);

}  // namespace morvane
