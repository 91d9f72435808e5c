// Saving what an action has made, with the questions and messages that belong to it.
#pragma once

#include <functional>
#include <string>

#include "ui/choosers.h"

namespace morvane {

/// One thing to be saved.
struct SaveTask {
  std::string thing;                   ///< in small letters, as messages name it: "copy"
  std::string path;                    ///< where to, with its extension
  std::function<std::string()> write;  ///< writes it; empty on success, else the reason
  void (*complain)(const std::string&) = showAlert;  ///< how a refusal or a failure is told
};

/// Saves, unless the path is that of the measurement on show, or of a file that the operator does
/// not want replaced. Tells what came of it; true when it is saved.
bool save(const SaveTask& task);

}  // namespace morvane
