// The results column at the right edge of the main window.
#pragma once

#include <FL/Fl_Group.H>

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "resfile/measurement.h"
#include "results/layouts.h"

class Fl_Shared_Image;

namespace morvane {

class ColumnText;

/// The group of all displays. When it is moved or resized its children move along. They are never
/// scaled, and are clipped at the group's edges.
class ResultsPanel : public Fl_Group {
 public:
  /// Creates the column, hidden, at its place in the main window. It shows only the title and the
  /// header's labels. The icon is empty when its file is missing.
  explicit ResultsPanel(const std::string& exeFolder);
  ~ResultsPanel() override;

  /// Copies what the column shows of `measurement`; `showResults` displays it.
  void take(const Measurement& measurement);

  /// Shows header and results of the last measurement taken.
  void showResults();

  /// Moves the header's displays to their places and writes the labels.
  void reset();

  /// Hides the result rows and the separators among them.
  void hideResultRows();

  /// Writes the header's values, with `surfaceText` as the surface type.
  void fillHeader(std::string_view surfaceText);

  /// The icon of the column; null when its file is missing.
  [[nodiscard]] const Fl_Shared_Image* icon() const { return icon_.get(); }

 protected:
  void draw() override;

 private:
  /// Releases a picture to FLTK's image cache.
  struct ReleaseImage {
    void operator()(Fl_Shared_Image* image) const;
  };
  struct RowDisplays {
    ColumnText* label = nullptr;
    ColumnText* value = nullptr;
  };

  void makeDisplays(const ResultLayout& layout);
  void drawLayout(const ResultLayout& layout);

  ResHeader header_;
  ResResults results_;
  std::unique_ptr<Fl_Shared_Image, ReleaseImage> icon_;
  std::array<RowDisplays, kHeaderRows> headerDisplays_{};
  std::array<ColumnText*, kHeaderSeparators.size()> headerSeparators_{};
  std::vector<RowDisplays> resultDisplays_;  // as many as the longest layout so far has needed
  std::vector<ColumnText*> resultSeparators_;
};

}  // namespace morvane
