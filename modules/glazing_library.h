// Wndw.Lib read back: the glass types, gas types and window types of the
// project as the window properties take them from the one file the
// calculation modules read.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "modules/glazing.h"

namespace zelmo {
class TextReader;
}

namespace zelmo::modules {

// The limits of the libraries the file is written from.
inline constexpr int kMaxGlassTypes = 40;
inline constexpr int kMaxAngles = 11;
inline constexpr int kMaxGasTypes = 10;
inline constexpr int kMaxWindowTypes = 40;
inline constexpr int kMaxPanes = 5;

// A glass record. The emittances and the percents are the fractions of the
// file. The table's rows stand for angles evenly spaced from 0 to 90 degrees.
struct LibraryGlass {
  std::string name;
  double eps_front = 0, eps_back = 0;
  std::string type;  // "2" Fresnel data, "3" normal data, anything else the table
  int angle_rows = 0;
  double tau = 0, rho_front = 0, rho_back = 0;              // table row 1, or normal data
  double thickness_mm = 0, refraction = 0, extinction = 0;  // Fresnel data
  std::vector<SolarFaces> table;                            // the angle rows, row 1 first
};

struct LibraryGas {
  std::string name;
  GasProperties properties;
};

struct LibraryPane {
  std::string glass;
  bool reversed = false;
};

// The gap in front of a pane, from the second pane on.
struct LibraryGap {
  double width_mm = 0;
  std::string gas;
};

struct LibraryWindow {
  std::string name;
  std::vector<LibraryPane> panes;
  std::vector<LibraryGap> gaps;
};

struct WindowLibrary {
  std::vector<LibraryGlass> glasses;
  std::vector<LibraryGas> gases;
  std::vector<LibraryWindow> windows;  // by number, from 1
};

// Reads the file whole. A file that cannot be opened, is cut short, holds
// more records than the libraries allow or has a record out of step (a
// closing line that isn't blank) throws FileError naming the line.
WindowLibrary ReadWindowLibrary(const std::string& path);
WindowLibrary ReadWindowLibrary(TextReader& reader);

// The pane of a glass at normal incidence as it stands in the window (a
// reversed coating swaps front and back); nothing for data that no glass can
// have (a table without rows, fractions outside 0 to 1).
std::optional<GlazingPane> PaneOf(const LibraryGlass& glass, bool reversed);

// The glass and gas of a library by name; nothing when there is none.
const LibraryGlass* GlassNamed(const WindowLibrary& library, const std::string& name);
const LibraryGas* GasNamed(const WindowLibrary& library, const std::string& name);

// Window type `window` (from 1) of the library read from `path`, as panes at
// normal incidence and gaps, or what keeps it from being one: the fault and
// a text naming the window type and what is missing.
enum class GlazingFault { kNone, kNoType, kNoPanes, kNoGlass, kBadGlass, kNoGas };
struct WindowGlazing {
  std::optional<Glazing> glazing;
  GlazingFault fault = GlazingFault::kNone;
  std::string text;
};
WindowGlazing GlazingOfWindow(const WindowLibrary& library, const std::string& path, int window);
// The text for a window type whose panes and gaps give no finite result.
std::string NoResultText(const WindowLibrary& library, int window);

}  // namespace zelmo::modules
