// FENT, the window module: for every window type of Wndw.Lib that the case's
// elements use (the window lines of DAT1.DAT), the solar transmittance,
// reflectance and the absorptance of each pane as functions of the angle of
// incidence, for radiation from the outdoor side (front) and from the room
// (back); their hemispherical (diffuse) values; the data of the window's own
// heat balance (panes and gaps); its centre-of-glass U by EN 673 and g by
// EN 410. Its results, FENT.RES, and a report, FENT.LIS, go into the case
// folder.
//
// FENT.RES, after the head line "ZELMO-QRN FENT <fingerprint>" (TAB between
// fields, CR LF, numbers "%.12g"):
//   "Windows" TAB <count of records> TAB "Angles" TAB <kFentAngles>
//   then per window type used, in ascending number:
//   "Window" TAB <number> TAB <panes n> TAB <U> TAB <g> TAB <tsol> TAB <name>
//   n lines "Pane" TAB eps_front TAB eps_back TAB thickness_mm TAB inward
//   n-1 lines "Gap" TAB width_mm TAB k TAB dk TAB mu TAB dmu TAB rho TAB drho
//     TAB pr TAB dpr (the gas library's eight coefficients)
//   kFentAngles lines "F" TAB angle TAB tau TAB rho TAB abs_1 ... abs_n
//   kFentAngles lines "B" TAB angle TAB tau TAB rho TAB abs_1 ... abs_n
//   "FD" TAB "hemi" TAB tau TAB rho TAB abs_1 ... abs_n
//   "BD" TAB "hemi" TAB tau TAB rho TAB abs_1 ... abs_n
#pragma once

#include <string>
#include <vector>

#include "modules/contract.h"
#include "modules/glazing.h"
#include "modules/window_optics.h"

namespace zelmo::modules {

// The angles of incidence of the tables: 0 to 90 degrees by 5.
inline constexpr int kFentAngles = 19;
inline constexpr double kFentAngleStep = 5.0;

struct FentPane {
  double eps_front = 0, eps_back = 0;  // long-wave emittances, outdoor and room face
  double thickness_mm = 0;             // glass of kGlassConductivity
  // The part of the heat this pane absorbs that flows to the room under the
  // conditions of EN 410 (the g-value's secondary heat transfer).
  double inward = 0;
};

struct FentWindow {
  int number = 0;
  std::string name;
  std::vector<FentPane> panes;
  std::vector<GlazingGap> gaps;           // behind panes 1 to n-1; GapGasConductance evaluates each
  std::vector<WindowOptics> front, back;  // at angle k x kFentAngleStep, k = 0 to kFentAngles-1
  WindowOptics front_diffuse, back_diffuse;  // hemispherical, isotropic radiation
  double u = 0, g = 0, tsol = 0;             // centre of glass, EN 673 and EN 410

  // The tables at an angle of incidence in degrees, linear between the
  // tabulated angles; beyond 90 degrees nothing passes.
  WindowOptics FrontAt(double degrees) const;
  WindowOptics BackAt(double degrees) const;
};

struct FentResult {
  std::vector<FentWindow> windows;  // the types the case uses, ascending number
  const FentWindow* Window(int number) const;
};

// Codes of FENT's own failures (ECM.Dat, ErrorsZelmo.err).
inline constexpr int kFentLibraryMissing = kFent.base + 1;  // Wndw.Lib cannot be read
inline constexpr int kFentLibraryDamaged = kFent.base + 2;  // damaged at a line
inline constexpr int kFentDat1Missing = kFent.base + 3;     // DAT1.DAT cannot be read
inline constexpr int kFentNoWindowType = kFent.base + 4;    // a used type not in Wndw.Lib
inline constexpr int kFentNoPanes = kFent.base + 5;         // a used type with no panes
inline constexpr int kFentNoGlass = kFent.base + 6;         // a pane's glass not in the library
inline constexpr int kFentNoGas = kFent.base + 7;           // a gap's gas not in the library
inline constexpr int kFentBadGlass = kFent.base + 8;        // glass data that no glass can have
inline constexpr int kFentNoResult = kFent.base + 9;        // gaps that give no finite U

// Wndw.Lib of the case folder's project (the folder above the case).
std::string WindowLibraryOf(const std::string& case_folder);

// The fingerprint of FENT's input: the bytes of Wndw.Lib and of DAT1.DAT.
std::string FentFingerprint(const std::string& case_folder);

// The whole module on a case folder: writes FENT.RES and FENT.LIS. Throws
// ModuleFailure (or FileError for a damaged Wndw.Lib).
void RunFent(const std::string& case_folder);

// The steps of RunFent, for tests and benchmarks. The window types the
// elements of DAT1.DAT use, each with the line of DAT1.DAT it stands on
// first: a window is the line ending in the fields " 6.00 1.00 0.00 0.00"
// and a curtain flag (five places each) and a ten-place number with four
// decimals, and the line after it holds the type's number.
struct UsedWindow {
  int number = 0;
  int line = 0;
};
std::vector<UsedWindow> UsedWindowTypes(const std::string& dat1_bytes);
struct WindowLibrary;
// One window type of the library read from `path`; ModuleFailure with its
// code when it can't be computed.
FentWindow ComputeFentWindow(const WindowLibrary& library, const std::string& path, int number);
std::vector<std::string> FentLines(const FentResult& result);
FentResult ParseFentResult(const std::vector<std::string>& lines, int code);

// FENT.RES read back by a module after it; a file that is missing, out of
// date or damaged fails with `code`, naming FENT to run again.
FentResult ReadFentResult(const std::string& case_folder, int code);

}  // namespace zelmo::modules
