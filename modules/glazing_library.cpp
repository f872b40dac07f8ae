#include "modules/glazing_library.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/numbers.h"
#include "core/text_file.h"

namespace zelmo::modules {

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
    glass.table.resize(static_cast<size_t>(glass.angle_rows));
    double SolarFaces::*blocks[3] = {&SolarFaces::tau, &SolarFaces::rho_front,
                                     &SolarFaces::rho_back};
    for (auto block : blocks) {
      const std::string line = reader.ReadLine();
      if (line.size() < 6 * static_cast<size_t>(glass.angle_rows)) {
        reader.Fail("Angle rows missing");
      }
      for (int row = 0; row < glass.angle_rows; ++row) {
        glass.table[static_cast<size_t>(row)].*block =
            Number(line, 6 * static_cast<size_t>(row), 6);
      }
    }
    if (!glass.table.empty()) {
      glass.tau = glass.table[0].tau;
      glass.rho_front = glass.table[0].rho_front;
      glass.rho_back = glass.table[0].rho_back;
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

template <typename Entry>
const Entry* Named(const std::vector<Entry>& entries, const std::string& name) {
  for (const Entry& entry : entries) {
    if (entry.name == name) return &entry;
  }
  return nullptr;
}

std::string WindowText(const WindowLibrary& library, int window) {
  return "window type " + std::to_string(window) + " (" +
         library.windows[static_cast<size_t>(window - 1)].name + ")";
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

std::optional<GlazingPane> PaneOf(const LibraryGlass& glass, bool reversed) {
  GlazingPane pane;
  pane.eps_front = glass.eps_front;
  pane.eps_back = glass.eps_back;
  pane.thickness_mm = kNominalPaneMm;
  if (glass.type == "2") {
    const auto slab = FresnelSlab(glass.thickness_mm, glass.refraction, glass.extinction);
    if (!slab) return std::nullopt;
    pane.solar = *slab;
    pane.thickness_mm = glass.thickness_mm;
  } else {
    if (glass.type != "3" && glass.angle_rows < 1) return std::nullopt;
    pane.solar = {glass.tau, glass.rho_front, glass.rho_back};
  }
  // Fractions that no glass can have would pass on into the whole.
  if (!SoundFaces(pane.solar) || !(pane.eps_front >= 0 && pane.eps_front <= 1) ||
      !(pane.eps_back >= 0 && pane.eps_back <= 1)) {
    return std::nullopt;
  }
  if (reversed) {
    std::swap(pane.eps_front, pane.eps_back);
    std::swap(pane.solar.rho_front, pane.solar.rho_back);
  }
  return pane;
}

const LibraryGlass* GlassNamed(const WindowLibrary& library, const std::string& name) {
  return Named(library.glasses, name);
}

const LibraryGas* GasNamed(const WindowLibrary& library, const std::string& name) {
  return Named(library.gases, name);
}

std::string NoResultText(const WindowLibrary& library, int window) {
  return "the panes and gaps of " + WindowText(library, window) + " give no result";
}

WindowGlazing GlazingOfWindow(const WindowLibrary& library, const std::string& path, int window) {
  const std::string number = "window type " + std::to_string(window);
  if (window < 1 || window > static_cast<int>(library.windows.size())) {
    return {std::nullopt, GlazingFault::kNoType, number + " is not in " + path};
  }
  const LibraryWindow& type = library.windows[static_cast<size_t>(window - 1)];
  const std::string which = WindowText(library, window);
  if (type.panes.empty()) return {std::nullopt, GlazingFault::kNoPanes, which + " has no panes"};
  Glazing glazing;
  for (const LibraryPane& pane : type.panes) {
    const LibraryGlass* glass = GlassNamed(library, pane.glass);
    if (!glass) {
      return {std::nullopt, GlazingFault::kNoGlass,
              "glass type " + pane.glass + " of " + which + " is not in " + path};
    }
    const auto glazing_pane = PaneOf(*glass, pane.reversed);
    if (!glazing_pane) {
      return {std::nullopt, GlazingFault::kBadGlass,
              "glass type " + pane.glass + " has no sound data at normal incidence"};
    }
    glazing.panes.push_back(*glazing_pane);
  }
  for (const LibraryGap& gap : type.gaps) {
    const LibraryGas* gas = GasNamed(library, gap.gas);
    if (!gas) {
      return {std::nullopt, GlazingFault::kNoGas,
              "gas type " + gap.gas + " of " + which + " is not in " + path};
    }
    glazing.gaps.push_back({gap.width_mm, gas->properties});
  }
  return {std::move(glazing), GlazingFault::kNone, ""};
}

}  // namespace zelmo::modules
