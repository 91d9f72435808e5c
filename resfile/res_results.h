// The result records of a measurement file: what the instrument's assessment algorithms computed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iosfwd>

namespace morvane {

/// The assessment algorithms, by the code a measurement file carries.
enum class Algorithm : std::uint32_t {
  kNone = 0,
  kVexaStd = 1,
  kCopr = 2,
  kWaveScanBands = 3,
  kOrangePeel = 4,
  kCurvature = 5,
  kTexture = 6,
  kEcRmVexaStd = 7,
  kEcRmVwStd = 8,
  kEcRmGmStd = 9,
  kEcRmOrangePeel = 10,
  kEcWaveScanBands = 11,
  kEcCurvature = 12,
  kEcTexture = 13,
  kInspectionVexaStd = 14,
  kCode15 = 15,
};

/// Two roughness bands, each behind its own filter. Limits and RsM in mm, Sa, RaX and RaY in µm.
struct OrangePeelBands {
  /// Filter of band 1 and band 2: 0 high pass, 1 low pass, 2 band pass.
  std::array<std::uint32_t, 2> filterType{};
  /// B1 low, B1 high, B2 low, B2 high limit; then Sa, RaX, RaY, RsM of B1; then the same of B2.
  std::array<float, 12> values{};
};

/// One record of each kind. A read replaces only the record that its algorithm code selects; the
/// others keep the values of earlier files. Values that no layout shows are stored too.
struct ResResults {
  std::array<float, 16> standard{};       ///< C, S, Sq (%), W, D (mm), Q (%), ten more
  std::array<float, 4> copr{};            ///< COPR value, three more
  std::array<float, 13> waveScanBands{};  ///< Sa_A … Sa_E, Sa_LW, Sa_SW (µm), six more
  OrangePeelBands orangePeel;
  std::array<float, 8> textureCurvature{};  ///< overall, a, b, c, d, e, lw, sw
  std::array<float, 6> standardEcRm{};      ///< ORa, ORq (µm), waviness, quality (%), two more
  std::array<float, 2> vwEcRm{};            ///< Wa 0.8, Wsa 1-5 (µm)
  std::array<float, 16> gmEcRm{};           ///< Sa, RaX, RaY, RsM of APP, Peel, Band B, Band C
  std::array<float, 7> ecWaveScanBands{};   ///< Sa_A … Sa_E, Sa_LW, Sa_SW (µm)
};

/// Decodes the record that `algorithmType` selects from the result area of a version-4 header into
/// `results`, and writes its log lines to `log`. An unknown code changes no record.
void decodeResults(std::uint32_t algorithmType, const std::byte* resultArea, ResResults& results,
                   std::ostream& log);

/// Decodes the fixed values of a version-3 header (`header`: its 256 bytes) into `results`.
void decodeVersion3Results(const std::byte* header, ResResults& results);

}  // namespace morvane
