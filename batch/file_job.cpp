#include "batch/file_job.h"

#include <cerrno>
#include <cstring>
#include <glm/gtc/quaternion.hpp>
#include <glm/trigonometric.hpp>

#include "base/debug_log.h"
#include "base/file_io.h"
#include "base/number_text.h"
#include "base/paths.h"
#include "batch/output.h"
#include "export/formats.h"
#include "export/info_json.h"
#include "export/moment_texts.h"
#include "export/pdf_report.h"
#include "export/picture_file.h"
#include "export/section_table.h"
#include "filter/filter_hint.h"
#include "geometry/drawn_surface.h"
#include "resfile/res_file.h"

namespace morvane {
namespace {

// Pixels. File managers show such pictures. They are drawn fast, and have little room for texts.
constexpr int kSmallPicture = 512 * 512;

/// The camera for a picture with a view of `height` pixels.
Camera cameraOf(const BatchOptions& options, ShownSurface& shown, int height) {
  Camera camera;
  const glm::quat turn = glm::quat(glm::radians(options.turn));
  camera.rotation = turn * rotationOf(options.view);
  if (options.fit) fit(camera, drawnHeights(shown), options.size.width, height, options.key);
  camera.distance /= options.zoom;
  camera.eye.z = camera.distance;
  panByPixels(camera, options.pan);
  return camera;
}

/// An output in messages.
std::string nameOf(const std::string& path) { return path == "-" ? "standard output" : path; }

/// Why a filter cannot be used on a measurement; empty when it can.
std::string filterTrouble(const FilterSettings& filter, const ResHeader& header) {
  std::string hint = filterHint(filter, header);
  if (hint.empty()) return {};
  hint.pop_back();  // its full stop
  const std::string cutOffs = filter.bandPass ? filter.l1 + ',' + filter.l2 : filter.l1;
  const char* option = filter.lowPass ? "--low-pass " : "--high-pass ";
  return (filter.bandPass ? "--band-pass " : option) + cutOffs + ": " + hint;
}

std::string pointText(const glm::dvec2& point) {
  std::string text;
  appendRounded(text, point.x);
  appendRounded(text += ',', point.y);
  return text;
}

CsvStyle tableStyle(const BatchOptions& options) {
  return options.semicolon ? kSemicolons : CsvStyle{};
}

}  // namespace

/// A measurement as the options show it.
struct FileJobs::Shown {
  resFile file{logStream()};
  ShownSurface surface{logStream()};
  Tools tools{logStream()};
  ExportSource numbers{};
};

FileJobs::FileJobs(const BatchOptions& options, const std::string& font) : options_(options) {
  scene_.setFont(font);
}

FileJobs::~FileJobs() = default;

std::string FileJobs::run(const std::string& file) {
  Shown shown;
  std::string reason = open(file, shown);
  if (reason.empty()) reason = showSection(shown);
  if (reason.empty()) reason = writeOutputs(file, shown);
  if (!reason.empty()) return reason;
  if (!options_.results.empty()) results_.push_back(fileResults(shown.numbers.measurement));
  if (options_.info) infos_.push_back(infoObject(shown.numbers));
  return {};
}

std::string FileJobs::writeOutputs(const std::string& file, Shown& shown) {
  const ExportSource& numbers = shown.numbers;
  std::string reason;
  const auto output = [&](const std::string& pattern, const auto& write) {
    if (!reason.empty() || pattern.empty()) return;
    const std::string path = outputPath(pattern, file);
    reason = write(path);
    if (!reason.empty()) reason = nameOf(path) + ": " + reason;
  };
  const auto numbersTo = [&](auto* write) {
    return [&numbers, &file, write, this](const std::string& path) {
      return writeOutput(path, file, options_.force, [&](ByteSink& sink) { write(numbers, sink); });
    };
  };
  const auto bytesFrom = [&](const auto& make) {
    return [&, make](const std::string& path) {
      // Told before the picture is drawn.
      std::string trouble = outputTrouble(path, file, options_.force);
      Bytes bytes;
      if (trouble.empty()) trouble = make(path, bytes);
      if (!trouble.empty()) return trouble;
      return writeOutput(path, file, options_.force,
                         [&](ByteSink& sink) { sink.write(bytes.data(), bytes.size()); });
    };
  };
  output(options_.section, numbersTo(writeSection));
  const std::string heightsName = options_.heights == "-" ? "-.xyz" : options_.heights;
  if (const ExportFormat* format = exportFormat(ExportKind::kHeights, heightsName)) {
    output(options_.heights, numbersTo(format->write));
  }
  output(options_.picture, bytesFrom([&](const std::string& path, Bytes& bytes) {
           return makePicture(shown, path, bytes);
         }));
  output(options_.report, bytesFrom([&](const std::string& /*path*/, Bytes& bytes) {
           return makeReport(shown, bytes);
         }));
  return reason;
}

std::string FileJobs::finish() const {
  std::string reason;
  if (!results_.empty()) {
    reason = writeOutput(options_.results, "", options_.force, [&](ByteSink& sink) {
      writeResults(results_, tableStyle(options_), sink);
    });
    if (!reason.empty()) return nameOf(options_.results) + ": " + reason;
  }
  if (infos_.empty()) return {};
  reason = writeOutput("-", "", options_.force, [&](ByteSink& sink) {
    const std::string document = infoDocument(infos_, options_.files.size() > 1);
    sink.write(document.data(), document.size());
  });
  return reason.empty() ? "" : nameOf("-") + ": " + reason;
}

std::string FileJobs::showSection(Shown& shown) const {
  shown.numbers = exportSource(shown.surface);
  shown.numbers.csv = tableStyle(options_);
  if (!options_.from) return {};
  const ExportSource& numbers = shown.numbers;
  const auto outside = [&numbers](const char* option, const glm::dvec2& end) -> std::string {
    if (sectionBetween(numbers, end, end)) return {};
    const ResHeader& header = numbers.measurement.header;
    const double right = static_cast<double>(numbers.heights->width() - 1) * header.pixelSizeX;
    const double top = static_cast<double>(numbers.heights->height() - 1) * header.pixelSizeY;
    return option + pointText(end) + " mm is outside the measured field, 0,0 to " +
           pointText({right, top}) + " mm";
  };
  std::string reason = outside("--from ", *options_.from);
  if (reason.empty()) reason = outside("--to ", *options_.to);
  if (!reason.empty()) return reason;
  shown.numbers.section = sectionBetween(numbers, *options_.from, *options_.to);
  if (numbers.section->a == numbers.section->b) {
    return "--from and --to are the same point of the measurement";
  }
  ProfileTool& profile = shown.tools.profile();
  shown.tools.setProfileMode(true);
  profile.setSurface(profileSurface(shown.surface));
  profile.loadPins();
  profile.placePinsAt(*shown.numbers.section);
  return {};
}

std::string FileJobs::open(const std::string& file, Shown& shown) const {
  if (!openForReading(file)) return errno == EINVAL ? "it is no file" : std::strerror(errno);
  shown.file.update(file);
  if (!shown.file.isValid() || shown.file.grid() == nullptr) return shown.file.trouble();
  if (shown.file.grid()->count() == 0) return "it holds no heights";
  ShownSurface& surface = shown.surface;
  surface.show(shown.file.measurement());
  if (typeOf(options_.filter)) {
    const std::string trouble = filterTrouble(options_.filter, surface.measurement().header);
    if (!trouble.empty()) return trouble;
    FilterRun run = runFilter(options_.filter, surface.measurement(), logStream());
    if (run.status == FilterStatus::kNoMemory) return "there is not enough memory to filter it";
    surface.setFiltered(std::move(run.filtered), std::move(run.words));
    surface.setFilterEnabled(true);
  }
  surface.setColourMap(*options_.colours);
  surface.setPercentages(options_.range);
  if (options_.limits) surface.setCrop({true, options_.limits->x, options_.limits->y});
  if (!options_.bitmap.empty()) {
    const std::string option = "--bitmap " + options_.bitmap + ": ";
    if (!openForReading(options_.bitmap)) return option + std::strerror(errno);
    surface.chooseBitmap(options_.bitmap);
    surface.setColourSource(ColourSource::kBitmap);
    if (surface.drape() == nullptr) return option + "it holds no picture of 8 or 24 bits a pixel";
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
  }
  PictureSettings settings;
  settings.size = options_.size;
  const auto [width, height] = settings.size;
  if (shown.tools.profileMode()) settings.plotHeight = plotHeightIn(height);
  settings.camera = cameraOf(options_, shown.surface, height - settings.plotHeight);
  settings.mayLackDetail = width * height <= kSmallPicture;
  settings.options.onlyTextsThatFit = settings.mayLackDetail;
  settings.options.lamp = options_.light;
  settings.options.keyVisible = options_.key;
  settings.options.axesVisible = options_.axes;
  return painter_.draw(shown.surface, shown.tools, settings, picture);
}

std::string FileJobs::makePicture(Shown& shown, const std::string& path, Bytes& bytes) {
  RgbImage picture;
  const std::string reason = drawPicture(shown, picture);
  if (!reason.empty()) return reason;
  return encodePicture(picture, path == "-" ? "-.png" : path, bytes);
}

std::string FileJobs::makeReport(Shown& shown, Bytes& bytes) {
  Bytes jpeg;
  const std::string reason = makePicture(shown, "page.jpg", jpeg);
  if (!reason.empty()) return reason;
  const HeightRange limits = shown.surface.measured().automaticLimits();
  const bool typed = options_.limits.has_value();
  const ReportPage page =
      describePage({.moment = localNow(),
                    .measurementPath = shown.surface.measurement().path,
                    .zScale = shown.surface.zScale(),
                    .minimum = typed ? options_.limitTexts[0] : shownText(limits.min, 1),
                    .maximum = typed ? options_.limitTexts[1] : shownText(limits.max, 1)});
  PdfReport report;
  report.writeTexts(page, "");
  report.drawPicture(jpeg, page.picture);
  return report.encode(bytes);
}

}  // namespace morvane
