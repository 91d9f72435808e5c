// File names with letters outside ASCII and either separator, and errors of the system.
#include <gtest/gtest.h>
#include <windows.h>

#include <cerrno>
#include <filesystem>
#include <sstream>
#include <string>

#include "base/file_copy.h"
#include "base/folders.h"
#include "base/paths.h"
#include "base/safe_file.h"
#include "base/utf8_win32.h"
#include "resfile/bitmap_image.h"
#include "tests/support/reader.h"
#include "tests/support/temporary_folder.h"
#include "tools/measurement_builder.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

// Two western European letters, one that is in no 8-bit code page, one beyond 16 bits.
constexpr wchar_t kWideName[] = L"T\u00fcr \u00df \u6e2c \U0001f697.res";
constexpr char kName[] = "T\xc3\xbcr \xc3\x9f \xe6\xb8\xac \xf0\x9f\x9a\x97.res";

MeasurementContent smallContent() {
  MeasurementContent content;
  content.width = 3;
  content.height = 2;
  content.heights = {1.5, 2.5, 3.5, 4.5, 5.5, 6.5};
  return content;
}

std::string backslashes(std::string path) {
  for (char& c : path) c = c == '/' ? '\\' : c;
  return path;
}

TEST(FileNames, BeyondAsciiAreWrittenReadCopiedAndCompared) {
  EXPECT_EQ(utf8Text(kWideName), kName);
  const TemporaryFolder folder;
  const std::string path = backslashes(folder.path().string()) + '\\' + kName;
  writeBytes(path, encodeMeasurement(smallContent()));
  ASSERT_TRUE(fs::exists(folder.path() / fs::path(kWideName)));

  const Reader reader(path);
  ASSERT_TRUE(reader.file.isValid()) << reader.log.str();
  EXPECT_EQ(reader.file.grid()->values()[5], 6.5);
  EXPECT_EQ(fileNameOf(path), kName);
  EXPECT_EQ(folderOf(path), backslashes(folder.path().string()));

  const std::string copy = folderOf(path) + "/copy of " + kName;
  EXPECT_EQ(copyFile(path, copy), "");
  EXPECT_EQ(copyFile(path, copy), "");  // replaces the existing file
  EXPECT_EQ(fs::file_size(folder.path() / (L"copy of " + std::wstring(kWideName))),
            fs::file_size(folder.path() / kWideName));
  EXPECT_EQ(folder.entries(), 2);
  EXPECT_TRUE(isSameFile(path, folderOf(path) + '/' + kName));
  EXPECT_FALSE(isSameFile(path, copy));

  const std::string bitmap = folderOf(path) + "\\\xc3\x84.bmp";
  writeBytes(bitmap, encodeMeasurement(smallContent()));
  std::ostringstream log;
  BitmapImage image(log);
  image.readBitmap(bitmap);
  EXPECT_NE(log.str().find("File not Bitmap Format!"), std::string::npos);  // found and read
  removeFile(bitmap);
  EXPECT_FALSE(fileExists(bitmap));
}

TEST(FileNames, OfTheUsersFoldersMayHoldAnyLetter) {
  const TemporaryFolder folder;
  const std::wstring profile = folder.path().wstring() + L"\\J\u00f6rg \u6e2c";
  ASSERT_EQ(_wputenv((L"USERPROFILE=" + profile).c_str()), 0);
  EXPECT_EQ(userProfileFolder(), utf8Text(profile.c_str()));
  EXPECT_EQ(savedFilesFolder(),
            utf8Text(profile.c_str()) + "\\Documents\\Morvane_Reader\\Saved Files");
  std::ostringstream log;
  EXPECT_TRUE(makeFolder(savedFilesFolder(), log));
  EXPECT_TRUE(fs::is_directory(profile + L"\\Documents\\Morvane_Reader\\Saved Files")) << log.str();
  EXPECT_EQ(environmentText("MORVANE_IS_NOT_SET"), "");
}

TEST(Refusals, OfASaveGiveTheReasonAndLeaveTheOldFile) {
  const TemporaryFolder folder;
  const std::string target = folder.file("kept.res");
  const auto refusal = [&target] {
    SafeFile file(target);
    file.write("new", 3);
    return file.commit();
  };
  ASSERT_EQ(refusal(), "");
  const std::wstring name = (folder.path() / "kept.res").wstring();

  ASSERT_NE(SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_READONLY), 0);
  EXPECT_EQ(refusal(), "Permission denied");
  SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL);

  // Open in another program that does not share it.
  HANDLE other = CreateFileW(name.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(other, INVALID_HANDLE_VALUE);
  EXPECT_EQ(refusal(), "Permission denied");
  CloseHandle(other);
  EXPECT_EQ(contentOf(target), "new");
  EXPECT_EQ(folder.entries(), 1);

  errno = 0;
  EXPECT_FALSE(replaceFile(folder.file("none.res"), target));
  EXPECT_EQ(errno, ENOENT);
  EXPECT_FALSE(replaceFile(target, folder.file("no folder/x.res")));
  EXPECT_EQ(errno, ENOENT);
}

TEST(Refusals, WhatIsNoFileIsNotRead) {
  const TemporaryFolder folder;
  for (const std::string& path :
       {folder.path().string(), folder.file("none.res"), folder.file("a?b.res"), std::string("NUL"),
        std::string("\xff.res"), std::string()}) {
    const Reader reader(path);
    EXPECT_EQ(reader.file.grid(), nullptr) << path;
    EXPECT_NE(reader.log.str().find("ERROR: FILE CANNOT BE OPENED"), std::string::npos) << path;
  }
}

}  // namespace
}  // namespace morvane
