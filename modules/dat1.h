// DAT1.DAT, the geometry input of the calculation modules in a case folder,
// as every reader of it sees it: the modules, the building viewer and the
// list of surfaces. The file is fixed-width text: the headline, the counts of
// volumes and elements, the fluid of each volume, the advection of each pair
// of volumes, and per element its name, shape, orientation, lower left
// corner, front and back volume and dimensions, then what its main part and
// (shape 3) its hole are made of: a wall construction or a shading screen,
// a window, or nothing.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace zelmo::modules {

inline constexpr const char* kDat1File = "DAT1.DAT";

// The limits of the system's design: a case has at most 8 volumes and 100
// elements. A count beyond them is damage, not a larger building.
inline constexpr int kMaxVolumes = 8;
inline constexpr int kMaxElements = 100;

// Volume codes of an element's sides.
inline constexpr int kGround = -1;
inline constexpr int kOutdoor = 0;

// What a construction of an element (its main part or the hole) is.
enum class Part { kNone, kWall, kShadingScreen };

// The main part or the hole of an element. Fractions, not percent.
struct Dat1Part {
  Part construction = Part::kNone;
  int wall = 0;  // the construction's number in the wall library
  // A wall's absorptances; a shading screen's front absorptance and its
  // transmittance in `absorptance_back`.
  double absorptance_front = 0, absorptance_back = 0;
  double emittance_front = 0, emittance_back = 0;  // a wall only
  bool window = false;
  std::string window_type;  // the window type's number as the file holds it
  bool curtain = false;
};

struct Dat1Element {
  std::string name;  // as the file holds it, its blanks removed
  int shape = 1;     // shape code, 1 to 5
  double zenith = 0, azimuth = 0;
  double x = 0, y = 0, z = 0;    // the lower left corner, metres
  int front = 0, back = 0;       // volume codes: -1 Ground, 0 Outdoor, 1 to 8 volumes
  std::array<double, 6> dims{};  // A to F
  Dat1Part main;
  Dat1Part hole;       // shape 3 only
  double leakage = 0;  // of the main part's block (or its window's)
  int line = 0;        // the line of the file where the element begins
  // The texts of the first line's fields from the zenith to z, trimmed, as
  // the file holds them.
  std::array<std::string, 5> texts;
};

struct Dat1Building {
  std::string headline;
  int volumes = 0;
  std::vector<double> fluids;                    // fluid code of each volume
  std::vector<std::array<double, 2>> advection;  // per pair i < j, i the outer loop
  std::vector<Dat1Element> elements;
};

// Reads the text of DAT1.DAT; `path` names the file in a FileError, which
// gives the line where the text cannot be read and what was wrong there.
Dat1Building ParseDat1(const std::string& path, std::string_view bytes);

// Reads DAT1.DAT in a case folder (given with or without its closing
// separator). A missing file throws FileError at line 0.
Dat1Building ReadCaseDat1(const std::string& case_folder);

}  // namespace zelmo::modules
