#include "ui/results_panel.h"

#include <FL/Fl_Shared_Image.H>
#include <FL/Fl_Text_Buffer.H>
#include <FL/Fl_Text_Display.H>
#include <FL/Fl_Tooltip.H>
#include <FL/fl_draw.H>

#include <algorithm>

#include "base/paths.h"
#include "base/utf8.h"
#include "ui/window_geometry.h"
#include "widgets/look.h"
#include "widgets/styles.h"

namespace morvane {
namespace {

constexpr PixelArea kPlaceInWindow = windowLayout(kWindowWidth, kWindowHeight, true, false).results;
constexpr PixelArea kTitleArea = {5, 5, 195, 60};
constexpr Fl_Color kHeaderSeparatorColour = 216;
constexpr Fl_Color kResultSeparatorColour = 95;
constexpr Fl_Fontsize kTextSize = 16;
constexpr Fl_Fontsize kTitleSize = 20;
constexpr int kBufferBytes = 1024;
constexpr const char* kSeparatorText = "-----------------------------------------";

}  // namespace

/// A text display without margins, scroll bars or cursor, with its own buffer.
class ColumnText : public Fl_Text_Display {
 public:
  ColumnText() : Fl_Text_Display(0, 0, 0, 0), text_(kBufferBytes) {
    box(FL_NO_BOX);
    color(kBlack);
    textcolor(kWhite);
    textsize(kTextSize);
    wrap_mode(WRAP_NONE, 0);
    scrollbar_align(0);
    hide_cursor();
    buffer(text_);
  }
  ColumnText(const ColumnText&) = delete;
  ColumnText& operator=(const ColumnText&) = delete;
  ~ColumnText() override { buffer(nullptr); }

  /// Moves to `area` of the column, whose top left corner is (`columnX`, `columnY`). The text
  /// starts `indent` pixels to the right of its left edge.
  void place(const PixelArea& area, int columnX, int columnY, int indent = 0) {
    resize(columnX + area.x, columnY + area.y, area.w, area.h);
    indent_ = indent;
    visibleWidth_ = std::min(area.w, kResultsColumnWidth - area.x) - indent;
  }

  void write(const std::string& text) {
    // FLTK reads past the end of an incomplete UTF-8 sequence.
    text_.text(wellFormed(text).c_str());
    redraw();
  }

  /// Shows `text`. If it does not fit, a tooltip shows all of it.
  void writeWithTooltip(const std::string& text) {
    write(text);
    // A visible tooltip points to the text that is about to be freed.
    if (Fl_Tooltip::current() == this) Fl_Tooltip::exit(this);
    fl_font(textfont(), textsize());
    if (text.find('\n') != std::string::npos || fl_width(text.c_str()) > visibleWidth_) {
      copy_tooltip(labelText(text, "@").c_str());
    } else {
      tooltip(nullptr);
    }
  }

  /// Handles only the events that tooltips need: no focus, no selection, no scrolling.
  int handle(int event) override { return event == FL_ENTER || event == FL_LEAVE ? 1 : 0; }

 protected:
  void draw() override {
    // FLTK's margins would clip values that just fit.
    text_area.x = x() + indent_;
    text_area.w = w() - indent_;
    Fl_Text_Display::draw();
  }

 private:
  Fl_Text_Buffer text_;
  int indent_ = 0;
  int visibleWidth_ = 0;
};

namespace {

ColumnText* makeSeparator(Fl_Color colour) {
  auto* separator = new ColumnText;
  separator->textcolor(colour);
  separator->write(kSeparatorText);
  return separator;
}

}  // namespace

ResultsPanel::ResultsPanel(const std::string& exeFolder)
    : Fl_Group(kPlaceInWindow.x, kPlaceInWindow.y, kPlaceInWindow.w, kPlaceInWindow.h),
      icon_(Fl_Shared_Image::get(resourcePath(exeFolder, "Icons", "wsa.png").c_str(), 60, 30)) {
  box(FL_FLAT_BOX);
  color(kBlack);
  auto* title = new ColumnText;
  title->textsize(kTitleSize);
  title->write("RESULTS");
  title->place(kTitleArea, x(), y());
  for (RowDisplays& row : headerDisplays_) row = {new ColumnText, new ColumnText};
  for (ColumnText*& line : headerSeparators_) line = makeSeparator(kHeaderSeparatorColour);
  end();
  resizable(nullptr);
  reset();
  hide();
}

ResultsPanel::~ResultsPanel() = default;

void ResultsPanel::ReleaseImage::operator()(Fl_Shared_Image* image) const { image->release(); }

void ResultsPanel::take(const Measurement& measurement) {
  header_ = measurement.header;
  results_ = measurement.results;
}

void ResultsPanel::showResults() {
  drawLayout(resultLayout(header_, results_));
  fillHeader(surfaceTypeText(header_.surfaceType));
}

void ResultsPanel::reset() {
  const auto rows = headerRows({}, {});
  for (std::size_t i = 0; i < kHeaderRows; ++i) {
    const RowDisplays& displays = headerDisplays_[i];
    displays.label->place(rows[i].labelArea, x(), y());
    displays.value->place(rows[i].valueArea, x(), y());
    displays.label->write(rows[i].label);
  }
  for (std::size_t i = 0; i < kHeaderSeparators.size(); ++i) {
    headerSeparators_[i]->place(kHeaderSeparators[i], x(), y());
  }
}

void ResultsPanel::hideResultRows() {
  for (const RowDisplays& row : resultDisplays_) {
    row.label->hide();
    row.value->hide();
  }
  for (ColumnText* separator : resultSeparators_) separator->hide();
}

void ResultsPanel::fillHeader(std::string_view surfaceText) {
  const auto rows = headerRows(header_, surfaceText);
  for (std::size_t i = 0; i < kHeaderRows; ++i) {
    headerDisplays_[i].value->writeWithTooltip(rows[i].value);
  }
}

void ResultsPanel::makeDisplays(const ResultLayout& layout) {
  while (resultDisplays_.size() < layout.rows.size()) {
    const RowDisplays row = {new ColumnText, new ColumnText};
    // Before the separators, which are drawn over the edges of the rows.
    insert(*row.label, headerSeparators_.front());
    insert(*row.value, headerSeparators_.front());
    resultDisplays_.push_back(row);
  }
  while (resultSeparators_.size() < layout.separators.size()) {
    resultSeparators_.push_back(makeSeparator(kResultSeparatorColour));
    add(resultSeparators_.back());
  }
}

void ResultsPanel::drawLayout(const ResultLayout& layout) {
  makeDisplays(layout);
  reset();
  hideResultRows();
  for (std::size_t i = 0; i < layout.rows.size(); ++i) {
    const ResultRow& row = layout.rows[i];
    const RowDisplays& displays = resultDisplays_[i];
    displays.label->place(row.labelArea, x(), y(), row.labelIndent);
    displays.label->writeWithTooltip(row.label);
    displays.label->show();
    if (row.heading) continue;
    displays.value->place(row.valueArea, x(), y());
    displays.value->writeWithTooltip(row.value);
    displays.value->show();
  }
  for (std::size_t i = 0; i < layout.separators.size(); ++i) {
    resultSeparators_[i]->place(layout.separators[i], x(), y());
    resultSeparators_[i]->show();
  }
}

void ResultsPanel::draw() {
  // Displays may overlap by a few empty pixels, so all of them are redrawn.
  clear_damage(FL_DAMAGE_ALL);
  fl_push_clip(x(), y(), w(), h());
  Fl_Group::draw();
  fl_pop_clip();
}

}  // namespace morvane
