#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "export/gdi_plus.h"
#include "export/screen_picture.h"

namespace morvane {
namespace {

struct ScreenReleaser {
  using pointer = HDC;
  void operator()(HDC context) const { ReleaseDC(nullptr, context); }
};
struct ContextDeleter {
  using pointer = HDC;
  void operator()(HDC context) const { DeleteDC(context); }
};
struct BitmapDeleter {
  using pointer = HBITMAP;
  void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
struct StreamReleaser {
  void operator()(IStream* stream) const { stream->Release(); }
};
struct MemoryFreer {
  using pointer = HGLOBAL;
  void operator()(HGLOBAL memory) const { GlobalFree(memory); }
};
using ScreenContext = std::unique_ptr<HDC, ScreenReleaser>;
using MemoryContext = std::unique_ptr<HDC, ContextDeleter>;
using BitmapPtr = std::unique_ptr<HBITMAP, BitmapDeleter>;
using StreamPtr = std::unique_ptr<IStream, StreamReleaser>;
using MemoryPtr = std::unique_ptr<HGLOBAL, MemoryFreer>;

/// Starts GDI+ and shuts it down in the destructor.
class GdiPlus {
 public:
  GdiPlus() {
    const Gdiplus::GdiplusStartupInput input;
    running_ = Gdiplus::GdiplusStartup(&token_, &input, nullptr) == Gdiplus::Ok;
  }
  ~GdiPlus() {
    if (running_) Gdiplus::GdiplusShutdown(token_);
  }
  GdiPlus(const GdiPlus&) = delete;
  GdiPlus& operator=(const GdiPlus&) = delete;

 private:
  ULONG_PTR token_ = 0;
  bool running_ = false;
};

/// Finds the GDI+ encoder of a format.
bool findEncoder(const GUID& format, CLSID& encoder) {
  UINT count = 0;
  UINT bytes = 0;
  if (Gdiplus::GetImageEncodersSize(&count, &bytes) != Gdiplus::Ok || bytes == 0) return false;
  // The same memory also holds the texts to which the list points.
  const std::unique_ptr<void, decltype(&std::free)> memory(std::malloc(bytes), &std::free);
  auto* encoders = static_cast<Gdiplus::ImageCodecInfo*>(memory.get());
  if (encoders == nullptr || Gdiplus::GetImageEncoders(count, bytes, encoders) != Gdiplus::Ok) {
    return false;
  }
  const auto* end = encoders + count;
  const auto* found = std::find_if(encoders, encoders + count,
                                   [&](const auto& info) { return info.FormatID == format; });
  if (found == end) return false;
  encoder = found->Clsid;
  return true;
}

/// The whole content of a stream; empty when it cannot be read.
Bytes contentOf(IStream& stream) {
  STATSTG facts{};
  if (stream.Stat(&facts, STATFLAG_NONAME) != S_OK ||
      stream.Seek({}, STREAM_SEEK_SET, nullptr) != S_OK) {
    return {};
  }
  Bytes bytes(static_cast<std::size_t>(facts.cbSize.QuadPart));
  ULONG got = 0;
  if (FAILED(stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), &got))) return {};
  bytes.resize(got);
  return bytes;
}

/// Encodes a picture in a format of GDI+ with the encoder's default quality. Empty on failure.
Bytes encode(const RgbImage& image, const GUID& format) {
  const GdiPlus gdiPlus;
  Bytes bitmap = bitmapFile(image);
  Gdiplus::Bitmap source(reinterpret_cast<const BITMAPINFO*>(bitmap.data() + kBitmapFileHeader),
                         bitmap.data() + kBitmapHeaders);
  IStream* memory = nullptr;
  if (CreateStreamOnHGlobal(nullptr, TRUE, &memory) != S_OK) return {};
  const StreamPtr stream(memory);
  CLSID encoder{};
  if (!findEncoder(format, encoder) || source.Save(memory, &encoder, nullptr) != Gdiplus::Ok) {
    return {};
  }
  return contentOf(*stream);
}

/// Adds one format of the picture to the open clipboard.
void offer(UINT form, const unsigned char* bytes, std::size_t count) {
  MemoryPtr memory(GlobalAlloc(GMEM_MOVEABLE, count));
  void* place = memory ? GlobalLock(memory.get()) : nullptr;
  if (place == nullptr) return;
  std::memcpy(place, bytes, count);
  GlobalUnlock(memory.get());
  // The clipboard owns the memory now.
  if (SetClipboardData(form, memory.get()) != nullptr) (void)memory.release();
}

}  // namespace

ScreenPart readScreen(Fl_Window* /*window*/, const ScreenRect& wanted) {
  const int width = wanted.bottomRight.x - wanted.topLeft.x;
  const int height = wanted.bottomRight.y - wanted.topLeft.y;
  BITMAPINFO form{};
  // Top row first, 32 bits per pixel.
  form.bmiHeader = {sizeof form.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const ScreenContext screen(GetDC(nullptr));
  const MemoryContext memory(CreateCompatibleDC(screen.get()));
  const BitmapPtr bitmap(CreateDIBSection(screen.get(), &form, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!screen || !memory || !bitmap) return {};
  const HGDIOBJ previous = SelectObject(memory.get(), bitmap.get());
  const BOOL copied = BitBlt(memory.get(), 0, 0, width, height, screen.get(), wanted.topLeft.x,
                             wanted.topLeft.y, SRCCOPY);
  GdiFlush();
  SelectObject(memory.get(), previous);
  if (copied == 0) return {};
  ScreenPart part{wanted.topLeft, RgbImage(width, height)};
  const auto* from = static_cast<const unsigned char*>(bits);
  for (unsigned char* to = part.image.pixels.data();
       to != part.image.pixels.data() + part.image.pixels.size(); to += 3, from += 4) {
    to[0] = from[2];
    to[1] = from[1];
    to[2] = from[0];
  }
  return part;
}

void copyToClipboard(const RgbImage& image) {
  const Bytes png = encodePng(image);
  const Bytes bitmap = bitmapFile(image);
  if (OpenClipboard(nullptr) == 0) return;
  EmptyClipboard();
  // Windows converts this to CF_BITMAP on request.
  offer(CF_DIB, bitmap.data() + kBitmapFileHeader, bitmap.size() - kBitmapFileHeader);
  if (!png.empty()) offer(RegisterClipboardFormatW(L"PNG"), png.data(), png.size());
  CloseClipboard();
}

Bytes encodePng(const RgbImage& image) { return encode(image, Gdiplus::ImageFormatPNG); }

std::string encodeJpeg(const RgbImage& image, Bytes& file) {
  file = encode(image, Gdiplus::ImageFormatJPEG);
  return file.empty() ? "The picture could not be made into a JPEG" : "";
}

}  // namespace morvane
