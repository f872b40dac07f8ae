// The building as the viewer reads it from DAT1.DAT, the geometry input of
// the calculation modules in a case folder. The file is fixed-width text;
// the viewer takes from it what it draws: each element's name, shape,
// orientation, position, sides and dimensions, and which of its parts are
// constructions, shading screens or windows.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace zelmo::trvshow {

inline constexpr const char* kDat1File = "DAT1.DAT";

// What a construction of an element (its main part or the hole) is made of.
enum class Part { kNone, kWall, kShadingScreen };

struct Dat1Element {
  std::string name;  // as the file holds it, its blanks removed
  int shape = 1;     // shape code, 1 to 5
  double zenith = 0, azimuth = 0;
  double x = 0, y = 0, z = 0;    // the lower left corner, metres
  int front = 0, back = 0;       // volume codes: -1 Ground, 0 Outdoor, 1 to 8 volumes
  std::array<double, 6> dims{};  // A to F
  Part main = Part::kNone;
  bool main_window = false;
  Part hole = Part::kNone;  // shape 3 only
  bool hole_window = false;
};

struct Dat1Building {
  std::string headline;
  int volumes = 0;
  std::vector<Dat1Element> elements;
};

// Reads the text of DAT1.DAT; `path` names the file in a FileError, which
// gives the line where the text cannot be read and what was wrong there.
Dat1Building ParseDat1(const std::string& path, std::string_view bytes);

// Reads DAT1.DAT in a case folder (given with or without its closing
// separator). A missing file throws FileError at line 0.
Dat1Building ReadCaseDat1(const std::string& case_folder);

}  // namespace zelmo::trvshow
