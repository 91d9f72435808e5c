// The options of the command line.
#pragma once

#include <glm/vec2.hpp>
#include <glm/vec3.hpp>
#include <optional>
#include <string>
#include <vector>

#include "batch/option_values.h"
#include "filter/band_filter.h"
#include "geometry/camera_views.h"
#include "geometry/light.h"
#include "surface/colour_maps.h"
#include "surface/percentiles.h"

namespace morvane {

/// What a command line asks for. Paths are in UTF-8. An output that was not asked for is empty; "-"
/// is standard output, and "{name}" in it stands for the input's name.
struct BatchOptions {
  std::vector<std::string> files;

  std::string report;
  std::string picture;
  std::string section;
  std::string heights;
  std::string results;  ///< one table of all files
  bool info = false;    ///< header and results of all files on standard output

  std::optional<glm::dvec2> from;  ///< the ends of the section, mm
  std::optional<glm::dvec2> to;
  bool semicolon = false;  ///< tables for spreadsheets with a decimal comma

  FilterSettings filter;
  std::optional<glm::vec2> limits;   ///< minimum and maximum, µm
  std::string limitTexts[2];         ///< the same as typed
  std::optional<Percentages> range;  ///< of the heights that bound the colours
  std::optional<float> scale;
  ViewDirection view = ViewDirection::kTop;
  glm::vec3 turn{0.0F};  ///< degrees about the picture's x, y and z axes, after `view`
  bool fit = false;      ///< the surface just fits into the picture
  float zoom = 1.0F;
  glm::vec2 pan{0.0F};  ///< pixels, y down
  const ColourMap* colours = &standardColours();
  std::optional<Lamp> light;
  std::string bitmap;
  PictureSize size;
  bool key = true;
  bool axes = true;

  bool force = false;    ///< replace existing files
  bool verbose = false;  ///< the log goes to standard error
};

/// What to do after the command line has been read.
struct Reading {
  std::optional<int> status;  ///< the exit status, if there is nothing else to do
  std::string output;         ///< what standard output gets then
  std::string error;          ///< what standard error gets then
  BatchOptions options;
};

/// Reads the command line `words`, the first of which is the program. Changes nothing else.
Reading readOptions(const std::vector<std::string>& words);

}  // namespace morvane
