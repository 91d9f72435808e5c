// Writes the sample measurements.
#include <cmath>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

#include "tools/sample_surface.h"
#include "tools/usage.h"

namespace {

using namespace morvane;

constexpr const char* kUse =
    "make_sample FOLDER\n"
    "Writes the sample measurements and their bitmaps to FOLDER, which it makes.";
constexpr double kPitch = 0.02;  // mm

MeasurementContent describe(const SampleSurface& surface) {
  MeasurementContent content;
  content.width = static_cast<std::int32_t>(surface.width);
  content.height = static_cast<std::int32_t>(surface.height);
  content.pixelSizeX = content.pixelSizeY = surface.pitch;
  content.heights = surface.heights;
  return content;
}

void write(const std::filesystem::path& path, const std::vector<std::byte>& bytes) {
  writeBytes(path.string(), bytes);
  std::printf("%s\n", path.string().c_str());
}

/// A plausible record for each algorithm code that has one.
struct CodeSample {
  std::uint32_t code;
  const char* partName;
  std::vector<RecordWord> record;
};

std::vector<CodeSample> codeSamples() {
  const std::uint32_t highPass = 0;
  const std::uint32_t lowPass = 1;
  return {
      {0, "Bonnet, no evaluation", {}},
      {1, "Bonnet, standard", {42.1F, 37.5F, 55.0F, 2.4F, 1.9F, 81.3F}},
      {2, "Roof, left", {7.6F, 0.0F, 0.0F, 0.0F}},
      {3, "Roof, bands", {0.021F, 0.064F, 0.118F, 0.143F, 0.152F, 0.171F, 0.083F}},
      {5, "Wing, curvature", {3.1F, 12.5F, 8.4F, 5.2F, 2.7F, 1.1F, 1.6F, 6.9F}},
      {6, "Wing, texture", {24.8F, 31.0F, 28.6F, 19.4F, 12.2F, 8.0F, 10.1F, 26.3F}},
      {7, "Bumper, reference", {0.4F, 0.5F, 1.8F, 88.2F, 0.0F, 0.0F}},
      {8, "Tailgate, Wa and Wsa", {0.3F, 0.2F}},
      {9,
       "Tailgate, four bands",
       {0.112F, 0.108F, 0.115F, 0.742F, 0.284F, 0.271F, 0.290F, 1.963F, 0.063F, 0.061F, 0.065F,
        0.511F, 0.092F, 0.088F, 0.094F, 1.604F}},
      {10,
       "Door panel, two filters",
       {highPass, lowPass, 0.8F, 0.0F, 0.0F, 0.8F, 0.094F, 0.091F, 0.096F, 0.402F, 0.513F, 0.497F,
        0.522F, 3.118F}},
      {11, "Door panel, bands", {0.018F, 0.057F, 0.109F, 0.131F, 0.149F, 0.166F, 0.079F}},
      {12, "Pillar, curvature", {2.8F, 11.9F, 7.7F, 4.9F, 2.5F, 1.0F, 1.4F, 6.2F}},
      {13, "Pillar, texture", {22.4F, 29.7F, 26.1F, 17.8F, 11.5F, 7.2F, 9.3F, 24.0F}},
      {14, "Inspection", {}},
      {15, "Reserved", {}},
  };
}

void writePanel(const std::filesystem::path& folder) {
  const SampleSurface panel = paintedPanel(1000, 1000, kPitch);
  MeasurementContent content = describe(panel);
  content.partName = "Door panel, left";
  content.headerValue = 23.5F;
  content.algorithmType = 4;
  content.record = orangePeelRecord(panel);
  write(folder / "panel.res", encodeMeasurement(content));
  write(folder / "surface_image_f.bmp", encodeBitmap(grazingPicture(panel)));
  write(folder / "captured_white.bmp", encodeBitmap(diffusePicture(panel, 20)));
}

void writeSmallOnes(const std::filesystem::path& folder) {
  const SampleSurface small = paintedPanel(96, 72, kPitch);
  for (const CodeSample& sample : codeSamples()) {
    MeasurementContent content = describe(small);
    content.partName = sample.partName;
    content.algorithmType = sample.code;
    content.record = sample.record;
    char name[32];
    std::snprintf(name, sizeof name, "code_%02u.res", sample.code);
    write(folder / name, encodeMeasurement(content));
  }

  MeasurementContent version3 = describe(small);
  version3.version = 3;
  version3.partName = "Bonnet, older instrument";
  // C, S, Sq, W, D, ORa, (nothing), ORq, (three times nothing), Q and one more.
  version3.record = {42.1F, 37.5F, 55.0F, 2.4F, 1.9F,  0.4F, 0.0F,
                     0.5F,  0.0F,  0.0F,  0.0F, 81.3F, 0.0F};
  write(folder / "version_3.res", encodeMeasurement(version3));
  version3.surfaceType = 2;
  write(folder / "version_3_dull.res", encodeMeasurement(version3));

  MeasurementContent counts = describe(small);
  counts.numType = -2;
  counts.heightScale = 0.001;
  counts.partName = "Bonnet, 16-bit counts";
  for (const double z : counts.heights) {
    counts.counts.push_back(static_cast<std::int16_t>(std::lround(z / counts.heightScale)));
  }
  counts.heights.clear();
  write(folder / "counts_16bit.res", encodeMeasurement(counts));
}

}  // namespace

int main(int argc, char** argv) {
  if (const auto status = toldUse(argc, argv, argc == 2, kUse)) return *status;
  try {
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder / "codes");
    writePanel(folder);
    writeSmallOnes(folder / "codes");
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_sample: %s\n", error.what());
    return 1;
  }
  return 0;
}
