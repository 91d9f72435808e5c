// The texts of the About window.
#pragma once

namespace morvane {

/// The end-user agreement.
extern const char* const kAgreementText;
/// When this program was built and which version it is.
extern const char* const kVersionText;
/// How to reach the people who made it.
extern const char* const kContactText;

}  // namespace morvane
