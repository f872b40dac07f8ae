// FORCEVEN.INP: the mechanical air flows of the case, one line per pair in
// the order of the pairs: from, a TAB, to, a TAB, the flow in litres per
// second. "0" stands for Outdoor; a positive flow goes from the first volume
// to the second.
#pragma once

#include <string>
#include <vector>

namespace zelmo {

struct Workspace;

inline constexpr const char* kForcedVentFile = "FORCEVEN.INP";
inline constexpr const char* kVentPairJoin = " -> ";

struct VentRow {
  std::string from;
  std::string to;
  std::string flow = "0";
};

// The flows of the case, one row per pair, in the order of the pairs.
using VentTable = std::vector<VentRow>;

// One row with flow "0" for every pair name ("1 -> 2", "0 -> 1"), a pair
// with Ground on either side left out; then the flows of the file for the
// pairs that still exist. Lines of pairs that no longer exist are passed
// over, so they go at the next save.
VentTable ReadForcedVent(const Workspace& ws, const std::vector<std::string>& pair_names);

// Rewrites FORCEVEN.INP, every field trimmed. False when it could not be
// written; the old file then stands.
bool WriteForcedVent(const Workspace& ws, const VentTable& rows);

// The air balance of each volume of `volume_list`: the flows out of it less
// the flows into it, read by the number rule and summed in single precision.
// Outdoor need not balance. Returns one line "Volume <n>: <sum>" and a CR for
// every volume whose sum is 0.005 or more either way; empty when all balance.
std::string VentBalanceMessage(const VentTable& rows, const std::vector<std::string>& volume_list);

}  // namespace zelmo
