// Runs a fuzz target on every file of the given folders, without libFuzzer.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "tests/support/temporary_folder.h"
#include "tools/usage.h"

// NOLINTNEXTLINE(readability-identifier-naming): the name is libFuzzer's.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
  constexpr const char* kUse =
      "TARGET_replay FOLDER...\n"
      "Runs a fuzz target on every file of the folders.";
  if (const auto status = morvane::toldUse(argc, argv, argc > 1, kUse)) return *status;
  int files = 0;
  for (int i = 1; i < argc; ++i) {
    // A target without findings has no folder for them.
    std::error_code missing;
    for (const auto& entry : std::filesystem::directory_iterator(argv[i], missing)) {
      // Printed first, so that the name is known if the run ends here.
      std::printf("%s\n", entry.path().string().c_str());
      std::fflush(stdout);
      const std::string bytes = morvane::contentOf(entry.path().string());
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
      ++files;
    }
  }
  std::printf("%d files\n", files);
  return files > 0 ? 0 : 1;
}
