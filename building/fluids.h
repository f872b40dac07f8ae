// FLUIDS.INP: what fills each volume of the case. One line per volume: the
// volume number, a TAB and the fluid number (1 air, 2 water, 3 rock).
#pragma once

#include <array>
#include <string>
#include <vector>

#include "building/surface_file.h"

namespace zelmo {

struct Workspace;

inline constexpr const char* kFluidsFile = "FLUIDS.INP";
inline constexpr const char* kFluidAir = "1";

struct FluidRow {
  std::string volume;  // the volume number as text
  std::string fluid;   // "1", "2", "3"; empty when no fluid is marked
};

// Slots 1 to 8 addressed by the volume number (slot 0 unused). An empty
// volume text means the slot holds nothing.
struct FluidTable {
  std::array<FluidRow, kMaxVolumes + 1> rows;
  // The fluid of a volume, air when the table says nothing about it.
  std::string FluidOf(const std::string& volume) const;
};

// Starts every volume of `volume_list` with air, then lays the file over it:
// each line's trimmed first field picks the slot of that volume number, and
// its trimmed rest is the fluid. A line whose number is 0 (or no number) is
// passed over; a number outside 0 to 8 throws FileError naming the line. A
// missing file leaves air everywhere.
FluidTable ReadFluids(const Workspace& ws, const std::vector<std::string>& volume_list);

// Rewrites FLUIDS.INP with one line per row. False when it could not be
// written; the old file then stands.
bool WriteFluids(const Workspace& ws, const std::vector<FluidRow>& rows);

}  // namespace zelmo
