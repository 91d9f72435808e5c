// Pictures of the screen: GDI's pixels, the clipboard, the JPEG file. Needs a display.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "export/gdi_plus.h"
#include "export/screen_capture.h"
#include "tests/support/temporary_folder.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

constexpr int kLeft = 100;
constexpr int kTop = 80;
constexpr int kWidth = 400;
constexpr int kHeight = 300;
constexpr int kSplit = 104;  // red on its left, green on its right

LRESULT CALLBACK paint(HWND window, UINT message, WPARAM word, LPARAM data) {
  if (message != WM_PAINT) return DefWindowProcW(window, message, word, data);
  PAINTSTRUCT area{};
  HDC context = BeginPaint(window, &area);
  const auto fill = [context](RECT box, COLORREF colour) {
    HBRUSH brush = CreateSolidBrush(colour);
    FillRect(context, &box, brush);
    DeleteObject(brush);
  };
  fill({0, 0, kSplit, kHeight}, RGB(255, 0, 0));
  fill({kSplit, 0, kWidth, kHeight}, RGB(0, 255, 0));
  EndPaint(window, &area);
  return 0;
}

bool isNear(COLORREF colour, int r, int g, int b) {
  return std::abs(GetRValue(colour) - r) + std::abs(GetGValue(colour) - g) +
             std::abs(GetBValue(colour) - b) <
         60;
}
bool isRed(COLORREF colour) { return isNear(colour, 255, 0, 0); }
bool isGreen(COLORREF colour) { return isNear(colour, 0, 255, 0); }

class ScreenCapture : public testing::Test {
 protected:
  ScreenCapture() {
    // The name of the user has letters outside ASCII and is part of every path.
    profile_ = folder_.path() / L"J\u00f6rg \u6e2c";
    fs::create_directory(profile_);
    _wputenv((L"USERPROFILE=" + profile_.wstring()).c_str());
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&gdiPlus_, &input, nullptr);

    WNDCLASSW kind{};
    kind.lpfnWndProc = paint;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.lpszClassName = L"split";
    RegisterClassW(&kind);
    window_ = CreateWindowExW(WS_EX_TOPMOST, L"split", L"", WS_POPUP | WS_VISIBLE, kLeft, kTop,
                              kWidth, kHeight, nullptr, nullptr, kind.hInstance, nullptr);
    settle();
  }
  ~ScreenCapture() override {
    DestroyWindow(window_);
    Gdiplus::GdiplusShutdown(gdiPlus_);
  }

  /// Waits until the screen itself shows the window.
  void settle() const {
    const HDC screen = GetDC(nullptr);
    const auto pixel = [screen](int x, int y) { return GetPixel(screen, kLeft + x, kTop + y); };
    for (int i = 0; i < 400; ++i) {
      MSG message;
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) DispatchMessageW(&message);
      if (isRed(pixel(1, 1)) && isGreen(pixel(kWidth - 2, kHeight - 2))) break;
      RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
      Sleep(10);
    }
    EXPECT_TRUE(isRed(pixel(1, 1)));
    ReleaseDC(nullptr, screen);
  }

  [[nodiscard]] fs::path pictures() const {
    return profile_ / L"Documents" / L"Morvane_Reader" / L"Screenshots";
  }

  TemporaryFolder folder_;
  fs::path profile_;
  ULONG_PTR gdiPlus_ = 0;
  HWND window_ = nullptr;
};

TEST_F(ScreenCapture, SavesWhatTheScreenShowsAndLeavesItOnTheClipboard) {
  ScreenPart own{{300, 200}, RgbImage(50, 60)};  // black
  const Screenshot shot = captureScreenRect({140, 90}, {140 + 341, 90 + 253}, nullptr, {&own, 1});
  ASSERT_EQ(shot.reason, "");
  ASSERT_EQ(std::distance(fs::directory_iterator(pictures()), fs::directory_iterator()), 1);
  const fs::path file = fs::directory_iterator(pictures())->path();
  EXPECT_EQ(shot.path, file.string());
  {
    Gdiplus::Bitmap image(file.c_str());
    ASSERT_EQ(image.GetWidth(), 341U);
    ASSERT_EQ(image.GetHeight(), 253U);
    GUID format{};
    image.GetRawFormat(&format);
    EXPECT_EQ(format, Gdiplus::ImageFormatJPEG);
    const auto at = [&image](int x, int y) {
      Gdiplus::Color colour;
      image.GetPixel(x, y, &colour);
      return colour.ToCOLORREF();
    };
    const int split = kSplit - 40;
    for (const int y : {0, 120, 252}) {
      EXPECT_TRUE(isRed(at(0, y))) << y;
      EXPECT_TRUE(isRed(at(split - 2, y))) << y;
      EXPECT_TRUE(isGreen(at(split + 1, y))) << y;
      EXPECT_TRUE(isGreen(at(340, y))) << y;
    }
    EXPECT_TRUE(isNear(at(185, 140), 0, 0, 0));
  }

  ASSERT_NE(OpenClipboard(nullptr), 0);
  auto* bitmap = static_cast<HBITMAP>(GetClipboardData(CF_BITMAP));
  BITMAP facts{};
  ASSERT_NE(GetObjectW(bitmap, sizeof(facts), &facts), 0);
  EXPECT_EQ(facts.bmWidth, 341);
  EXPECT_EQ(facts.bmHeight, 253);
  const HDC context = CreateCompatibleDC(nullptr);
  const HGDIOBJ previous = SelectObject(context, bitmap);
  EXPECT_EQ(GetPixel(context, kSplit - 41, 200), RGB(255, 0, 0));
  EXPECT_EQ(GetPixel(context, kSplit - 40, 200), RGB(0, 255, 0));
  EXPECT_NE(IsClipboardFormatAvailable(RegisterClipboardFormatW(L"PNG")), 0);
  SelectObject(context, previous);
  DeleteDC(context);
  CloseClipboard();
}

TEST_F(ScreenCapture, SaysWhyThereIsNone) {
  EXPECT_NE(captureScreenRect({200, 200}, {200, 300}).reason, "");
  EXPECT_NE(captureScreenRect({0, 0}, {100'000, 100}).reason, "");
  const Screenshot before = captureScreenRect({140, 90}, {120, 60});  // corners the other way round
  EXPECT_EQ(before.reason, "");

  // A file where the folder should be.
  fs::remove_all(pictures());
  std::ofstream(pictures()) << "no folder";
  const Screenshot unsaved = captureScreenRect({140, 90}, {240, 190});
  EXPECT_EQ(unsaved.path, "");
  EXPECT_NE(unsaved.reason, "");
  EXPECT_FALSE(unsaved.jpeg.empty());
}

}  // namespace
}  // namespace morvane
