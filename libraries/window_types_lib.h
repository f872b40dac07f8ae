// The window type library of a project (Wndtp.LIB): named stacks of one to
// five panes of glass with a gas filled gap between neighbours. Elements name
// a window type by its number, which is its row. Also the older, read-only
// window list WINDS.LIB.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "libraries/library_rules.h"
#include "modules/glazing_library.h"

namespace zelmo {

struct Workspace;

inline constexpr const char* kWindowTypesFile = "Wndtp.LIB";
inline constexpr const char* kWindsLibFile = "WINDS.LIB";
inline constexpr int kMaxWindowTypes = modules::kMaxWindowTypes;
inline constexpr int kMaxPanes = modules::kMaxPanes;
inline constexpr int kWindowNameLength = 30;
inline constexpr int kWindowColumns = 20;

// Columns of a window type: 1 the name, 2 the number of panes; pane j has its
// glass in 4j-1 and its reversed coating ("Yes" or "No") in 4j, the gap
// behind it its width in mm in 4j+1 and its gas in 4j+2.
constexpr int GlassColumn(int pane) { return 4 * pane - 1; }
constexpr int ReversedColumn(int pane) { return 4 * pane; }
constexpr int GapColumn(int pane) { return 4 * pane + 1; }
constexpr int GasColumn(int pane) { return 4 * pane + 2; }

// Rows 1 to 40 by columns 1 to 20; row and column 0 are not used. An empty
// name marks a free row.
struct WindowTable {
  WindowTable() : cells(kMaxWindowTypes + 1, std::vector<std::string>(kWindowColumns + 1)) {}
  std::string& Cell(int row, int col) { return cells[row][col]; }
  const std::string& Cell(int row, int col) const { return cells[row][col]; }
  // The number of panes of a row, 0 to 5.
  int Panes(int row) const;
  std::vector<std::vector<std::string>> cells;
};

// One line a window type, its number first. No file gives an empty table. A
// number outside 1 to 40, or more panes than the row holds, throws FileError
// naming the line.
WindowTable ReadWindowTypes(const Workspace& ws);
// One line for each row with a name, in ascending order. False when not
// written.
bool WriteWindowTypes(const Workspace& ws, const WindowTable& table);

// Whether a glass is the pane of a window type, or a gas fills a gap of one,
// in Wndtp.LIB as it stands on disk.
bool GlassIsReferenced(const Workspace& ws, const std::string& glass);
bool GasIsReferenced(const Workspace& ws, const std::string& gas);
// Whether an element of any case of the project has window type `number` as
// its main window or in its hole.
bool WindowIsReferenced(const Workspace& ws, int number);

// The pane of AddGaGl: the gap and the gas in front of it, except for the
// first pane, which has none, and its glass.
enum PaneField { kGapField, kGasField, kPaneGlassField };
Faults PaneFaults(const std::string& gap, const std::string& gas, const std::string& glass,
                  bool first_pane);

// WINDS.LIB: a header line (the number, four TAB fields) and, for each line
// that starts with a TAB, one entry of that window. Windows 0 to 76; a number
// outside them throws FileError.
inline constexpr int kMaxWindsLib = 76;
struct WindsRecord {
  std::array<std::string, 4> fields;
  std::vector<std::string> entries;
};
struct WindsLib {
  WindsLib() : windows(kMaxWindsLib + 1) {}
  std::vector<WindsRecord> windows;
  int highest = 0;
};
WindsLib ReadWindsLib(const Workspace& ws);

}  // namespace zelmo
