#include "export/pdf_report.h"

#include <array>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "base/debug_log.h"
#include "base/safe_file.h"
#include "export/win_ansi.h"

namespace morvane {
namespace {

constexpr char kFont[] = "Helvetica";
constexpr std::size_t kPieceBytes = std::size_t{1} << 16;
constexpr const char* kLogFile = "pdf_report.log";

}  // namespace

void pdfErrorHandler(HPDF_STATUS errorNo, HPDF_STATUS detailNo, void* /*userData*/) {
  std::array<char, 80> line{};
  std::snprintf(line.data(), line.size(), "ERROR: error_no=%04X, detail_no=%d\n",
                static_cast<unsigned>(errorNo), static_cast<int>(detailNo));
  logStream() << line.data();
}

void PdfReport::DocumentFreer::operator()(HPDF_Doc document) const {
  // libharu does not free a document completely while it has an error.
  HPDF_ResetError(document);
  HPDF_Free(document);
}

PdfReport::PdfReport() : document_(HPDF_New(pdfErrorHandler, nullptr)) {
  if (!document_) DebugLog::write(kLogFile, "## - Error cannot create new PDF");
  HPDF_SetCompressionMode(document_.get(), HPDF_COMP_ALL);
  HPDF_SetPageMode(document_.get(), HPDF_PAGE_MODE_USE_OUTLINE);
  DebugLog::write(kLogFile, "Creating page_1");
  page_ = HPDF_AddPage(document_.get());
  font_ = HPDF_GetFont(document_.get(), kFont, nullptr);
  HPDF_Page_SetSize(page_, HPDF_PAGE_SIZE_A4, HPDF_PAGE_LANDSCAPE);
}

PdfReport::~PdfReport() {
  DebugLog::write(kLogFile, "Freeing HPDF memory");
  document_.reset();
  DebugLog::write(kLogFile, "Memory Free Successfull\nDeconstructing File Chooser");
}

void PdfReport::writeTexts(const ReportPage& page, std::string_view maximumInput) {
  DebugLog::write(kLogFile, "Beginning text on Page_1");
  HPDF_Page_BeginText(page_);
  for (const PageText& text : page.texts) drawText(text);
  DebugLog::write(kLogFile, "cropMaxFormat:" + std::string(maximumInput));
  HPDF_Page_EndText(page_);
  DebugLog::write(kLogFile, "Finished writing to Page_1");
}

void PdfReport::drawText(const PageText& text) {
  const std::string bytes = winAnsiText(text.text);
  HPDF_Page_SetFontAndSize(page_, fontFor(bytes), text.size);
  float x = text.x;
  if (text.align == PageAlign::kCentre) x -= HPDF_Page_TextWidth(page_, bytes.c_str()) / 2;
  HPDF_Page_TextOut(page_, x, text.y, bytes.c_str());
}

HPDF_Font PdfReport::fontFor(std::string_view bytes) {
  // The font's built-in encoding only has ASCII letters, although the font has more.
  if (isStandardText(bytes)) return font_;
  return HPDF_GetFont(document_.get(), kFont, "WinAnsiEncoding");
}

void PdfReport::drawPicture(std::span<const unsigned char> jpeg, const PageBox& box) {
  DebugLog::write(kLogFile, "Loading screenshot from JPEG...");
  HPDF_Image image = nullptr;
  // libharu accepts a JPEG of 0 bytes.
  if (!jpeg.empty()) {
    image = HPDF_LoadJpegImageFromMem(document_.get(), jpeg.data(),
                                      static_cast<HPDF_UINT>(jpeg.size()));
  }
  // libharu reports no error for data without a JPEG header.
  if (image == nullptr && HPDF_GetError(document_.get()) == HPDF_OK) {
    pdfErrorHandler(HPDF_INVALID_JPEG_DATA, 0, nullptr);
  }
  DebugLog::write(kLogFile, "Screenshot loaded");
  if (image != nullptr) HPDF_Page_DrawImage(page_, image, box.x, box.y, box.width, box.height);
  // An error here must not prevent saving.
  HPDF_ResetError(document_.get());
}

std::string PdfReport::encode(Bytes& file) {
  constexpr const char* kTrouble = "The PDF document could not be made";
  file.clear();
  if (!document_ || HPDF_SaveToStream(document_.get()) != HPDF_OK) return kTrouble;
  HPDF_ResetStream(document_.get());
  file.resize(HPDF_GetStreamSize(document_.get()));
  std::size_t done = 0;
  while (done < file.size()) {
    auto got = static_cast<HPDF_UINT32>(file.size() - done);
    HPDF_ReadFromStream(document_.get(), file.data() + done, &got);
    if (got == 0 || got > file.size() - done) return kTrouble;
    done += got;
  }
  return {};
}

std::string PdfReport::save(const std::string& path) {
  Bytes bytes;
  const std::string reason = encode(bytes);
  if (!reason.empty()) return reason;
  SafeFile file(path);
  file.write(bytes.data(), bytes.size());
  return file.commit();
}

}  // namespace morvane
