// PLOR, the geometry of a case: from DAT1.DAT each surface in space (an
// element with a hole is two surfaces), its area, tilt, azimuth and outward
// normal, the volumes on its two sides; per volume its surfaces, floor area
// and air volume; the view factors between the surfaces of each volume and
// from every surface facing outdoors to the sky and the ground. Written to
// PLOR.RES (read back by ReadPlorResult) and PLOR.LIS, the report.
#pragma once

#include <string>
#include <vector>

#include "modules/contract.h"
#include "modules/dat1.h"
#include "modules/geometry.h"

namespace zelmo::modules {

inline constexpr const char* kPlorResultFile = "PLOR.RES";
inline constexpr const char* kPlorReportFile = "PLOR.LIS";

// PLOR's error codes.
inline constexpr int kPlorDat1Missing = kPlor.base + 1;
inline constexpr int kPlorDat1Damaged = kPlor.base + 2;
inline constexpr int kPlorDegenerate = kPlor.base + 3;
inline constexpr int kPlorTooMany = kPlor.base + 4;
inline constexpr int kPlorNotClosed = kPlor.base + 5;

// A volume: the surfaces round it, with the side of each that faces it.
struct PlorVolume {
  int number = 0;             // 1 to 8
  std::vector<int> surfaces;  // indices into PlorResult::surfaces
  // +1 where the volume lies on the surface's front side, -1 on its back.
  std::vector<int> sides;
  double floor_area = 0;  // m², surfaces whose outward normal points down within 30 degrees
  double air_volume = 0;  // m³
  // view_factors[i][j]: from surface i of the volume to surface j (the
  // indices of `surfaces`); each row sums to 1, and area_i F_ij = area_j F_ji.
  std::vector<std::vector<double>> view_factors;
};

// A surface facing outdoors: the side that faces out and its view factors
// to the sky and the ground, (1 + cos tilt) / 2 and (1 - cos tilt) / 2.
struct PlorOutside {
  int surface = 0;  // index into PlorResult::surfaces
  Vec3 outward;     // the normal of the side that faces outdoors
  double tilt = 0;  // of that side, degrees
  double azimuth = 0;
  double sky = 0, ground = 0;
};

struct PlorResult {
  std::string fingerprint;
  int volumes = 0;
  int elements = 0;
  std::vector<Surface> surfaces;
  std::vector<PlorVolume> volume_data;  // one per volume, in order
  std::vector<PlorOutside> outside;     // in the order of the surfaces
};

// The fingerprint of PLOR's results: that of DAT1.DAT's bytes. A missing
// DAT1.DAT fails with `code`.
std::string PlorFingerprint(const std::string& case_folder, int code = kPlorDat1Missing);

// Computes the geometry of a building. A degenerate element (no area, a hole
// outside its element, a value that is not finite) fails with
// kPlorDegenerate, a volume whose surfaces do not close round it with
// kPlorNotClosed; both name the element or the volume.
PlorResult ComputePlor(const Dat1Building& building);

// The lines of PLOR.RES and PLOR.LIS (without the head line).
std::vector<std::string> PlorResultLines(const PlorResult& result);
std::vector<std::string> PlorReportLines(const PlorResult& result, const Dat1Building& building);

// The whole module: reads DAT1.DAT in the case folder, writes PLOR.RES and
// PLOR.LIS.
void RunPlor(const std::string& case_folder);

// Reads PLOR.RES of a case folder for a successor. A file that is missing or
// computed from another DAT1.DAT than the case holds now fails with
// `missing_code` naming PLOR; a damaged file throws FileError with its line.
PlorResult ReadPlorResult(const std::string& case_folder, int missing_code);

// Parses the lines of PLOR.RES after its head line; `path` names the file in
// a FileError (the line numbers count the head line).
PlorResult ParsePlorResult(const std::string& path, const std::vector<std::string>& lines);

}  // namespace zelmo::modules
