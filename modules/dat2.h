// DAT2.DAT, the wall constructions of the module input: the headline, the
// highest wall number, then a block per wall number: its layer count, and per
// layer a line of thickness and material number (two fields of ten places);
// the first time a material occurs, its name (ten places) and a line
// "conductivity specific-heat density" follow that layer's line.
//
// Units, as the libraries keep them: the thickness is the wall library's
// millimetres divided by 10, so centimetres; conductivity W/m,K; specific
// heat Wh/kg,K (the material library's unit: mineral wool's 0.24 is
// 864 J/kg,K); density kg/m3. The material line holds the material library's
// fields 3, 4 and 5 in that order: conductivity, specific heat, density.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "modules/conduction.h"

namespace zelmo {
class TextReader;
}

namespace zelmo::modules {

inline constexpr int kMaxDat2Walls = 100;
inline constexpr int kMaxDat2Layers = 20;

struct Dat2Material {
  std::string name;
  double conductivity = 0;      // W/m,K
  double specific_heat_wh = 0;  // Wh/kg,K
  double density = 0;           // kg/m3
};

struct Dat2Layer {
  double thickness_cm = 0;
  int material = 0;
  int line = 0;  // the line of DAT2.DAT it stands on
};

struct Dat2Wall {
  int number = 0;
  int line = 0;  // the line of its layer count
  std::vector<Dat2Layer> layers;
};

struct Dat2 {
  std::string headline;
  std::vector<Dat2Wall> walls;            // numbers 1 to highest
  std::map<int, Dat2Material> materials;  // those with data, by number
};

// Reads the file whole. A file that cannot be opened, is cut short, or holds
// a count or number out of its range or a value that isn't a number throws
// FileError naming the line.
Dat2 ReadDat2(const std::string& path);
Dat2 ReadDat2(TextReader& reader);

// A layer in SI units: centimetres to metres, Wh/kg,K to J/kg,K.
Layer LayerOf(const Dat2Layer& layer, const Dat2Material& material);

}  // namespace zelmo::modules
