#include "ui/app_state.h"

namespace morvane {

AppState& appState() {
  static AppState state;
  return state;
}

}  // namespace morvane
