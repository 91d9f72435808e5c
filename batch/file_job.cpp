#include "batch/file_job.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <glm/gtc/quaternion.hpp>
#include <glm/trigonometric.hpp>

#include "base/debug_log.h"
#include "base/file_io.h"
#include "base/number_text.h"
#include "base/paths.h"
#include "base/safe_file.h"
#include "export/moment_texts.h"
#include "export/pdf_report.h"
#include "export/picture_file.h"
#include "filter/band_filter.h"
#include "resfile/res_file.h"

namespace morvane {
namespace {

Camera cameraOf(const BatchOptions& options) {
  Camera camera;
  const glm::quat turn = glm::quat(glm::radians(options.turn));
  camera.rotation = turn * rotationOf(options.view);
  camera.distance /= options.zoom;
  camera.eye.z = camera.distance;
  panByPixels(camera, options.pan);
  return camera;
}

/// The output path of `file` for the pattern `out`.
std::string outputPath(std::string out, const std::string& file) {
  constexpr std::string_view kName = "{name}";
  const std::string name = suggestedName(file);
  for (std::size_t at = 0; (at = out.find(kName, at)) != std::string::npos; at += name.size()) {
    out.replace(at, kName.size(), name);
  }
  return out;
}

}  // namespace

/// A measurement as the options show it.
struct FileJobs::Shown {
  resFile file{logStream()};
  ShownSurface surface{logStream()};
  Tools tools{logStream()};
};

FileJobs::FileJobs(const BatchOptions& options, std::string font)
    : options_(options), font_(std::move(font)) {}

FileJobs::~FileJobs() = default;

std::string FileJobs::run(const std::string& file) {
  Shown shown;
  std::string reason = open(file, shown);
  const auto output = [&](const std::string& out, auto writer) {
    if (!reason.empty() || out.empty()) return;
    const std::string path = outputPath(out, file);
    reason = writer(path);
    if (!reason.empty()) reason = path + ": " + reason;
  };
  output(options_.picture, [&](const std::string& path) { return writePicture(shown, path); });
  output(options_.report, [&](const std::string& path) { return writeReport(shown, path); });
  return reason;
}

std::string FileJobs::open(const std::string& file, Shown& shown) const {
  if (!openForReading(file)) return std::strerror(errno);
  shown.file.update(file);
  if (!shown.file.isValid() || shown.file.grid() == nullptr) return shown.file.trouble();
  ShownSurface& surface = shown.surface;
  surface.show(shown.file.measurement());
  if (typeOf(options_.filter)) {
    FilterRun run = runFilter(options_.filter, surface.measurement(), logStream());
    if (run.status == FilterStatus::kNoMemory) return "there is not enough memory to filter it";
    surface.setFiltered(std::move(run.filtered), std::move(run.words));
    surface.setFilterEnabled(true);
  }
  if (options_.limits) surface.setCrop({true, options_.limits->x, options_.limits->y});
  if (!options_.bitmap.empty()) {
    if (!fileExists(options_.bitmap)) return options_.bitmap + ": there is no such file";
    surface.chooseBitmap(options_.bitmap);
    surface.setColourSource(ColourSource::kBitmap);
  }
  if (options_.scale) surface.setZScale(*options_.scale);
  shown.tools.follow(surface);
  return {};
}

std::string FileJobs::drawPicture(Shown& shown, RgbImage& picture) {
  if (!context_) {
    std::string trouble;
    context_ = OffscreenContext::create(trouble);
    if (!context_) return "no picture can be drawn here: " + trouble;
    painter_ = std::make_unique<ScenePainter>(font_);
  }
  PictureSettings settings;
  settings.width = options_.size.width;
  settings.height = options_.size.height;
  settings.camera = cameraOf(options_);
  settings.options.keyVisible = options_.key;
  settings.options.axesVisible = options_.axes;
  return painter_->draw(shown.surface, shown.tools, settings, picture);
}

std::string FileJobs::writePicture(Shown& shown, const std::string& path) {
  RgbImage picture;
  std::string reason = drawPicture(shown, picture);
  Bytes bytes;
  if (reason.empty()) reason = encodePicture(picture, path == "-" ? ".png" : path, bytes);
  return reason.empty() ? write(bytes, path) : reason;
}

std::string FileJobs::writeReport(Shown& shown, const std::string& path) {
  RgbImage picture;
  std::string reason = drawPicture(shown, picture);
  Bytes jpeg;
  if (reason.empty()) reason = encodePicture(picture, ".jpg", jpeg);
  if (!reason.empty()) return reason;
  const SurfaceLimits& limits = shown.surface.measured().limits();
  const bool typed = options_.limits.has_value();
  const ReportPage page =
      describePage({.moment = localNow(),
                    .measurementPath = shown.surface.measurement().path,
                    .zScale = shown.surface.zScale(),
                    .minimum = typed ? options_.limitTexts[0] : shownText(limits.trueMin, 1),
                    .maximum = typed ? options_.limitTexts[1] : shownText(limits.trueMax, 1)});
  PdfReport report;
  report.writeTexts(page, "");
  report.drawPicture(jpeg, page.picture);
  Bytes bytes;
  reason = report.encode(bytes);
  return reason.empty() ? write(bytes, path) : reason;
}

std::string FileJobs::write(const Bytes& bytes, const std::string& path) const {
  if (path == "-") {
    const bool whole = std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() &&
                       std::fflush(stdout) == 0;
    return whole ? std::string() : std::strerror(errno);
  }
  if (!options_.force && fileExists(path)) return "exists; --force replaces it";
  SafeFile file(path);
  file.write(bytes.data(), bytes.size());
  return file.commit();
}

}  // namespace morvane
