#include "batch/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>

#include "base/number_text.h"
#include "base/paths.h"
#include "batch/output.h"
#include "export/formats.h"
#include "export/picture_file.h"
#include "export/report_page.h"

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
constexpr const char* kOutputGroup = "Output (- is standard output, {name} the input's name)";
constexpr const char* kShownGroup = "What is shown";
constexpr const char* kPictureGroup = "The picture";
constexpr std::string_view kName = "{name}";

/// The help without CLI11's remarks on types.
class Help : public CLI::Formatter {
 public:
  std::string make_option_opts(const CLI::Option* option) const override {
    const bool isFlag = option->get_expected_max() == 0;
    if (isFlag || option->get_positional()) return {};
    return ' ' + option->get_type_name();
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

/// Takes the text of an option. Returns why it cannot, or an empty text.
using Take = std::string (*)(BatchOptions& options, const std::string& text);

template <std::string BatchOptions::*Path>
std::string takePath(BatchOptions& options, const std::string& text) {
  options.*Path = text;
  return text.empty() ? "the name is empty" : "";
}

/// What the functions below get of an option with numbers.
struct Typed {
  std::vector<double> numbers;
  std::vector<std::string> words;  // one for each number
};

template <std::size_t Count, std::string (*take)(BatchOptions&, const Typed&)>
std::string takeNumbers(BatchOptions& options, const std::string& text) {
  constexpr const char* kNeeds[] = {"a finite number is needed",
                                    "two finite numbers with a comma between are needed",
                                    "three finite numbers with commas between are needed"};
  const auto numbers = numbersOf(text, Count);
  return numbers ? take(options, {*numbers, partsOf(text)}) : kNeeds[Count - 1];
}

template <bool FilterSettings::*Type>
std::string takeFilter(BatchOptions& options, const Typed& typed) {
  FilterSettings& filter = options.filter;
  if (typeOf(filter)) return "there is another filter already";
  if (std::ranges::any_of(typed.numbers, [](double mm) { return mm < 0.0; })) {
    return "a wavelength is not negative";
  }
  if (!std::ranges::is_sorted(typed.numbers)) return "the shorter wavelength comes first";
  filter.*Type = true;
  filter.l1 = typed.words.front();
  filter.l2 = typed.words.back();
  return {};
}

std::string takeLimits(BatchOptions& options, const Typed& typed) {
  options.limits = glm::vec2(typed.numbers[0], typed.numbers[1]);
  std::ranges::copy(typed.words, options.limitTexts);
  return options.limits->x < options.limits->y ? "" : "the minimum must be below the maximum";
}

std::string takeRange(BatchOptions& options, const Typed& typed) {
  options.range = {typed.numbers[0], typed.numbers[1]};
  if (options.limits) return "there are --limits already";
  const auto& [low, high] = *options.range;
  return low >= 0.0 && low < high && high <= 100.0 ? ""
                                                   : "two percentages are needed, the lower first";
}

template <std::optional<glm::dvec2> BatchOptions::*End>
std::string takeEnd(BatchOptions& options, const Typed& typed) {
  options.*End = glm::dvec2(typed.numbers[0], typed.numbers[1]);
  return {};
}

constexpr const char* kNotAboveZero = "it must be above 0";

std::string takeScale(BatchOptions& options, const Typed& typed) {
  options.scale = static_cast<float>(typed.numbers[0]);
  return *options.scale > 0.0F ? "" : kNotAboveZero;
}

std::string takeZoom(BatchOptions& options, const std::string& text) {
  options.fit = text == "fit";
  const auto numbers = options.fit ? std::vector{1.0} : numbersOf(text, 1);
  if (!numbers) return "a finite number is needed, or fit";
  options.zoom = static_cast<float>(numbers->front());
  return options.zoom > 0.0F ? "" : kNotAboveZero;
}

std::string takeTurn(BatchOptions& options, const Typed& typed) {
  options.turn = glm::vec3(typed.numbers[0], typed.numbers[1], typed.numbers[2]);
  return {};
}

std::string takePan(BatchOptions& options, const Typed& typed) {
  options.pan = glm::vec2(typed.numbers[0], typed.numbers[1]);
  return {};
}

constexpr std::pair<std::string_view, ViewDirection> kViews[] = {
    {"top", ViewDirection::kTop},
    {"front", ViewDirection::kFront},
    {"side", ViewDirection::kSide},
    {"iso", ViewDirection::kIsometric}};

std::string takeView(BatchOptions& options, const std::string& text) {
  for (const auto& [name, view] : kViews) {
    if (text != name) continue;
    options.view = view;
    return {};
  }
  return "it is none of top, front, side, iso";
}

/// The names of the colour maps with `separator` between them.
std::string mapNames(const std::string& separator) {
  std::string names;
  for (const ColourMap& map : colourMaps()) {
    if (!names.empty()) names += separator;
    names += map.option;
  }
  return names;
}

std::string takeColours(BatchOptions& options, const std::string& text) {
  options.colours = colourMap(text);
  return options.colours != nullptr ? "" : "it is none of " + mapNames(", ");
}

std::string takeLight(BatchOptions& options, const Typed& typed) {
  const auto azimuth = static_cast<float>(typed.numbers[0]);
  const auto elevation = static_cast<float>(typed.numbers[1]);
  if (elevation < 0.0F || elevation > 90.0F) return "the elevation must be between 0 and 90";
  options.light = Lamp{azimuth, elevation};
  return {};
}

std::string takeSize(BatchOptions& options, const std::string& text) {
  const auto size = sizeOf(text);
  if (!size) {
    return "a size is like 1600x1200, each side from " + std::to_string(kShortestSide) + " to " +
           std::to_string(kLongestSide);
  }
  options.size = *size;
  return {};
}

/// An option with a value. In the help, values with a bar between them are the choices.
struct ValueOption {
  const char* group;
  const char* name;
  std::string type;
  const char* help;
  Take take;
};
const ValueOption kValueOptions[] = {
    {kOutputGroup, "--report", "OUT", "the report as PDF", takePath<&BatchOptions::report>},
    {kOutputGroup, "--picture", "OUT", "the picture as PNG or JPEG",
     takePath<&BatchOptions::picture>},
    {kOutputGroup, "--section", "OUT", "the heights between --from and --to as CSV",
     takePath<&BatchOptions::section>},
    {kOutputGroup, "--heights", "OUT", "the heights as .sdf, .gsf, .xyz or .res",
     takePath<&BatchOptions::heights>},
    {kOutputGroup, "--results", "OUT", "the results of all files as one CSV table",
     takePath<&BatchOptions::results>},
    {kShownGroup, "--low-pass", "MM", "filter: keep long waves",
     takeNumbers<1, takeFilter<&FilterSettings::lowPass>>},
    {kShownGroup, "--high-pass", "MM", "filter: keep short waves",
     takeNumbers<1, takeFilter<&FilterSettings::highPass>>},
    {kShownGroup, "--band-pass", "MM,MM", "filter: keep waves between",
     takeNumbers<2, takeFilter<&FilterSettings::bandPass>>},
    {kShownGroup, "--limits", "MIN,MAX", "limits of heights and colours, µm",
     takeNumbers<2, takeLimits>},
    {kShownGroup, "--range", "LOW,HIGH", "colours from LOW % to HIGH % of the heights",
     takeNumbers<2, takeRange>},
    {kShownGroup, "--scale", "X", "vertical exaggeration", takeNumbers<1, takeScale>},
    {kShownGroup, "--from", "X,Y", "begin of the section, mm",
     takeNumbers<2, takeEnd<&BatchOptions::from>>},
    {kShownGroup, "--to", "X,Y", "end of the section, mm",
     takeNumbers<2, takeEnd<&BatchOptions::to>>},
    {kShownGroup, "--colours", mapNames("|"), "colours of the heights", takeColours},
    {kShownGroup, "--bitmap", "FILE", "colours from a bitmap", takePath<&BatchOptions::bitmap>},
    {kPictureGroup, "--light", "AZIMUTH,ELEVATION", "raking light, degrees",
     takeNumbers<2, takeLight>},
    {kPictureGroup, "--view", "top|front|side|iso", "from where it is seen", takeView},
    {kPictureGroup, "--turn", "X,Y,Z", "turn about the picture's axes, degrees",
     takeNumbers<3, takeTurn>},
    {kPictureGroup, "--zoom", "X", "magnification, or fit for the whole picture", takeZoom},
    {kPictureGroup, "--pan", "X,Y", "shift, pixels", takeNumbers<2, takePan>},
    {kPictureGroup, "--size", "WxH", "in pixels (1125x775)", takeSize},
};

/// An option without a value.
struct Flag {
  const char* group;
  const char* name;
  bool BatchOptions::*flag;
  const char* help;
};
constexpr Flag kFlags[] = {
    {kOutputGroup, "--info", &BatchOptions::info, "header and results as JSON on standard output"},
    {kOutputGroup, "--semicolon", &BatchOptions::semicolon,
     "tables with semicolons and decimal commas"},
    {kOutputGroup, "--force", &BatchOptions::force, "replace files that exist"},
    {kOutputGroup, "--verbose", &BatchOptions::verbose, "write the log to standard error"},
    {kPictureGroup, "!--no-key", &BatchOptions::key, "without the colour key"},
    {kPictureGroup, "!--no-axes", &BatchOptions::axes, "without axes"},
};

template <ExportKind Kind>
bool isExportPath(const std::string& path) {
  return exportFormat(Kind, path) != nullptr;
}

/// An output, and how its name may end.
struct Output {
  const char* option;
  std::string BatchOptions::*path;
  bool eachFile;  // else one for all files
  const char* endings;
  bool (*hasEnding)(const std::string& path);
};
constexpr Output kOutputs[] = {
    {"--report", &BatchOptions::report, true, ".pdf",
     [](const std::string& path) { return hasExtension(path, ".pdf"); }},
    {"--picture", &BatchOptions::picture, true, ".png, .jpg or .jpeg", isPicturePath},
    {"--section", &BatchOptions::section, true, ".csv", isExportPath<ExportKind::kSection>},
    {"--heights", &BatchOptions::heights, true, ".sdf, .gsf, .xyz or .res",
     isExportPath<ExportKind::kHeights>},
    {"--results", &BatchOptions::results, false, ".csv", isExportPath<ExportKind::kResults>},
};

/// Throws the error of an option that has an unusable value.
[[noreturn]] void refuse(const std::string& option, const std::string& why) {
  throw CLI::ValidationError(option, why);
}

void checkOutput(const Output& output, const BatchOptions& options) {
  const std::string& path = options.*output.path;
  if (path.empty()) return;
  const std::string option = std::string(output.option) + ' ' + path;
  const bool many = options.files.size() > 1;
  const bool named = path.find(kName) != std::string::npos;
  if (path != "-" && !output.hasEnding(path)) {
    refuse(option, std::string("the name must end in ") + output.endings);
  }
  if (!output.eachFile && named) refuse(option, "{name} has no meaning here: it is one table");
  if (!output.eachFile || !many) return;
  if (path == "-") refuse(option, "standard output takes one file only");
  if (!named) refuse(option, "the name needs {name}, as there are several files");
  std::map<std::string, std::string> known;
  for (const std::string& file : options.files) {
    const auto [other, fresh] = known.emplace(suggestedName(file), file);
    if (!fresh) refuse(option, "it would be the same for " + other->second + " and " + file);
  }
}

void checkUsage(const BatchOptions& options) {
  if (options.files.empty()) throw CLI::RequiredError("FILE");
  int wanted = options.info ? 1 : 0;
  int toStandardOutput = wanted;
  std::map<std::string, const char*> outputs;
  for (const Output& output : kOutputs) {
    checkOutput(output, options);
    const std::string& path = options.*output.path;
    const auto [other, fresh] = outputs.emplace(path, output.option);
    if (!fresh && !path.empty() && path != "-") {
      refuse(std::string(output.option) + ' ' + path,
             std::string("it is that of ") + other->second);
    }
    wanted += (options.*output.path).empty() ? 0 : 1;
    toStandardOutput += options.*output.path == "-" ? 1 : 0;
  }
  if (wanted == 0) refuse("FILE", "nothing to write was asked for, e.g. --report OUT.pdf");
  if (toStandardOutput > 1) refuse("-", "standard output takes one output only");
  if (!options.section.empty() && !(options.from && options.to)) {
    refuse("--section", "--from X,Y and --to X,Y are needed too");
  }
  if (options.from.has_value() != options.to.has_value()) {
    refuse(options.from ? "--from" : "--to", "the other end is needed too");
  }
}

/// Refuses outputs that would replace a measurement before it is read.
void checkInputsKept(const BatchOptions& options) {
  if (!options.force) return;
  std::error_code error;
  std::map<std::filesystem::path, const std::string*> inputs;
  for (const std::string& file : options.files) {
    inputs.emplace(std::filesystem::canonical(file, error), &file);
  }
  for (const Output& output : kOutputs) {
    const std::string& pattern = options.*output.path;
    if (pattern.empty() || pattern == "-") continue;
    for (const std::string& file : options.files) {
      const auto path = std::filesystem::canonical(outputPath(pattern, file), error);
      if (error || !inputs.contains(path)) continue;
      refuse(std::string(output.option) + ' ' + pattern, "it would replace " + *inputs[path]);
    }
  }
}

/// `texts` has a place for the text of each of `kValueOptions`.
void describe(CLI::App& app, BatchOptions& options, std::span<std::string> texts) {
  const auto help = std::make_shared<Help>();
  help->column_width(29);
  help->label("Positionals", "Measurements");
  app.formatter(help);
  app.set_help_flag("-h,--help", "print this text")->group(kHelpGroup);
  app.footer(kExamples);
  app.set_version_flag("--version", "morvane-reader " MORVANE_VERSION, "print the version")
      ->group(kHelpGroup);
  app.add_option("FILE", options.files, "files (.res)");
  for (const ValueOption& option : kValueOptions) {
    app.add_option(option.name, texts.front(), option.help)
        ->group(option.group)
        ->type_name(option.type)
        ->take_last();
    texts = texts.subspan(1);
  }
  for (const Flag& flag : kFlags) {
    app.add_flag(flag.name, options.*flag.flag, flag.help)->group(flag.group);
  }
}

}  // namespace

Reading readOptions(const std::vector<std::string>& words) {
  CLI::App app(kDescription, "morvane-reader");
  Reading reading;
  BatchOptions& options = reading.options;
  std::array<std::string, std::size(kValueOptions)> texts;
  describe(app, options, texts);
  try {
    std::vector<std::string> reversed(words.rbegin(), words.rend() - 1);
    app.parse(reversed);
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const ValueOption& option = kValueOptions[i];
      if (app.count(option.name) == 0) continue;
      if (app.count(option.name) > 1) refuse(option.name, "it is given twice");
      const std::string why = option.take(options, texts[i]);
      if (!why.empty()) refuse(std::string(option.name) + ' ' + texts[i], why);
    }
    checkUsage(options);
    checkInputsKept(options);
  } catch (const CLI::Success& wanted) {
    std::ostringstream text;
    reading.status = app.exit(wanted, text, text);
    reading.output = text.str();
  } catch (const CLI::ParseError& error) {
    reading.status = 2;
    reading.error =
        std::string("morvane-reader: ") + error.what() + "; see morvane-reader --help\n";
  }
  return reading;
}

}  // namespace morvane
