#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/safe_file.h"
#include "export/gdi_plus.h"
#include "export/screen_picture.h"

namespace morvane {
namespace {

constexpr char kNoPicture[] = "The picture could not be made into a JPEG";

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
using ScreenContext = std::unique_ptr<HDC, ScreenReleaser>;
using MemoryContext = std::unique_ptr<HDC, ContextDeleter>;
using BitmapPtr = std::unique_ptr<HBITMAP, BitmapDeleter>;
using StreamPtr = std::unique_ptr<IStream, StreamReleaser>;

/// Keeps GDI+ running while it lives.
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

/// Finds GDI+'s encoder of JPEG files.
bool findJpegEncoder(CLSID& encoder) {
  UINT count = 0;
  UINT bytes = 0;
  if (Gdiplus::GetImageEncodersSize(&count, &bytes) != Gdiplus::Ok || bytes == 0) return false;
  // The list is followed by the texts it points to, in the same memory.
  const std::unique_ptr<void, decltype(&std::free)> memory(std::malloc(bytes), &std::free);
  auto* encoders = static_cast<Gdiplus::ImageCodecInfo*>(memory.get());
  if (encoders == nullptr || Gdiplus::GetImageEncoders(count, bytes, encoders) != Gdiplus::Ok) {
    return false;
  }
  const auto* end = encoders + count;
  const auto* jpeg = std::find_if(encoders, encoders + count, [](const auto& info) {
    return info.FormatID == Gdiplus::ImageFormatJPEG;
  });
  if (jpeg == end) return false;
  encoder = jpeg->Clsid;
  return true;
}

/// The JPEG file of a bitmap in the encoder's default quality; null on failure.
StreamPtr encodeJpeg(HBITMAP bitmap) {
  IStream* memory = nullptr;
  if (CreateStreamOnHGlobal(nullptr, TRUE, &memory) != S_OK) return nullptr;
  StreamPtr stream(memory);
  CLSID encoder{};
  Gdiplus::Bitmap image(bitmap, nullptr);
  if (!findJpegEncoder(encoder) || image.Save(memory, &encoder, nullptr) != Gdiplus::Ok) {
    return nullptr;
  }
  return stream;
}

class GdiPicture : public ScreenPicture {
 public:
  explicit GdiPicture(BitmapPtr bitmap) : bitmap_(std::move(bitmap)) {}

  void copyToClipboard() const override {
    if (OpenClipboard(nullptr) == 0) return;
    EmptyClipboard();
    // The clipboard keeps what it is given, so it gets a bitmap of its own.
    BitmapPtr copy(static_cast<HBITMAP>(CopyImage(bitmap_.get(), IMAGE_BITMAP, 0, 0, 0)));
    if (copy && SetClipboardData(CF_BITMAP, copy.get()) != nullptr) (void)copy.release();
    CloseClipboard();
  }

  [[nodiscard]] std::string saveJpeg(const std::string& path) const override {
    const GdiPlus gdiPlus;
    const StreamPtr stream = encodeJpeg(bitmap_.get());
    if (!stream || stream->Seek({}, STREAM_SEEK_SET, nullptr) != S_OK) return kNoPicture;
    SafeFile file(path);
    std::vector<unsigned char> piece(std::size_t{1} << 16);
    for (ULONG got = 1; got != 0;) {
      if (FAILED(stream->Read(piece.data(), static_cast<ULONG>(piece.size()), &got))) {
        return kNoPicture;
      }
      file.write(piece.data(), got);
    }
    return file.commit();
  }

 private:
  BitmapPtr bitmap_;
};

}  // namespace

std::unique_ptr<ScreenPicture> takeScreenPicture(Fl_Window* /*window*/, ScreenPoint corner,
                                                 int width, int height) {
  const ScreenContext screen(GetDC(nullptr));
  const MemoryContext memory(CreateCompatibleDC(screen.get()));
  BitmapPtr bitmap(CreateCompatibleBitmap(screen.get(), width, height));
  if (!screen || !memory || !bitmap) return nullptr;
  const HGDIOBJ previous = SelectObject(memory.get(), bitmap.get());
  const BOOL copied =
      BitBlt(memory.get(), 0, 0, width, height, screen.get(), corner.x, corner.y, SRCCOPY);
  // A bitmap that is still selected can be neither copied nor encoded.
  SelectObject(memory.get(), previous);
  if (copied == 0) return nullptr;
  return std::make_unique<GdiPicture>(std::move(bitmap));
}

}  // namespace morvane
