// DANE, the outdoor side of a case over its simulated period: per hour the
// outdoor air, the sky's temperature, the wind, whether the curtains are
// drawn, the solar irradiance on every surface facing outdoors (the beam
// times NEB's sunlit fraction, the sky's diffuse by the Perez model with the
// part of the sky the surface sees past its shades, the light reflected by
// the ground per unit of its reflectivity), and for every window the solar
// it transmits and each pane absorbs by FENT's angle-dependent optics. The
// site's rotation turns the sun; "no sun" leaves every hour dark; "set
// temperature" holds the outdoor air at the set value.
//
// The sky's temperature comes from the climate file's horizontal infrared
// radiation, T_sky = (IR / sigma)^(1/4); where the file has none, from the
// clear-sky emittance of Berdahl & Martin (1984, Solar Energy 32: 663-664),
// eps = 0.711 + 0.56 (Tdp/100) + 0.73 (Tdp/100)^2.
//
// DANE.RES, after the head line "ZELMO-QRN DANE <fingerprint>", TAB between
// fields, CR LF, numbers "%.6g":
//   "Dane" TAB hours TAB outside surfaces TAB windows TAB elevation (m) TAB
//     ground temperature (C, the mean of the file's air temperatures)
//   "Outside" TAB the index in PLOR's surfaces of each surface facing
//     outdoors, in PLOR's order
//   per window a line "Window" TAB its index in PLOR's surfaces TAB panes
//   per hour: year TAB month TAB day TAB hour (1 to 24) TAB outdoor air (C)
//     TAB sky (C) TAB wind (m/s) TAB curtains drawn (0 or 1), then per
//     outside surface beam TAB sky diffuse TAB ground per unit reflectivity
//     (W/m2 on the surface), then per window transmitted beam TAB
//     transmitted sky diffuse TAB transmitted ground per unit reflectivity,
//     then per pane absorbed beam and sky TAB absorbed ground per unit
//     reflectivity (W/m2 of window).
#pragma once

#include <string>
#include <vector>

#include "modules/contract.h"

namespace zelmo::modules {

inline constexpr const char* kDaneResultFile = "DANE.RES";
inline constexpr const char* kDaneReportFile = "DANE.LIS";

// DANE's error codes (ErrorsZelmo.err).
inline constexpr int kDaneDat3Missing = kDane.base + 1;
inline constexpr int kDaneDat3Damaged = kDane.base + 2;
inline constexpr int kDaneDat4Missing = kDane.base + 3;
inline constexpr int kDaneDat4Damaged = kDane.base + 4;
inline constexpr int kDaneClimateMissing = kDane.base + 5;
inline constexpr int kDaneClimateDamaged = kDane.base + 6;
inline constexpr int kDaneClimateShort = kDane.base + 7;
inline constexpr int kDanePredecessor = kDane.base + 8;  // PLOR, NEB or FENT to run again
inline constexpr int kDaneNoWindowType = kDane.base + 9;

struct DaneWindow {
  int surface = 0;  // index in PLOR's surfaces
  int panes = 0;
};

struct DaneHour {
  int year = 0, month = 0, day = 0, hour = 0;
  double outdoor = 0, sky = 0, wind = 0;
  bool curtain = false;
  std::vector<double> surfaces;  // 3 per outside surface
  std::vector<double> windows;   // 3 + 2 panes per window
};

struct DaneResult {
  double elevation = 0;
  double ground = 10;
  std::vector<int> outside;
  std::vector<DaneWindow> windows;
  std::vector<DaneHour> hours;
  // The offset of window w's values in DaneHour::windows.
  size_t WindowOffset(size_t w) const;
};

// The fingerprint of DANE's results: FENT's (Wndw.Lib and DAT1.DAT), then
// DAT3.DAT, the first two lines of DAT4.DAT and the climate file's bytes.
std::string DaneFingerprint(const std::string& case_folder);

// The whole module on a case folder: writes DANE.RES and DANE.LIS.
void RunDane(const std::string& case_folder);

// DANE.RES read back by MUK; a file missing or out of date fails with
// `code` naming DANE; a damaged one throws FileError with its line.
DaneResult ReadDaneResult(const std::string& case_folder, int code);
DaneResult ParseDaneResult(const std::string& path, const std::vector<std::string>& lines);
std::vector<std::string> DaneResultLines(const DaneResult& result);

// The climate file DAT4.DAT names, as a path on this machine: as written,
// or with its separators turned, or by its name in the program tree's
// Climate folder beside the modules' folder.
std::string FindClimateFile(const std::string& written, const std::string& program_folder);

}  // namespace zelmo::modules
