#include "ui/call_soon.h"

#include <FL/Fl.H>

#include <memory>

namespace morvane {
namespace {

struct Call {
  void (*action)(const std::string&);
  std::string text;
};

}  // namespace

void callSoon(void (*action)(const std::string&), const std::string& text) {
  const auto run = [](void* data) {
    const std::unique_ptr<Call> call(static_cast<Call*>(data));
    call->action(call->text);
  };
  Fl::add_timeout(0.0, run, std::make_unique<Call>(Call{action, text}).release());
}

}  // namespace morvane
