// The report as a PDF document, built in memory and saved at the end.
#pragma once

#include <hpdf.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "export/report_page.h"

namespace morvane {

/// Logs an error of libharu to standard output. The report continues without the failed part.
void pdfErrorHandler(HPDF_STATUS errorNo, HPDF_STATUS detailNo, void* userData);

/// A document of one page. Every step writes to the log. Errors go to `pdfErrorHandler` and do not
/// affect the rest of the page.
class PdfReport {
 public:
  /// Creates the document with an empty page.
  PdfReport();
  ~PdfReport();
  PdfReport(const PdfReport&) = delete;
  PdfReport& operator=(const PdfReport&) = delete;

  /// Writes the page's texts. `maximumInput` is the text of the maximum input, which is logged as
  /// it is.
  void writeTexts(const ReportPage& page, std::string_view maximumInput);

  /// Draws the JPEG file `jpeg`, stretched to `box`. If it is not a valid JPEG the box stays empty.
  void drawPicture(std::span<const unsigned char> jpeg, const PageBox& box);

  /// Writes the finished document to `file`. Returns an empty text on success, else the error
  /// message.
  [[nodiscard]] std::string encode(Bytes& file);

  /// Saves the document as `path` (UTF-8), which appears only when it is complete. Returns an empty
  /// text on success, else the error message.
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
