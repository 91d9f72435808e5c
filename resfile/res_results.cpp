#include "resfile/res_results.h"

#include <algorithm>
#include <iterator>
#include <ostream>
#include <span>
#include <string_view>

#include "base/little_endian.h"

namespace morvane {
namespace {

constexpr int kNoValue = -1;

/// One line of the read log: a label, followed by a 32-bit word of the record.
struct LogLine {
  std::string_view label;
  int word = kNoValue;
  bool isInteger = false;
};

constexpr LogLine kStandardLog[] = {{"(resFile) - CC_VEXA_STD"}};
constexpr LogLine kCoprLog[] = {{"(resFile) - CC_RENAULT:"}};
constexpr LogLine kWaveScanLog[] = {{"(resFile) - CC_WS_BANDS"}};

// clang-format off
constexpr LogLine kOrangePeelLog[] = {
    {"EC RM OR DETAILS: "},
    {">>B1 Filter Type: ", 0, true},
    {">>B1 High Lim: ", 3},
    {">>B1 Low Lim:", 2},
    {">>B1 RaX: ", 7},
    {">>B1 RaY: ", 8},
    {">>B1 RsM: ", 9},
    {">>B1 Sa: ", 6},
    {">>B2 Filter Type: ", 1, true},
    {">>B2 High Lim: ", 5},
    {">>B2 Low Lim: ", 4},
    {">>B2 RaX: ", 11},
    {">>B2 RaY: ", 12},
    {">>B2 Sa: ", 10},
    {""},
};

constexpr LogLine kStandardEcRmLog[] = {
    {"CASE 4 DETECTED"}, {"STANDARD VEXA EC/RM DETAILS:"}, {">>ORA: ", 0}, {">>ORQ: ", 1},
    {">>QUALITY: ", 3},  {">>WAVINESS: ", 2},              {""},
};

constexpr LogLine kVwEcRmLog[] = {
    {"CASE 5 DETECTED"}, {"VW EC/RM DETAILS: "}, {">>Wa_0p8: ", 0}, {">>wsa1to5: ", 1}, {""},
};

constexpr LogLine kGmEcRmLog[] = {
    {"CASE 6 DETECTED"},  {"GM EC/RM DETAILS: "}, {">>RaX_APP: ", 1},     {">>RaX_Band_B: ", 9},
    {">>RaX_Band_C: ", 13}, {">>RaX_Peel: ", 5},  {">>RaY_APP: ", 2},     {">>RaY_Band_B: ", 10},
    {">>RaY_Band_C: ", 14}, {">>RaY_Peel: ", 6},  {">>RsM_APP: ", 3},     {">>RsM_Band_B: ", 11},
    {">>RsM_Band_C: ", 15}, {">>RsM_Peel: ", 7},  {">>Sa_APP: ", 0},      {">>Sa_Band_B: ", 8},
    {">>Sa_Band_C: ", 12},  {">>Sa_Peel: ", 4},   {""},
};

constexpr LogLine kEcWaveScanLog[] = {
    {"CASE 8 DETECTED"}, {"EC WS BANDS DETAILS: "}, {">>Sa_A: ", 0}, {">>Sa_B: ", 1},
    {">>Sa_C: ", 2},     {">>Sa_D: ", 3},           {"Sa_E: ", 4},   {"Sa_LW: ", 5},
    {"Sa_SW: ", 6},      {""},
};

// clang-format on

constexpr LogLine kInspectionLog[] = {{"CASE 9 DETECTED"}, {"IN VEXA STD DETAILS: "}};
constexpr LogLine kCode15Log[] = {{"CASE 10 DETECTED"}};
constexpr LogLine kUnknownLog[] = {{"UNRECOGNISED ALGORITHM TYPE"}};

using Area = const std::byte*;

void takeFloats(Area area, std::span<float> values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = readLe<float>(area + i * sizeof(float));
  }
}

void takeNothing(ResResults& /*results*/, Area /*area*/) {}
void takeStandard(ResResults& results, Area area) { takeFloats(area, results.standard); }
void takeCopr(ResResults& results, Area area) { takeFloats(area, results.copr); }
void takeWaveScan(ResResults& results, Area area) { takeFloats(area, results.waveScanBands); }
void takeTexture(ResResults& results, Area area) { takeFloats(area, results.textureCurvature); }
void takeStandardEcRm(ResResults& results, Area area) { takeFloats(area, results.standardEcRm); }
void takeVwEcRm(ResResults& results, Area area) { takeFloats(area, results.vwEcRm); }
void takeGmEcRm(ResResults& results, Area area) { takeFloats(area, results.gmEcRm); }
void takeEcWaveScan(ResResults& results, Area area) { takeFloats(area, results.ecWaveScanBands); }

void takeOrangePeel(ResResults& results, Area area) {
  OrangePeelBands& bands = results.orangePeel;
  bands.filterType = {readLe<std::uint32_t>(area), readLe<std::uint32_t>(area + 4)};
  takeFloats(area + 8, bands.values);
}

struct AlgorithmRecord {
  Algorithm algorithm;
  void (*take)(ResResults&, Area);
  std::span<const LogLine> log;
};

// Kept: the numbers in the CASE lines are not the codes.
constexpr AlgorithmRecord kRecords[] = {
    {Algorithm::kNone, takeNothing, {}},
    {Algorithm::kVexaStd, takeStandard, kStandardLog},
    {Algorithm::kCopr, takeCopr, kCoprLog},
    {Algorithm::kWaveScanBands, takeWaveScan, kWaveScanLog},
    {Algorithm::kOrangePeel, takeOrangePeel, kOrangePeelLog},
    {Algorithm::kCurvature, takeTexture, {}},
    {Algorithm::kTexture, takeTexture, {}},
    {Algorithm::kEcRmVexaStd, takeStandardEcRm, kStandardEcRmLog},
    {Algorithm::kEcRmVwStd, takeVwEcRm, kVwEcRmLog},
    {Algorithm::kEcRmGmStd, takeGmEcRm, kGmEcRmLog},
    {Algorithm::kEcRmOrangePeel, takeOrangePeel, kOrangePeelLog},
    {Algorithm::kEcWaveScanBands, takeEcWaveScan, kEcWaveScanLog},
    {Algorithm::kEcCurvature, takeTexture, {}},
    {Algorithm::kEcTexture, takeTexture, {}},
    {Algorithm::kInspectionVexaStd, takeNothing, kInspectionLog},
    {Algorithm::kCode15, takeNothing, kCode15Log},
};
constexpr AlgorithmRecord kUnknownRecord = {Algorithm::kNone, takeNothing, kUnknownLog};

const AlgorithmRecord& recordOf(std::uint32_t algorithmType) {
  const auto* const found = std::ranges::find(kRecords, static_cast<Algorithm>(algorithmType),
                                              &AlgorithmRecord::algorithm);
  return found != std::end(kRecords) ? *found : kUnknownRecord;
}

struct Version3Value {
  std::size_t offset;
  float& (*target)(ResResults&);
};

constexpr Version3Value kVersion3Values[] = {
    {176, [](ResResults& r) -> float& { return r.standard[0]; }},
    {180, [](ResResults& r) -> float& { return r.standard[1]; }},
    {184, [](ResResults& r) -> float& { return r.standard[2]; }},
    {188, [](ResResults& r) -> float& { return r.standard[3]; }},
    {188, [](ResResults& r) -> float& { return r.standardEcRm[2]; }},
    {192, [](ResResults& r) -> float& { return r.standard[4]; }},
    {196, [](ResResults& r) -> float& { return r.standardEcRm[0]; }},
    {204, [](ResResults& r) -> float& { return r.standardEcRm[1]; }},
    {220, [](ResResults& r) -> float& { return r.standard[5]; }},
    {220, [](ResResults& r) -> float& { return r.standardEcRm[3]; }},
    {224, [](ResResults& r) -> float& { return r.standardEcRm[4]; }},
};

void writeLine(const LogLine& line, Area area, std::ostream& log) {
  log << line.label;
  if (line.word != kNoValue) {
    const std::byte* word = area + std::ptrdiff_t{4} * line.word;
    if (line.isInteger) {
      log << readLe<std::uint32_t>(word);
    } else {
      log << readLe<float>(word);
    }
  }
  log << '\n';
}

}  // namespace

void decodeResults(std::uint32_t algorithmType, const std::byte* resultArea, ResResults& results,
                   std::ostream& log) {
  const AlgorithmRecord& record = recordOf(algorithmType);
  record.take(results, resultArea);
  for (const LogLine& line : record.log) writeLine(line, resultArea, log);
}

void decodeVersion3Results(const std::byte* header, ResResults& results) {
  for (const Version3Value& value : kVersion3Values) {
    value.target(results) = readLe<float>(header + value.offset);
  }
}

}  // namespace morvane
