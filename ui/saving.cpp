#include "ui/saving.h"

#include "base/file_io.h"
#include "ui/app_state.h"
#include "ui/console.h"
#include "ui/gl_window.h"

namespace morvane {

bool save(const SaveTask& task) {
  if (isSameFile(appState().glView->surface().measurement().path, task.path)) {
    task.complain("This is the measurement that is open. Please choose another name.");
    return false;
  }
  if (fileExists(task.path) && !confirmReplace(task.path)) return false;
  const std::string reason = task.write();
  if (!reason.empty()) {
    task.complain("The " + task.thing + " could not be saved: " + reason);
    return false;
  }
  const auto first = static_cast<char>(task.thing.front() - 'a' + 'A');
  tellUser(first + task.thing.substr(1) + " saved: " + task.path + task.note);
  return true;
}

}  // namespace morvane
