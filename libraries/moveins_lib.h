// MOVEINS.LIB: the project's interior curtains (movable insulations), one
// line per curtain, ascending by Type: Type, Name, solar transmittance (%),
// solar absorptance (%) and R-value (m2,K/W), TAB-separated. Elements refer
// to a curtain by its number.
#pragma once

#include <string>
#include <vector>

namespace zelmo {

struct Workspace;

inline constexpr const char* kMoveInsFile = "MOVEINS.LIB";
inline constexpr int kMaxCurtains = 76;

struct CurtainRecord {
  std::string Type;
  std::string Name;
  std::string Transmittance;
  std::string Absorptance;
  std::string RValue;
};

// The curtains of `ProjectPath`/MOVEINS.LIB in file order, each field
// trimmed; blank lines are passed over. A missing file is an empty library.
// More curtains than the library holds throw FileError naming the line.
std::vector<CurtainRecord> ReadMoveInsLib(const Workspace& ws);

// Writes the curtains as the whole file; with none the file is deleted, as an
// empty library has no file. False when the file could not be written.
bool WriteMoveInsLib(const Workspace& ws, const std::vector<CurtainRecord>& curtains);

// True when a window of an element of any case of the project carries the
// curtain `number` (compared as text). A curtain on an element without a
// window is not looked at.
bool CurtainReferenced(const Workspace& ws, const std::string& number);

}  // namespace zelmo
