// WALLS.LIB: the project's layered constructions (walls, floors, roofs and
// doors alike). One block per wall in ascending number: a header line of the
// number, a TAB and the name, then a line per layer, top first: a TAB, the
// material's Type, a TAB, the thickness in mm as typed.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "libraries/opaque_lib.h"

namespace zelmo {

struct Workspace;

inline constexpr const char* kWallsFile = "WALLS.LIB";
inline constexpr int kMaxWalls = 100;
inline constexpr int kMaxLayers = 20;
inline constexpr int kMaxWallName = 16;
inline constexpr int kMaxThicknessLength = 5;
inline constexpr float kMinThickness = 1;
inline constexpr float kMaxThickness = 99999;

struct WallLayer {
  std::string material;   // the Type of an OPAQUE.LIB material; empty: no layer
  std::string thickness;  // mm
};

// The three tables of the library, addressed from 1: the slot is the wall's
// number and its identity. An empty name marks a free slot.
struct WallsLib {
  std::array<std::string, kMaxWalls + 1> names;
  std::array<int16_t, kMaxWalls + 1> layer_count{};
  std::array<std::array<WallLayer, kMaxLayers + 1>, kMaxWalls + 1> layers;
  int highest = 0;  // the highest wall number read

  // The number of walls with a name.
  int WallCount() const;
  // The first slot from 1 up without a name, or 0 when all are taken.
  int FirstFreeSlot() const;
  // Empties the slot: its name and its 20 layers.
  void ClearSlot(int slot);
};

std::string WallsPath(const Workspace& ws);

// Reads `ProjectPath`/WALLS.LIB; a missing file is an empty library. A line
// that starts with a TAB is a layer of the header above it, any other line a
// header. Layer text is kept as it stands. A header whose number lies outside
// 1 to 100, a layer before any header and a 21st layer throw FileError
// naming the line.
WallsLib ReadWallsLib(const Workspace& ws);
// Rewrites WALLS.LIB: every slot with a name, then its layers that have a
// material. False when it could not be written; the old file then stands.
bool WriteWallsLib(const Workspace& ws, const WallsLib& lib);

// The thermal resistance of a wall in m2,K/W, in single precision: the
// surface resistances, 0.17 together, plus thickness / (1000 x conductivity)
// for each layer up to the first without a material. A layer whose material
// is not in `materials` adds nothing. A conductivity of 0 throws FileError on
// its line of OPAQUE.LIB, as does a sum past single precision.
float WallResistance(const WallsLib& lib, int slot, const OpaqueTable& materials,
                     const Workspace& ws);
// The U-value shown for a resistance: 1/R with three decimals, "None" when R
// is 0 or lower.
std::string UValueText(float resistance);

// True when a wall names the material Type as one of its layers.
bool MaterialInWalls(const WallsLib& lib, const std::string& type);

// True when an element of any case of the project (CASES.LIB) has the wall
// as its main or hole construction. A case without SURFACE.INP is passed
// over; a damaged one throws FileError.
bool WallReferenced(const Workspace& ws, int number);

// Thickness as the wall screen checks it after the input box: the texts of
// the failed rule, ended by a CR, or empty when it passes.
std::string CheckThickness(const std::string& text);

}  // namespace zelmo
