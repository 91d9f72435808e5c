// Modal dialogs: alerts, questions and file choosers.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace morvane {

/// The settings of a file chooser.
struct FileRequest {
  std::string title;
  std::string filter;  ///< e.g. "*.res"
  std::string folder;
  std::string presetName = {};    ///< to save under
  bool confirmOverwrite = false;  ///< asks before it returns the name of an existing file
};

/// Asks for an existing file. Empty when cancelled.
std::string chooseFileToOpen(const FileRequest& request);

/// Asks for a name to save under. Empty when cancelled.
std::string chooseFileToSave(const FileRequest& request);

/// A kind of file that the operator chooses by the chooser's filter or by the name's ending.
struct FileKind {
  std::string_view name;       ///< UTF-8
  std::string_view extension;  ///< with its point, in lower case
};

/// A file to save.
struct SaveChoice {
  std::string path;      ///< with an extension of one of the kinds; empty when cancelled
  std::size_t kind = 0;  ///< which one
};

/// Asks for a name to save under. `kinds` replace the filter of `request`; number `preferred` is
/// offered first. A name that ends like one of them chooses that one. To other names the extension
/// of the filter is added.
SaveChoice chooseKindToSave(const FileRequest& request, std::span<const FileKind> kinds,
                            std::size_t preferred = 0);

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
