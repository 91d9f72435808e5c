#include "batch/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <map>

#include "base/number_text.h"
#include "export/formats.h"
#include "export/picture_file.h"

namespace morvane {
namespace {

constexpr const char* kDescription =
    "Opens a window and shows FILE, a measurement (.res), in it. With any option, it\n"
    "works without a window and a display.";

constexpr const char* kExamples =
    "Examples:\n"
    "  morvane-reader plate.res\n"
    "  morvane-reader plate.res --report plate.pdf --low-pass 0.8\n"
    "  morvane-reader *.res --results results.csv\n"
    "  morvane-reader *.res --picture 'pictures/{name}.png' --view iso --size 800x600\n"
    "\n"
    "Exit status: 0 all done, 1 some file failed, 2 wrong usage.";

constexpr const char* kHelpGroup = "Help";

/// The help without CLI11's remarks on types and the options that exclude each other.
class Help : public CLI::Formatter {
 public:
  std::string make_option_opts(const CLI::Option* option) const override {
    const bool isFlag = option->get_expected_max() == 0;
    if (isFlag || option->get_positional()) return {};
    const std::string type = option->get_type_name();
    return ' ' + type.substr(0, type.find(':'));
  }
  std::string make_option_name(const CLI::Option* option, bool isPositional) const override {
    const std::string name = option->get_name(isPositional);
    return name.substr(0, name.find('{'));
  }
  std::string make_group(std::string group, bool isPositional,
                         std::vector<const CLI::Option*> options) const override {
    const bool first = isPositional || group == kHelpGroup;
    const std::string text =
        CLI::Formatter::make_group(std::move(group), isPositional, std::move(options));
    // It begins with an empty line, and CLI11 puts another one between groups.
    return first ? text : text.substr(1);
  }
};

using Numbers = std::vector<float>;

/// Checks that all numbers are finite, and so many.
std::string checkNumbers(const Numbers& numbers, std::size_t count) {
  if (numbers.size() != count) return "needs " + std::to_string(count) + " numbers";
  for (const float number : numbers) {
    if (!std::isfinite(number)) return "needs finite numbers";
  }
  return {};
}

/// Throws the error of an option that has an unusable value.
[[noreturn]] void refuse(const std::string& option, const std::string& why) {
  throw CLI::ValidationError(option, why);
}

/// The options as CLI11 reads them, before they are checked together.
struct Texts {
  Numbers lowPass, highPass, bandPass, limits, turn, pan, from, to;
  bool semicolon = false;
  std::string size, view;
};

/// A check that a number is finite and above `limit`.
CLI::Validator above(float limit) {
  return {[limit](const std::string& text) {
            const bool good =
                isNumber(text) && leadingFloat(text) > limit && std::isfinite(leadingFloat(text));
            return good ? std::string() : text + " must be a number above " + fixedText(limit, 0);
          },
          "", ""};
}

/// An option that names an output.
struct Output {
  const char* option;
  std::string BatchOptions::*path;
  const char* help;
  bool eachFile;  // else one for all files
};
constexpr Output kOutputs[] = {
    {"--report", &BatchOptions::report, "the report as PDF", true},
    {"--picture", &BatchOptions::picture, "the picture as PNG or JPEG", true},
    {"--section", &BatchOptions::section, "the heights between --from and --to as CSV", true},
    {"--heights", &BatchOptions::heights, "the heights as .sdf, .gsf, .xyz or .res", true},
    {"--results", &BatchOptions::results, "the results of all files as one CSV table", false},
};

void checkOutput(const Output& output, const BatchOptions& options) {
  const std::string& path = options.*output.path;
  const bool many = options.files.size() > 1;
  if (path.empty() || !many || !output.eachFile) return;
  if (path == "-") refuse(output.option, "writes one file only to standard output");
  if (path.find("{name}") == std::string::npos) {
    refuse(output.option, "needs {name} in " + path + ", as there are several files");
  }
}

void checkUsage(const BatchOptions& options) {
  if (options.files.empty()) throw CLI::RequiredError("FILE");
  int wanted = options.info ? 1 : 0;
  int toStandardOutput = wanted;
  for (const Output& output : kOutputs) {
    checkOutput(output, options);
    wanted += (options.*output.path).empty() ? 0 : 1;
    toStandardOutput += options.*output.path == "-" ? 1 : 0;
  }
  if (wanted == 0) refuse("FILE", "nothing to write was asked for, e.g. --report OUT.pdf");
  if (toStandardOutput > 1) refuse("-", "standard output takes one output only");
  const std::string& picture = options.picture;
  if (!picture.empty() && picture != "-" && !isPicturePath(picture)) {
    refuse("--picture", picture + " ends in none of .png, .jpg, .jpeg");
  }
  const std::string& heights = options.heights;
  if (!heights.empty() && exportFormat(ExportKind::kHeights, heights) == nullptr) {
    refuse("--heights", heights + " ends in none of .sdf, .gsf, .xyz, .res");
  }
  if (!options.section.empty() && !(options.from && options.to)) {
    refuse("--section", "needs --from X,Y and --to X,Y");
  }
  if (options.from.has_value() != options.to.has_value()) {
    refuse(options.from ? "--from" : "--to", "needs the other end too");
  }
}

void takeSize(const std::string& text, PictureSize& size) {
  constexpr int kLargest = 32768;
  if (text.empty()) return;
  int end = 0;
  const bool read = std::sscanf(text.c_str(), "%dx%d%n", &size.width, &size.height, &end) == 2;
  const auto sensible = [](int side) { return side >= 16 && side <= kLargest; };
  if (!read || text[static_cast<std::size_t>(end)] != '\0' || !sensible(size.width) ||
      !sensible(size.height)) {
    refuse("--size",
           text + " is no size; it is like 1600x1200, each from 16 to " + std::to_string(kLargest));
  }
}

void takeView(const std::string& name, ViewDirection& view) {
  const std::map<std::string, ViewDirection> views = {{"", ViewDirection::kTop},
                                                      {"top", ViewDirection::kTop},
                                                      {"front", ViewDirection::kFront},
                                                      {"side", ViewDirection::kSide},
                                                      {"iso", ViewDirection::kIsometric}};
  const auto found = views.find(name);
  if (found == views.end()) refuse("--view", name + " is none of top, front, side, iso");
  view = found->second;
}

void takeFilter(const CLI::App& app, BatchOptions& options) {
  FilterSettings& filter = options.filter;
  filter.lowPass = app.count("--low-pass") > 0;
  filter.highPass = app.count("--high-pass") > 0;
  filter.bandPass = app.count("--band-pass") > 0;
}

/// Takes the words of an option as they were typed, one for each number.
std::string typed(const CLI::App& app, const char* option, std::size_t which) {
  return app.get_option(option)->results().at(which);
}

void takeNumbers(const CLI::App& app, const Texts& texts, BatchOptions& options) {
  const auto check = [&](const char* option, const Numbers& numbers, std::size_t count) {
    if (app.count(option) == 0) return false;
    const std::string why = checkNumbers(numbers, count);
    if (!why.empty()) refuse(option, why);
    return true;
  };
  for (const auto& [option, numbers, count] :
       {std::tuple{"--low-pass", &texts.lowPass, 1}, std::tuple{"--high-pass", &texts.highPass, 1},
        std::tuple{"--band-pass", &texts.bandPass, 2}}) {
    if (!check(option, *numbers, static_cast<std::size_t>(count))) continue;
    if (std::any_of(numbers->begin(), numbers->end(), [](float mm) { return mm < 0.0F; })) {
      refuse(option, "needs wavelengths in mm, not negative");
    }
    options.filter.l1 = typed(app, option, 0);
    if (count > 1) options.filter.l2 = typed(app, option, 1);
  }
  if (check("--limits", texts.limits, 2)) {
    if (!(texts.limits[0] < texts.limits[1])) refuse("--limits", "needs the smaller one first");
    options.limits = {texts.limits[0], texts.limits[1]};
    for (std::size_t i = 0; i < 2; ++i) options.limitTexts[i] = typed(app, "--limits", i);
  }
  if (check("--turn", texts.turn, 3)) {
    options.turn = {texts.turn[0], texts.turn[1], texts.turn[2]};
  }
  if (check("--from", texts.from, 2)) options.from = {texts.from[0], texts.from[1]};
  if (check("--to", texts.to, 2)) options.to = {texts.to[0], texts.to[1]};
  if (texts.semicolon) options.csv = kSemicolons;
  if (check("--pan", texts.pan, 2)) options.pan = {texts.pan[0], texts.pan[1]};
}

void describe(CLI::App& app, BatchOptions& options, Texts& texts) {
  const auto help = std::make_shared<Help>();
  help->column_width(22);
  help->label("Positionals", "Measurements");
  app.formatter(help);
  app.set_help_flag("-h,--help", "print this text")->group(kHelpGroup);
  app.footer(kExamples);
  app.set_version_flag("--version", "morvane-reader " MORVANE_VERSION, "print the version")
      ->group(kHelpGroup);
  app.add_option("FILE", options.files, "files (.res)");
  const char* group = "Output (- is standard output, {name} the input's name)";
  for (const Output& output : kOutputs) {
    app.add_option(output.option, options.*output.path, output.help)
        ->group(group)
        ->type_name("OUT");
  }
  app.add_flag("--info", options.info, "header and results as JSON on standard output")
      ->group(group);
  app.add_flag("--semicolon", texts.semicolon, "tables with semicolons and decimal commas")
      ->group(group);
  app.add_flag("--force", options.force, "replace files that exist")->group(group);
  app.add_flag("--verbose", options.verbose, "write the log to standard error")->group(group);

  group = "What is shown";
  const auto add = [&](const char* name, Numbers& numbers, const char* type, const char* text) {
    return app.add_option(name, numbers, text)->group(group)->type_name(type)->delimiter(',');
  };
  auto* low = add("--low-pass", texts.lowPass, "MM", "filter: keep long waves");
  auto* high = add("--high-pass", texts.highPass, "MM", "filter: keep short waves");
  auto* band = add("--band-pass", texts.bandPass, "MM,MM", "filter: keep waves between");
  low->excludes(high)->excludes(band);
  high->excludes(band);
  add("--limits", texts.limits, "MIN,MAX", "limits of heights and colours, µm");
  app.add_option("--scale", options.scale, "vertical exaggeration")
      ->group(group)
      ->check(above(0.0F))
      ->type_name("X");
  add("--from", texts.from, "X,Y", "begin of the section, mm");
  add("--to", texts.to, "X,Y", "end of the section, mm");
  app.add_option("--bitmap", options.bitmap, "colours from a bitmap")
      ->group(group)
      ->type_name("FILE");

  group = "The picture";
  app.add_option("--view", texts.view, "top, front, side or iso")->group(group)->type_name("NAME");
  add("--turn", texts.turn, "X,Y,Z", "turn about the picture's axes, degrees");
  app.add_option("--zoom", options.zoom, "magnification")
      ->group(group)
      ->check(above(0.0F))
      ->type_name("X");
  add("--pan", texts.pan, "X,Y", "shift, pixels");
  app.add_option("--size", texts.size, "in pixels (1125x775)")->group(group)->type_name("WxH");
  app.add_flag("!--no-key", options.key, "without the colour key")->group(group);
  app.add_flag("!--no-axes", options.axes, "without axes")->group(group);
}

}  // namespace

Reading readOptions(const std::vector<std::string>& words) {
  CLI::App app(kDescription, "morvane-reader");
  BatchOptions options;
  Texts texts;
  describe(app, options, texts);
  try {
    std::vector<std::string> reversed(words.rbegin(), words.rend() - 1);
    app.parse(reversed);
    takeFilter(app, options);
    takeNumbers(app, texts, options);
    takeSize(texts.size, options.size);
    takeView(texts.view, options.view);
    checkUsage(options);
  } catch (const CLI::Success& wanted) {
    return {app.exit(wanted, std::cout, std::cerr), options};
  } catch (const CLI::ParseError& error) {
    std::cerr << "morvane-reader: " << error.what() << "; see morvane-reader --help\n";
    return {2, options};
  }
  return {std::nullopt, options};
}

}  // namespace morvane
