// Alerts and file choosers: the one place where the program waits for an operator's answer.
#pragma once

#include <string>

namespace morvane {

/// What a chooser says and starts with.
struct FileRequest {
  const char* title;
  const char* filter;  ///< e.g. "*.res"
  std::string folder;
  std::string presetName = {};    ///< to save under
  bool confirmOverwrite = false;  ///< asks again before the name of a file that is there
};

/// Asks for one existing file. Empty when cancelled.
std::string chooseFileToOpen(const FileRequest& request);

/// Asks for a name to save under. Empty when cancelled.
std::string chooseFileToSave(const FileRequest& request);

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
