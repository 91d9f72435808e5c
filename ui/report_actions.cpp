#include "ui/report_actions.h"

#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Float_Input.H>

#include <array>
#include <string>
#include <string_view>

#include "base/debug_log.h"
#include "base/file_io.h"
#include "export/moment_texts.h"
#include "export/pdf_report.h"
#include "export/report_page.h"
#include "export/screen_capture.h"
#include "ui/app_state.h"
#include "ui/choosers.h"
#include "ui/console.h"
#include "ui/control_rules.h"
#include "ui/draw_pending.h"
#include "ui/file_actions.h"
#include "ui/gl_window.h"
#include "ui/saving.h"
#include "ui/view_layout.h"
#include "ui/window_geometry.h"

namespace morvane {
namespace {

constexpr const char* kLogFile = "pdf_report.log";

void tell(const std::string& trouble) {
  logStream() << trouble << '\n';
  tellUser(trouble);
}

/// Captures the view and the profile window below it.
Screenshot captureView() {
  const AppState& app = appState();
  GLWindow& view = *app.glView;
  drawPending();  // the area under a menu that has just closed
  const std::array<ScreenPart, 2> own = {view.picture(), view.profiler().picture()};
  const ScreenRect area = reportArea({app.mainWindow->x_root(), app.mainWindow->y_root()}, view.w(),
                                     view.h(), view.profiler().visible() ? kProfileHeight : 0);
  Screenshot shot = captureScreenRect(area.topLeft, area.bottomRight, app.mainWindow, own);
  if (!shot.reason.empty()) tell("The picture could not be saved: " + shot.reason);
  return shot;
}

ReportValues currentValues() {
  const AppState& app = appState();
  return {.moment = localNow(),
          .measurementPath = app.glView->surface().measurement().path,
          .zScale = app.glView->surface().zScale(),
          .minimum = stripUnit(app.minimumInput->value()),
          .maximum = stripUnit(app.maximumInput->value())};
}

/// Asks for the path of the report; empty when cancelled.
std::string chooseReportPath() {
  DebugLog::write(kLogFile, "Creating File Chooser");
  DebugLog::write(kLogFile, "Adding File Filter");
  DebugLog::write(kLogFile, "Displaying File Chooser");
  const std::string chosen =
      chooseFileToSave({"Save report", "*.pdf", startFolder(),
                        suggestedName(appState().glView->surface().measurement().path)});
  DebugLog::write(kLogFile, "Copying Filename to Char*");
  DebugLog::write(kLogFile, "Filename is : " + chosen);
  if (chosen.empty()) {
    DebugLog::write(kLogFile, "No Filename given, cancelling operation");
    return {};
  }
  return reportPath(chosen);
}

}  // namespace

void writePdfReport(Fl_Widget* /*widget*/, long /*action*/) {
  DebugLog::write(kLogFile, "\n####PDF ROUTINE CALLED ####");
  {
    PdfReport report;
    const ReportPage page = describePage(currentValues());
    report.writeTexts(page, appState().maximumInput->value());
    DebugLog::write(kLogFile, "Taking Screenshot");
    const Screenshot shot = captureView();
    report.drawPicture(shot.jpeg, page.picture);
    const std::string path = chooseReportPath();
    if (!path.empty()) {
      // Repeated, since the chooser may have covered the first message.
      const std::string note =
          shot.reason.empty() ? "" : ". The picture's own copy could not be saved: " + shot.reason;
      save({"report", path, [&] { return report.save(path); }, tell, note});
    }
  }
  DebugLog::write(kLogFile,
                  "=========================================================================\n");
}

void takeScreenshot() {
  const Screenshot shot = captureView();
  if (shot.reason.empty()) tellUser("Picture saved: " + shot.path);
}

}  // namespace morvane
