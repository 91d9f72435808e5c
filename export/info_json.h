// Header and results of measurements as JSON.
#pragma once

#include <span>
#include <string>

#include "export/export_source.h"

namespace morvane {

/// The JSON object of one file: its header, its results, and the extremes of the heights shown over
/// all points. Numbers that are missing are null.
std::string infoObject(const ExportSource& source);

/// The document of one or more such objects: the object itself, or a list of several.
std::string infoDocument(std::span<const std::string> objects);

}  // namespace morvane
