// SURFACE.INP: the case's building elements, one block of 30 lines each (the
// name, then 29 field lines of a TAB and the field's text).
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zelmo {

struct Workspace;

inline constexpr int kMaxElements = 100;
// Elements name volumes 1 to 8 on their sides.
inline constexpr int kMaxVolumes = 8;
inline constexpr int kSurfaceFields = 29;
inline constexpr const char* kSurfaceFile = "SURFACE.INP";

// The two tables of text addressed from 1, as the file holds them: SurfName
// has slots 1 to 100, SurfData[slot] fields 1 to 29 (index 0 unused). A slot
// whose name is empty is no element.
struct SurfaceTable {
  SurfaceTable();
  std::vector<std::string> SurfName;
  std::vector<std::vector<std::string>> SurfData;
  int SurfCount = 0;  // the highest slot in use
};

// Blanks the 29 fields of the element in `slot` and puts "0" into its shape
// and its three coordinates: a rectangle at the origin.
void ClearElement(SurfaceTable& table, int slot);

// Reads `CasePath`/SURFACE.INP. A missing file is an empty building. A file
// cut inside a block, or an element beyond 100, throws FileError naming the
// file and the line, and `table` is left as it was.
void ReadSurfaces(const Workspace& ws, SurfaceTable& table);

// Front (row 1) and back (row 2) volume codes of each element, trimmed.
struct SurfaceVolumes {
  std::vector<std::string> front;  // 0-based, one per element
  std::vector<std::string> back;
  int count() const { return static_cast<int>(front.size()); }
};
// Gaps are not counted. A missing file gives no elements; a file cut inside a
// block, an element beyond 100, or a volume code outside -1 to 8 throws
// FileError naming the line.
SurfaceVolumes ReadSurfaceVolumes(const Workspace& ws);

// True when `uses` holds for the 29 fields (numbered from 1) of an element of
// any case of the current project, as CASES.LIB lists them: the test of a
// library before one of its rows is deleted. A case without SURFACE.INP has
// no elements; a register line that names no folder of the project is passed
// over; a damaged SURFACE.INP throws FileError.
bool AnyElementOfProject(const Workspace& ws,
                         const std::function<bool(const std::vector<std::string>&)>& uses);

// Rewrites SURFACE.INP (gaps closed, names and fields trimmed) and marks all
// six modules of the case stale. False when the file could not be written.
bool WriteSurfaces(const Workspace& ws, const SurfaceTable& table);

}  // namespace zelmo
