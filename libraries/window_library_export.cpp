#include "libraries/window_library_export.h"

#include "core/numbers.h"
#include "core/text_file.h"
#include "core/workspace.h"
#include "libraries/gas_lib.h"
#include "libraries/glass_lib.h"
#include "libraries/window_types_lib.h"

namespace zelmo {

namespace {

// A percent of the libraries as the modules take it, a fraction: the cell's
// number times 0.01, through the number-to-text form without its sign blank,
// in `width` places with `decimals` decimals.
std::string Fraction(const std::string& cell, int decimals, int width) {
  return FormatFixed(TrimBlanks(NumTextDouble(Val(TrimBlanks(cell)) * 0.01)), decimals, width);
}

void AddGlass(std::vector<std::string>& lines, const GlassTable& table, int g) {
  auto cell = [&](int col) { return TrimBlanks(table.Cell(g, col)); };
  const std::string type = cell(4);
  lines.push_back(cell(1) + Fraction(cell(2), 2, 6) + Fraction(cell(3), 2, 6) + " " + type);
  if (type == "2") {
    lines.push_back(" " + FormatFixed(cell(5), 2, 7) + FormatFixed(cell(6), 2, 8) +
                    FormatFixed(cell(7), 2, 8));
  } else if (type == "3") {
    lines.push_back(" " + Fraction(cell(5), 2, 6) + Fraction(cell(6), 2, 6));
  } else {
    // The angle table; a data type that is none of the three reads as one.
    const std::string count = cell(kGlassRowsColumn);
    lines.push_back(" " + count);
    int rows = ValInt(count);
    if (rows > kMaxAngles) rows = kMaxAngles;
    for (int block = 0; block < 3; ++block) {
      std::string line;
      for (int r = 1; r <= rows; ++r) line += Fraction(table.Cell(g, AngleColumn(block, r)), 3, 6);
      lines.push_back(line);
    }
  }
  lines.push_back(" ");
}

}  // namespace

std::vector<std::string> WindowLibraryLines(const GlassTable& glass, const GasTable& gas,
                                            const WindowTable& windows, bool& library_ok) {
  library_ok = true;
  std::vector<std::string> lines;
  lines.push_back(std::to_string(glass.GlassCount) + " ! Number of glass types");
  lines.push_back(" ");
  for (int g = 1; g <= glass.GlassCount; ++g) AddGlass(lines, glass, g);

  lines.push_back(std::to_string(gas.GasCount) +
                  " ! Number of gas types  k   dk   u   du   r   dr   p   dp");
  lines.push_back(" ");
  for (int g = 1; g <= gas.GasCount; ++g) {
    std::string line;
    for (int col = 1; col <= kGasFields; ++col) {
      line += TrimBlanks(gas.Cell(g, col)) + (col < kGasFields ? " " : "");
    }
    lines.push_back(line);
  }
  lines.push_back(" ");

  // Window types keep their numbers, so every slot up to the last one named
  // has a record; a free slot gets a dummy of the first glass.
  int count = 0;
  for (int row = 1; row <= kMaxWindowTypes; ++row) {
    if (!TrimBlanks(windows.Cell(row, 1)).empty()) count = row;
  }
  lines.push_back(std::to_string(count) + " ! Number of window types");
  lines.push_back(" ");
  for (int row = 1; row <= count; ++row) {
    auto cell = [&](int col) { return TrimBlanks(windows.Cell(row, col)); };
    if (cell(1).empty()) {
      lines.push_back(" Dummy 1");
      lines.push_back("  " + (glass.GlassCount > 0 ? TrimBlanks(glass.Cell(1, 1)) : "") + " 0");
      lines.push_back(" ");
      continue;
    }
    lines.push_back(" " + cell(1) + " " + cell(2));
    const int panes = windows.Panes(row);
    if (panes == 0) library_ok = false;
    for (int pane = 1; pane <= panes; ++pane) {
      if (pane > 1)
        lines.push_back(" " + cell(GapColumn(pane - 1)) + " " + cell(GasColumn(pane - 1)));
      lines.push_back(" " + cell(GlassColumn(pane)) + " " +
                      (cell(ReversedColumn(pane)) == "Yes" ? "1" : "0"));
    }
    lines.push_back(" ");
  }
  return lines;
}

bool WriteWindowLibrary(const Workspace& ws, const GlassTable& glass, const GasTable& gas,
                        const WindowTable& windows) {
  bool library_ok = true;
  const auto lines = WindowLibraryLines(glass, gas, windows, library_ok);
  const std::string path = JoinPath(ws.ProjectPath, kWindowLibraryFile);
  if (!WriteAllLines(path, lines)) FailWrite(path);
  return library_ok;
}

bool WriteWindowLibrary(const Workspace& ws) {
  return WriteWindowLibrary(ws, ReadGlassTypes(ws), ReadGasTypes(ws), ReadWindowTypes(ws));
}

}  // namespace zelmo
