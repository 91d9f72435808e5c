// The texts of the About window.
#pragma once

namespace morvane {

/// The end-user agreement.
extern const char* const kAgreementText;
/// Version and build time of the program.
extern const char* const kVersionText;
/// Contact of the makers.
extern const char* const kContactText;

}  // namespace morvane
