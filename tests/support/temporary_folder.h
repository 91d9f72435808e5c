// A folder for one test, removed with everything in it.
#pragma once

#include <filesystem>
#include <string>

namespace morvane {

class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] std::string file(const std::string& name) const { return (path_ / name).string(); }
  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  /// How many entries the folder has.
  [[nodiscard]] long entries() const;

 private:
  std::filesystem::path path_;
};

/// All bytes of a file as text; empty when there is none.
std::string contentOf(const std::string& path);

}  // namespace morvane
