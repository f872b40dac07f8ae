// OPAQUE.LIB: the project's table of building materials, one line per
// material: Type, Name, conductivity, specific heat and density, TAB apart.
// Wall layers name a material by its Type, which therefore never changes.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace zelmo {

struct Workspace;

inline constexpr const char* kOpaqueFile = "OPAQUE.LIB";
inline constexpr int kMaxMaterials = 200;
// Types 1 to 47 are the predefined materials; the user's own run from 48.
inline constexpr int kLastPredefinedType = 47;
inline constexpr int kOpaqueFields = 5;

// The five fields of a material as text: Type, Name, Conduct, Heat, Density.
using OpaqueRow = std::array<std::string, kOpaqueFields>;
using OpaqueTable = std::vector<OpaqueRow>;

std::string OpaquePath(const Workspace& ws);

// The rows of `ProjectPath`/OPAQUE.LIB, every field trimmed, the fifth the
// rest of the line. A missing file is an empty table; a line beyond the 200
// materials throws FileError naming it.
OpaqueTable ReadOpaqueLib(const Workspace& ws);
// Rewrites OPAQUE.LIB, a line per row, each field trimmed. False when it
// could not be written; the old file then stands.
bool WriteOpaqueLib(const Workspace& ws, const OpaqueTable& rows);

// The index of the first row whose Type is `type` as text, or -1.
int FindMaterial(const OpaqueTable& rows, const std::string& type);

// The bounds of a material as the editor checks them, fields in the order
// Name, Conduct, Heat, Density. `message` holds the text of every failed
// rule, each followed by a CR; `first_fault` is the index of the first
// failed field, -1 when all pass. A decimal comma reads as a point.
struct MaterialCheck {
  std::string message;
  int first_fault = -1;
};
MaterialCheck CheckMaterial(const std::array<std::string, 4>& fields);

}  // namespace zelmo
