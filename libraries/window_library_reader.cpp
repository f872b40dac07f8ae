#include "libraries/window_library_reader.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/numbers.h"
#include "core/text_file.h"
#include "libraries/gas_lib.h"
#include "libraries/glass_lib.h"
#include "libraries/window_types_lib.h"

namespace zelmo {

namespace {

// The cell of `width` places from `at`; what lies past the end of the line is
// empty.
std::string Cell(const std::string& line, size_t at, size_t width) {
  return at < line.size() ? line.substr(at, width) : std::string();
}

double Number(const std::string& line, size_t at, size_t width) {
  return Val(Cell(line, at, width));
}

// The count that opens a block, 0 to `most`.
int Count(TextReader& reader, int most) {
  const double count = Val(reader.ReadLine());
  if (!(count >= 0 && count <= most)) reader.Fail("Subscript out of range");
  return static_cast<int>(count);
}

// The blank line that closes a record or a count.
void Closing(TextReader& reader) {
  if (!TrimBlanks(reader.ReadLine()).empty()) reader.Fail("Blank line expected");
}

// The text after the last blank, and before it, trimmed.
std::pair<std::string, std::string> SplitLast(const std::string& line) {
  const size_t blank = line.rfind(' ');
  if (blank == std::string::npos) return {TrimBlanks(line), ""};
  return {TrimBlanks(line.substr(0, blank)), line.substr(blank + 1)};
}

LibraryGlass ReadGlass(TextReader& reader) {
  LibraryGlass glass;
  // Name, two emittances of six places each, a blank and the data type.
  const std::string first = reader.ReadLine();
  const size_t blank = first.rfind(' ');
  const std::string front = first.substr(0, blank == std::string::npos ? 0 : blank);
  const std::string type = blank == std::string::npos ? first : first.substr(blank + 1);
  if (front.size() < 12) reader.Fail("Glass line too short");
  glass.type = type;
  glass.name = TrimBlanks(front.substr(0, front.size() - 12));
  glass.eps_front = Number(front, front.size() - 12, 6);
  glass.eps_back = Number(front, front.size() - 6, 6);
  if (type == "2") {
    const std::string line = reader.ReadLine();
    glass.thickness_mm = Number(line, 1, 7);
    glass.refraction = Number(line, 8, 8);
    glass.extinction = Number(line, 16, 8);
  } else if (type == "3") {
    const std::string line = reader.ReadLine();
    glass.tau = Number(line, 1, 6);
    glass.rho_front = glass.rho_back = Number(line, 7, 6);
  } else {
    const double rows = Val(reader.ReadLine());
    glass.angle_rows = rows >= 1 && rows <= kMaxAngles ? static_cast<int>(rows) : 0;
    // Three blocks of six places a row; row 1 is normal incidence.
    double* first[3] = {&glass.tau, &glass.rho_front, &glass.rho_back};
    for (double* value : first) {
      const std::string line = reader.ReadLine();
      if (glass.angle_rows > 0 && line.size() < 6) reader.Fail("Angle row 1 missing");
      *value = Number(line, 0, 6);
    }
  }
  Closing(reader);
  return glass;
}

// The name, which may hold blanks, and eight numbers, one blank apart.
LibraryGas ReadGas(TextReader& reader) {
  const std::string line = reader.ReadLine();
  std::vector<std::string> fields;
  size_t from = 0;
  for (size_t blank; (blank = line.find(' ', from)) != std::string::npos; from = blank + 1) {
    fields.push_back(line.substr(from, blank - from));
  }
  fields.push_back(line.substr(from));
  if (fields.size() < 9) reader.Fail("Gas line with fewer than nine fields");
  LibraryGas gas;
  const size_t numbers = fields.size() - 8;
  for (size_t i = 0; i < numbers; ++i) gas.name += (i > 0 ? " " : "") + fields[i];
  double* values[8] = {&gas.properties.k,   &gas.properties.dk,  &gas.properties.mu,
                       &gas.properties.dmu, &gas.properties.rho, &gas.properties.drho,
                       &gas.properties.pr,  &gas.properties.dpr};
  for (size_t i = 0; i < 8; ++i) *values[i] = Val(fields[numbers + i]);
  gas.name = TrimBlanks(gas.name);
  return gas;
}

LibraryWindow ReadWindow(TextReader& reader) {
  LibraryWindow window;
  const auto [name, count] = SplitLast(reader.ReadLine());
  window.name = name;
  // The number of pane lines, as the library was written.
  const double panes = std::nearbyint(Val(count));
  const int lines = panes > 0 ? static_cast<int>(std::min<double>(panes, kMaxPanes)) : 0;
  for (int pane = 1; pane <= lines; ++pane) {
    if (pane > 1) {
      const std::string line = reader.ReadLine();
      const std::string gap = line.empty() ? line : line.substr(1);
      const size_t blank = gap.find(' ');
      window.gaps.push_back({Val(gap.substr(0, blank)),
                             blank == std::string::npos ? "" : TrimBlanks(gap.substr(blank + 1))});
    }
    const auto [glass, reversed] = SplitLast(reader.ReadLine());
    window.panes.push_back({glass, reversed == "1"});
  }
  Closing(reader);
  return window;
}

}  // namespace

WindowLibrary ReadWindowLibrary(const std::string& path) {
  TextReader reader(path);
  return ReadWindowLibrary(reader);
}

WindowLibrary ReadWindowLibrary(TextReader& reader) {
  WindowLibrary library;
  const int glasses = Count(reader, kMaxGlassTypes);
  Closing(reader);
  for (int g = 0; g < glasses; ++g) library.glasses.push_back(ReadGlass(reader));
  const int gases = Count(reader, kMaxGasTypes);
  Closing(reader);
  for (int g = 0; g < gases; ++g) library.gases.push_back(ReadGas(reader));
  Closing(reader);
  const int windows = Count(reader, kMaxWindowTypes);
  Closing(reader);
  for (int w = 0; w < windows; ++w) library.windows.push_back(ReadWindow(reader));
  return library;
}

}  // namespace zelmo
