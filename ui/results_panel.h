// The column at the right edge of the main window that tells what was measured and computed.
#pragma once

#include <FL/Fl_Group.H>

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "resfile/measurement.h"
#include "results/layouts.h"

class Fl_Shared_Image;

namespace morvane {

class ColumnText;

/// The group of all displays. Move and size it like any group: what is in it moves along, is never
/// scaled, and is cut at the group's edges.
class ResultsPanel : public Fl_Group {
 public:
  /// Builds the column, hidden, with its place in the main window and nothing but the title and the
  /// header's labels in it. A missing icon file leaves the icon empty.
  explicit ResultsPanel(const std::string& exeFolder);
  ~ResultsPanel() override;

  /// Takes a copy of what the column tells about `measurement`; `showResults` puts it on display.
  void take(const Measurement& measurement);

  /// Shows header and results of the measurement taken last.
  void showResults();

  /// Puts every display back to its place and writes the header's labels.
  void reset();

  /// Hides the result rows and the separators among them.
  void hideResultRows();

  /// Writes the header's values, with `surfaceText` as the surface type.
  void fillHeader(std::string_view surfaceText);

  /// The picture that belongs to the column; null without its file.
  [[nodiscard]] const Fl_Shared_Image* icon() const { return icon_.get(); }

 protected:
  void draw() override;

 private:
  /// Returns a picture to the toolkit's cache.
  struct ReleaseImage {
    void operator()(Fl_Shared_Image* image) const;
  };
  struct RowDisplays {
    ColumnText* label = nullptr;
    ColumnText* value = nullptr;
  };

  void drawLayout(const ResultLayout& layout);

  ResHeader header_;
  ResResults results_;
  std::unique_ptr<Fl_Shared_Image, ReleaseImage> icon_;
  std::array<RowDisplays, kHeaderRows> headerDisplays_{};
  std::array<RowDisplays, kMaxResultRows> resultDisplays_{};
  std::array<ColumnText*, kHeaderSeparators.size()> headerSeparators_{};
  std::array<ColumnText*, kMaxResultSeparators> resultSeparators_{};
};

}  // namespace morvane
