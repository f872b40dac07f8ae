// ADVCONN.INP: the advection connections of the case, one line per pair of
// volumes that exchange heat across an opening: the pair name ("1 - 2"), a
// TAB, the distance in metres, a TAB, the area in square metres.
#pragma once

#include <string>
#include <vector>

#include "building/surface_file.h"

namespace zelmo {

struct Workspace;

inline constexpr const char* kAdvConnFile = "ADVCONN.INP";
inline constexpr const char* kAdvPairJoin = " - ";

struct AdvConnRow {
  std::string pair;  // the two volume numbers joined by " - ", the lower text first
  std::string distance = "0";
  std::string area = "0";
};

// The connections of the case, one row per pair, in the order of the grid.
using AdvConnTable = std::vector<AdvConnRow>;

// The pair name of two volume codes: ordered by exact text, lower first.
std::string AdvPairName(const std::string& a, const std::string& b);

// One row for every pair of volumes that some element stands between, in the
// order the elements first name them, with distance and area "0"; then the
// values of the file for the pairs that still exist. Lines of pairs that no
// longer exist are passed over, so they go at the next save.
AdvConnTable ReadAdvConn(const Workspace& ws, const SurfaceVolumes& volumes);

// Rewrites ADVCONN.INP, every field trimmed. False when it could not be
// written; the old file then stands.
bool WriteAdvConn(const Workspace& ws, const AdvConnTable& rows);

}  // namespace zelmo
