// The report as a PDF document, built in memory step by step and saved at the end.
#pragma once

#include <hpdf.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "export/report_page.h"

namespace morvane {

/// Writes what went wrong inside libharu to standard output. Nothing else comes of it: the report
/// goes on with what it has.
void pdfErrorHandler(HPDF_STATUS errorNo, HPDF_STATUS detailNo, void* userData);

/// A document of one page. Every step writes its lines to the log; what fails goes to
/// `pdfErrorHandler` and leaves the rest of the page as it should be.
class PdfReport {
 public:
  /// Makes the document and its empty page.
  PdfReport();
  ~PdfReport();
  PdfReport(const PdfReport&) = delete;
  PdfReport& operator=(const PdfReport&) = delete;

  /// Writes the page's texts. `maximumInput` is what the maximum input holds, which the log keeps
  /// as it stands there.
  void writeTexts(const ReportPage& page, std::string_view maximumInput);

  /// Draws a JPEG file's bytes into `box`, stretched to it. Where they are no JPEG, the box stays
  /// empty.
  void drawPicture(std::span<const unsigned char> jpeg, const PageBox& box);

  /// Saves the document as `path` (UTF-8), which appears only when it is complete. Empty on
  /// success, else the reason.
  [[nodiscard]] std::string save(const std::string& path);

 private:
  struct DocumentFreer {
    using pointer = HPDF_Doc;
    void operator()(HPDF_Doc document) const;
  };

  void drawText(const PageText& text);
  [[nodiscard]] HPDF_Font fontFor(std::string_view bytes);

  // The page and the fonts belong to the document.
  std::unique_ptr<HPDF_Doc, DocumentFreer> document_;
  HPDF_Page page_ = nullptr;
  HPDF_Font font_ = nullptr;
};

}  // namespace morvane
