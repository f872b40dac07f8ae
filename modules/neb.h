// NEB, the shading of a case: for each surface facing outdoors (windows
// included) the sunlit fraction of its outdoor side as a function of the
// sun's direction in the building's own frame (x east, y north, z up; the
// site's rotation is applied by whoever knows the site), shaded by the
// shading screens and by the building's own elements, tabulated on a grid
// of sun directions; and the part of the isotropic sky it sees past those
// shades. Written to NEB.RES (read back by ReadNebResult) and NEB.LIS.
#pragma once

#include <string>
#include <vector>

#include "modules/contract.h"
#include "modules/geometry.h"
#include "modules/plor.h"

namespace zelmo::modules {

inline constexpr const char* kNebResultFile = "NEB.RES";
inline constexpr const char* kNebReportFile = "NEB.LIS";

// NEB's error codes.
inline constexpr int kNebDat1Missing = kNeb.base + 1;
inline constexpr int kNebPlorMissing = kNeb.base + 2;
inline constexpr int kNebPlorDamaged = kNeb.base + 3;

// The grid of sun directions: altitude 0 to 90 degrees and azimuth (0 north,
// 90 east) 0 up to 360 degrees, both in steps of kNebStep degrees.
inline constexpr double kNebStep = 5;
inline constexpr int kNebAltitudes = 19;  // 0, 5, ..., 90
inline constexpr int kNebAzimuths = 72;   // 0, 5, ..., 355

struct NebSurface {
  int surface = 0;  // index into PlorResult::surfaces
  Vec3 outward;     // the normal of its side facing outdoors
  // The part of the sky (isotropic, seen from the outdoor side) it sees past
  // the shades: 1 for an unshaded roof, 0.5 for an unshaded wall.
  double sky_view = 0;
  // True when nothing stands in front of it: then it is fully sunlit
  // whenever the sun is in front of it, and `table` is empty.
  bool open = true;
  // table[altitude index][azimuth index]: the sunlit fraction, 0 to 1.
  std::vector<std::vector<double>> table;
};

struct NebResult {
  std::string fingerprint;
  std::vector<NebSurface> surfaces;  // the surfaces facing outdoors, in order
};

// The fingerprint of NEB's results: that of PLOR's (DAT1.DAT's bytes).
std::string NebFingerprint(const std::string& case_folder, int code = kNebDat1Missing);

// Computes the shading of PLOR's surfaces facing outdoors.
NebResult ComputeNeb(const PlorResult& plor);

// The sunlit fraction of one surface (an index into NebResult::surfaces)
// for a sun in `sun_direction` (towards the sun, length 1, building frame):
// 0 when the sun is behind the surface or below the horizon, else the
// table interpolated bilinearly in azimuth (round the circle) and altitude.
double SunlitFraction(const NebResult& neb, size_t surface, Vec3 sun_direction);

// The sunlit fraction of a surface facing outdoors (an index into
// PlorResult::outside) for one sun direction, the other surfaces of the
// building casting shadows, computed rather than interpolated (shading.h).
double SunlitFractionFor(const PlorResult& plor, size_t outside, Vec3 sun_direction);

// The direction towards a sun at `altitude` and `azimuth` (degrees; 0
// north, 90 east) in the building's frame.
Vec3 SunDirection(double altitude, double azimuth);

std::vector<std::string> NebResultLines(const NebResult& result);
std::vector<std::string> NebReportLines(const NebResult& result, const PlorResult& plor);

// The whole module: reads PLOR.RES (checked against DAT1.DAT), writes
// NEB.RES and NEB.LIS.
void RunNeb(const std::string& case_folder);

// Reads NEB.RES of a case folder for a successor: a file missing or computed
// from another DAT1.DAT fails with `missing_code` naming NEB; a damaged file
// throws FileError with its line.
NebResult ReadNebResult(const std::string& case_folder, int missing_code);
NebResult ParseNebResult(const std::string& path, const std::vector<std::string>& lines);

}  // namespace zelmo::modules
