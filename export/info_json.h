// Header and results of measurements as JSON.
#pragma once

#include <span>
#include <string>

#include "export/export_source.h"

namespace morvane {

/// The JSON object of one file: its header, its results, and the extremes of the heights shown over
/// all points. Numbers that are missing are null.
std::string infoObject(const ExportSource& source);

/// The document of such objects: a list of them, or else the only one itself.
std::string infoDocument(std::span<const std::string> objects, bool isList);

}  // namespace morvane
