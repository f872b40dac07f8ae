#include "libraries/window_types_lib.h"

#include <algorithm>
#include <cmath>

#include "building/surface_file.h"
#include "core/fields.h"
#include "core/file_system.h"
#include "core/numbers.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

namespace {

// A number of a file taken as a table index: rounded as the runtime rounds,
// and refused outside the table.
int IndexIn(const TextReader& reader, const std::string& text, int low, int high) {
  const double value = std::nearbyint(Val(text));
  if (!(value >= low && value <= high)) reader.Fail("Subscript out of range");
  return static_cast<int>(value);
}

}  // namespace

int WindowTable::Panes(int row) const {
  const double panes = std::nearbyint(Val(Cell(row, 2)));
  if (!(panes > 0)) return 0;
  return static_cast<int>(std::min<double>(panes, kMaxPanes));
}

WindowTable ReadWindowTypes(const Workspace& ws) {
  WindowTable table;
  const std::string path = JoinPath(ws.ProjectPath, kWindowTypesFile);
  if (!FileCanOpen(path)) return table;
  TextReader reader(path);
  while (!reader.AtEnd()) {
    const std::string line = reader.ReadLine();
    const int number = IndexIn(reader, FieldBefore(line, kTab), 1, kMaxWindowTypes);
    auto& row = table.cells[number];
    std::string rest = FieldAfter(line, kTab);
    row[1] = TrimBlanks(FieldBefore(rest, kTab));
    rest = FieldAfter(rest, kTab);
    row[2] = TrimBlanks(FieldBefore(rest, kTab));
    rest = FieldAfter(rest, kTab);
    // Column 20 has no TAB behind it, so a fifth pane's reversed coating
    // reads as empty: old files must keep meaning what they meant.
    const double last = 4 * Val(row[2]);
    for (int col = 3; col <= last; ++col) {
      if (col > kWindowColumns) reader.Fail("Subscript out of range");
      row[col] = TrimBlanks(FieldBefore(rest, kTab));
      rest = FieldAfter(rest, kTab);
    }
  }
  return table;
}

bool WriteWindowTypes(const Workspace& ws, const WindowTable& table) {
  std::vector<std::string> lines;
  for (int row = 1; row <= kMaxWindowTypes; ++row) {
    if (table.Cell(row, 1).empty()) continue;
    std::string line = std::to_string(row);
    for (int col = 1; col <= kWindowColumns; ++col) {
      const std::string& cell = table.Cell(row, col);
      // The number of panes in the number-to-text form: " 3".
      line += kTab + (col == 2 && !cell.empty() ? NumText(Val(cell)) : cell);
    }
    lines.push_back(line);
  }
  return WriteAllLines(JoinPath(ws.ProjectPath, kWindowTypesFile), lines);
}

bool GlassIsReferenced(const Workspace& ws, const std::string& glass) {
  const WindowTable table = ReadWindowTypes(ws);
  for (int row = 1; row <= kMaxWindowTypes; ++row) {
    if (table.Cell(row, 1).empty()) continue;
    for (int pane = 1; pane <= table.Panes(row); ++pane) {
      if (table.Cell(row, GlassColumn(pane)) == glass) return true;
    }
  }
  return false;
}

bool GasIsReferenced(const Workspace& ws, const std::string& gas) {
  const WindowTable table = ReadWindowTypes(ws);
  for (int row = 1; row <= kMaxWindowTypes; ++row) {
    if (table.Cell(row, 1).empty()) continue;
    // One gap fewer than panes: the first pane has none in front of it.
    for (int pane = 1; pane < table.Panes(row); ++pane) {
      if (table.Cell(row, GasColumn(pane)) == gas) return true;
    }
  }
  return false;
}

bool WindowIsReferenced(const Workspace& ws, int number) {
  return AnyElementOfProject(ws, [number](const std::vector<std::string>& fields) {
    // Field 20 is the main window type, field 27 the hole's.
    return Val(fields[20]) == number || Val(fields[27]) == number;
  });
}

Faults PaneFaults(const std::string& gap, const std::string& gas, const std::string& glass,
                  bool first_pane) {
  Faults faults;
  if (!first_pane) {
    AddFault(faults, NumberWithin(gap, 0.1, 100, true), kGapField,
             "Thickness must be a value (" + LimitsText(0.1, 100));
    AddFault(faults, !gas.empty(), kGasField, "No gastype assigned ");
  }
  AddFault(faults, !glass.empty(), kPaneGlassField, "No glasstype assigned ");
  return faults;
}

WindsLib ReadWindsLib(const Workspace& ws) {
  WindsLib lib;
  const std::string path = JoinPath(ws.ProjectPath, kWindsLibFile);
  if (!FileCanOpen(path)) return lib;
  TextReader reader(path);
  int current = 0;
  while (!reader.AtEnd()) {
    const std::string line = reader.ReadLine();
    if (!line.empty() && line[0] == '\t') {
      lib.windows[current].entries.push_back(FieldAfter(line, kTab));
      continue;
    }
    current = IndexIn(reader, FieldBefore(line, kTab), 0, kMaxWindsLib);
    lib.highest = std::max(lib.highest, current);
    WindsRecord& record = lib.windows[current];
    record = {};
    std::string rest = FieldAfter(line, kTab);
    for (int i = 0; i < 3; ++i) {
      record.fields[i] = TrimBlanks(FieldBefore(rest, kTab));
      rest = FieldAfter(rest, kTab);
    }
    record.fields[3] = TrimBlanks(rest);
  }
  return lib;
}

}  // namespace zelmo
