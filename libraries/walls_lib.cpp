#include "libraries/walls_lib.h"

#include <cmath>

#include "building/surface_file.h"
#include "core/fields.h"
#include "core/file_system.h"
#include "core/numbers.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

namespace {

// The surface resistances of both sides together, m2,K/W.
constexpr float kSurfaceResistance = 0.17f;
constexpr const char* kOutOfRange = "Subscript out of range";

}  // namespace

int WallsLib::WallCount() const {
  int count = 0;
  for (int slot = 1; slot <= kMaxWalls; ++slot) {
    if (!TrimBlanks(names[slot]).empty()) ++count;
  }
  return count;
}

int WallsLib::FirstFreeSlot() const {
  for (int slot = 1; slot <= kMaxWalls; ++slot) {
    if (TrimBlanks(names[slot]).empty()) return slot;
  }
  return 0;
}

void WallsLib::ClearSlot(int slot) {
  names[slot].clear();
  for (auto& layer : layers[slot]) layer = {};
}

std::string WallsPath(const Workspace& ws) { return JoinPath(ws.ProjectPath, kWallsFile); }

WallsLib ReadWallsLib(const Workspace& ws) {
  WallsLib lib;
  const std::string path = WallsPath(ws);
  if (!FileCanOpen(path)) return lib;
  TextReader reader(path);
  int slot = 0;
  while (!reader.AtEnd()) {
    const std::string line = reader.ReadTrimmedLine();
    if (!line.empty() && line[0] == '\t') {
      if (slot == 0) reader.Fail(kOutOfRange);
      const int count = lib.layer_count[slot] + 1;
      if (count > kMaxLayers) reader.Fail(kOutOfRange);
      lib.layer_count[slot] = static_cast<int16_t>(count);
      const std::string rest = FieldAfter(line, kTab);
      lib.layers[slot][count] = {FieldBefore(rest, kTab), FieldAfter(rest, kTab)};
      continue;
    }
    const std::string first = line.find('\t') == std::string::npos ? line : FieldBefore(line, kTab);
    const double number = std::nearbyint(Val(first));
    if (!(number >= 1 && number <= kMaxWalls)) reader.Fail(kOutOfRange);
    slot = static_cast<int>(number);
    if (slot > lib.highest) lib.highest = slot;
    lib.names[slot] = TrimBlanks(FieldAfter(line, kTab));
    lib.layer_count[slot] = 0;
  }
  return lib;
}

bool WriteWallsLib(const Workspace& ws, const WallsLib& lib) {
  std::vector<std::string> lines;
  for (int slot = 1; slot <= kMaxWalls; ++slot) {
    const std::string name = TrimBlanks(lib.names[slot]);
    if (name.empty()) continue;
    lines.push_back(std::to_string(slot) + kTab + name);
    for (int k = 1; k <= kMaxLayers; ++k) {
      const WallLayer& layer = lib.layers[slot][k];
      if (layer.material.empty()) continue;
      lines.push_back(kTab + layer.material + kTab + layer.thickness);
    }
  }
  return WriteAllLines(WallsPath(ws), lines);
}

float WallResistance(const WallsLib& lib, int slot, const OpaqueTable& materials,
                     const Workspace& ws) {
  float resistance = kSurfaceResistance;
  if (slot < 1 || slot > kMaxWalls) return resistance;
  for (int k = 1; k <= kMaxLayers; ++k) {
    const WallLayer& layer = lib.layers[slot][k];
    if (layer.material.empty()) break;
    const int row = FindMaterial(materials, TrimBlanks(layer.material));
    if (row < 0) continue;
    const double conduct = Val(materials[row][2]);
    // Only a hand-edited library holds a conductivity the editor refuses.
    if (conduct == 0) throw FileError(OpaquePath(ws), row + 1, "Division by zero");
    resistance = static_cast<float>(resistance + Val(layer.thickness) / (1000 * conduct));
    if (!std::isfinite(resistance)) throw FileError(OpaquePath(ws), row + 1, "Overflow");
  }
  return resistance;
}

std::string UValueText(float resistance) {
  if (resistance <= 0) return "None";
  // The mask "###0.000": three decimals and a digit before the point.
  return FormatDecimals(1.0f / resistance, 3);
}

bool MaterialInWalls(const WallsLib& lib, const std::string& type) {
  for (int slot = 1; slot <= kMaxWalls; ++slot) {
    for (int k = 1; k <= kMaxLayers; ++k) {
      const std::string& material = lib.layers[slot][k].material;
      if (!material.empty() && TrimBlanks(material) == type) return true;
    }
  }
  return false;
}

bool WallReferenced(const Workspace& ws, int number) {
  return AnyElementOfProject(ws, [number](const std::vector<std::string>& fields) {
    // Field 15 is the main construction, field 22 the hole's.
    return Val(fields[15]) == number || Val(fields[22]) == number;
  });
}

std::string CheckThickness(const std::string& text) {
  const std::string trimmed = TrimBlanks(text);
  if (!IsSignedNumberText(trimmed)) return "Thickness must be a value\r";
  const float value = static_cast<float>(Val(trimmed));
  if (value < kMinThickness || value > kMaxThickness) {
    return "Thickness value (Min: " + NumText(kMinThickness) + ", Max: " + NumText(kMaxThickness) +
           ")\r";
  }
  return {};
}

}  // namespace zelmo
