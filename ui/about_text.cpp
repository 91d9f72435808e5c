#include "ui/about_text.h"

namespace morvane {

const char* const kAgreementText =
    R"(END-USER AGREEMENT

1. Use. You may install the Morvane Reader Software on any number of computers of your organisation and pass on the reports, pictures and files you make with it.

2. Your measurements. The program works on your computer alone. It sends nothing anywhere, changes no measurement that you open, and writes only what you ask for.

3. Results. The values in the results column are those your instrument stored in the file, shown as they are. Whoever releases or rejects a part remains responsible for checking that instrument, measurement and evaluation suit the task.

4. Other people's work. The program stands on libraries of other authors, whose licences are listed in the file THIRD_PARTY.md and go before this agreement where the two differ.

5. No warranty. The program is provided as it is. As far as the law allows, its makers do not answer for loss or damage that arises from its use.

6. End. This agreement ends when you remove the program. What you made with it stays yours.)";

const char* const kVersionText =
    "Updated: " __DATE__ " " __TIME__ "\nVersion Number: v" MORVANE_VERSION;

const char* const kContactText =
    "Morvane Surface Metrology\n"
    "Customer Support\n"
    "\n"
    "Please have the version number and, where you can, the measurement at hand.";

}  // namespace morvane
