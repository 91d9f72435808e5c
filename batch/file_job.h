// What the command line does with one file.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "batch/options.h"
#include "export/results_table.h"
#include "export/scene_picture.h"
#include "view/offscreen_context.h"

namespace morvane {

/// Does the outputs of many files in turn; pictures share one GL context, made at first use.
class FileJobs {
 public:
  /// `font` is the font of texts in pictures. `options` must outlive this object.
  FileJobs(const BatchOptions& options, const std::string& font);
  ~FileJobs();
  FileJobs(const FileJobs&) = delete;
  FileJobs& operator=(const FileJobs&) = delete;

  /// Writes all outputs of `file`. Returns an empty text on success, else the reason of the first
  /// failure; outputs after it are not written.
  std::string run(const std::string& file);

  /// Writes the outputs that hold what all files so far had. Returns the reason of a failure with
  /// the output's name, else an empty text.
  [[nodiscard]] std::string finish() const;

 private:
  struct Shown;
  [[nodiscard]] std::string open(const std::string& file, Shown& shown) const;
  [[nodiscard]] std::string showSection(Shown& shown) const;
  std::string drawPicture(Shown& shown, RgbImage& picture);
  std::string makePicture(Shown& shown, const std::string& path, Bytes& bytes);
  std::string makeReport(Shown& shown, Bytes& bytes);
  std::string writeOutputs(const std::string& file, Shown& shown);

  const BatchOptions& options_;
  // The GL objects are deleted before their context.
  std::unique_ptr<OffscreenContext> context_;
  Scene scene_;
  ScenePainter painter_{scene_};
  // Of the files so far.
  std::vector<FileResults> results_;
  std::vector<std::string> infos_;
};

}  // namespace morvane
