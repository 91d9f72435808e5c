// Saving a file for an action, with its questions and messages.
#pragma once

#include <functional>
#include <string>

#include "ui/choosers.h"

namespace morvane {

/// What to save, and how.
struct SaveTask {
  std::string thing;  ///< its name in messages, in lower case: "copy"
  std::string path;   ///< target path, with its extension
  /// Writes it; returns empty on success, else the error message.
  std::function<std::string()> write;
  void (*complain)(const std::string&) = showAlert;  ///< shows a refusal or an error
  std::string note = {};  ///< added to the message of success; may be empty
};

/// Saves it. Refuses the path of the open measurement, and asks before it replaces an existing
/// file. Reports the outcome to the operator. True when it was saved.
bool save(const SaveTask& task);

}  // namespace morvane
