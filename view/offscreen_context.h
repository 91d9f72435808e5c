// A GL context without a window.
#pragma once

#include <memory>
#include <string>

namespace morvane {

/// Needs neither a display nor a window of the program. It is the current context of this thread
/// while it lives. There is no frame buffer: draw into a `PictureTarget`.
class OffscreenContext {
 public:
  /// Null, with the reason in `trouble`, if the system has no such context.
  static std::unique_ptr<OffscreenContext> create(std::string& trouble);
  virtual ~OffscreenContext() = default;
  OffscreenContext(const OffscreenContext&) = delete;
  OffscreenContext& operator=(const OffscreenContext&) = delete;

 protected:
  OffscreenContext() = default;
};

}  // namespace morvane
