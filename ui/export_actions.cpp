#include "ui/export_actions.h"

#include <FL/Fl.H>

#include <new>
#include <string>
#include <vector>

#include "base/safe_file.h"
#include "base/user_locale.h"
#include "export/formats.h"
#include "export/picture_file.h"
#include "export/report_page.h"
#include "export/results_table.h"
#include "export/section_table.h"
#include "ui/app_state.h"
#include "ui/choosers.h"
#include "ui/console.h"
#include "ui/file_actions.h"
#include "ui/gl_window.h"
#include "ui/saving.h"
#include "ui/wait_cursor.h"

namespace morvane {
namespace {

/// Whether a measurement is shown. If not, says so.
bool measurementShown() {
  const bool shown = appState().glView->surface().modelLoaded();
  if (!shown) showAlert("Open a measurement first: there is nothing to save or to copy.");
  return shown;
}

/// Whether a section is shown. If not, says so.
bool sectionShown() {
  if (!measurementShown()) return false;
  Tools& tools = appState().glView->tools();
  const bool shown = tools.profileMode() && tools.profile().pinsExist();
  if (!shown) showAlert("Show a section first: there is none to save or to copy.");
  return shown;
}

/// Whether the measurement shown has results. If not, says so.
bool resultsThere() {
  if (!measurementShown()) return false;
  const bool there = !fileResults(appState().glView->surface().measurement()).values.empty();
  if (!there) showAlert("This measurement has no results.");
  return there;
}

ExportSource sourceShown() {
  GLWindow& view = *appState().glView;
  ExportSource source = exportSource(view.surface());
  ProfileTool& profile = view.tools().profile();
  if (profile.pinsExist()) source.section = placesOf(profile.pins());
  return source;
}

FileRequest requestFor(const std::string& title, const std::string& thing) {
  const std::string& measurement = appState().glView->surface().measurement().path;
  return {title, "", startFolder(), suggestedName(measurement) + thing};
}

/// Asks for a file of `kind` and saves it.
void saveNumbers(ExportKind kind, const std::string& thing) {
  std::vector<const ExportFormat*> formats;
  std::vector<FileKind> kinds;
  std::size_t preferred = 0;
  for (const ExportFormat& format : exportFormats()) {
    if (format.kind != kind) continue;
    // A spreadsheet opens the table at a double click if it has the decimal sign of the region.
    if (format.csv.decimalSign == userDecimalSign()) preferred = formats.size();
    formats.push_back(&format);
    kinds.push_back({format.name, format.extension});
  }
  if (kind == ExportKind::kHeights) preferred = 0;
  const SaveChoice choice =
      chooseKindToSave(requestFor("Save " + thing + " as", ' ' + thing), kinds, preferred);
  if (choice.path.empty()) return;
  save({thing, choice.path, [&] {
          const WaitCursor wait;
          return saveExport(*formats[choice.kind], sourceShown(), choice.path);
        }});
}

/// Copies a table, for pasting with the middle mouse button, too.
void copyText(const std::string& text, const std::string& message) {
  constexpr int kBothSelections = 2;
  Fl::copy(text.data(), static_cast<int>(text.size()), kBothSelections);
  tellUser(message);
}

/// The form in which a spreadsheet of the user's region takes a pasted table.
CsvStyle clipboardStyle() { return {.separator = '\t', .decimalSign = userDecimalSign()}; }

std::string drawAndSave(int factor, const std::string& path) {
  const WaitCursor wait;
  RgbImage picture;
  Bytes bytes;
  std::string reason = appState().glView->drawPicture(factor, picture);
  if (reason.empty()) reason = encodePicture(picture, path, bytes);
  if (!reason.empty()) return reason;
  SafeFile file(path);
  file.write(bytes.data(), bytes.size());
  return file.commit();
}

}  // namespace

void saveSection() {
  if (sectionShown()) saveNumbers(ExportKind::kSection, "section");
}

void copySection() {
  if (!sectionShown()) return;
  ExportSource source = sourceShown();
  source.csv = clipboardStyle();
  TextSink sink;
  try {
    writeSection(source, sink);
  } catch (const std::bad_alloc&) {
    return showAlert("There is not enough memory to copy the section.");
  }
  copyText(sink.text, "Section copied");
}

void saveResults() {
  if (resultsThere()) saveNumbers(ExportKind::kResults, "results");
}

void copyResults() {
  if (!resultsThere()) return;
  copyText(resultsText(appState().glView->surface().measurement(), clipboardStyle()),
           "Results copied");
}

void saveHeights() {
  if (measurementShown()) saveNumbers(ExportKind::kHeights, "heights");
}

void savePicture(int factor) {
  if (!measurementShown()) return;
  const PictureSize size = appState().glView->pictureSize();
  const auto pixels = [factor](int side) { return std::to_string(side * factor); };
  constexpr FileKind kKinds[] = {{"PNG", ".png"}, {"JPEG", ".jpg"}, {"JPEG", ".jpeg"}};
  const SaveChoice choice = chooseKindToSave(
      requestFor("Save picture as, " + pixels(size.width) + " × " + pixels(size.height) + " pixels",
                 ""),
      kKinds);
  if (choice.path.empty()) return;
  save({"picture", choice.path, [&] { return drawAndSave(factor, choice.path); }});
}

}  // namespace morvane
