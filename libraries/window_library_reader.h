// Wndw.Lib read back: the glass types, gas types and window types of the
// project as the window properties take them from the one file the
// calculation modules read.
#pragma once

#include <string>
#include <vector>

#include "libraries/glazing.h"

namespace zelmo {

// A glass record. The emittances and the percents are the fractions of the
// file. Only what normal incidence needs is kept: angle row 1 of the table.
struct LibraryGlass {
  std::string name;
  double eps_front = 0, eps_back = 0;
  std::string type;  // "2" Fresnel data, "3" normal data, anything else the table
  int angle_rows = 0;
  double tau = 0, rho_front = 0, rho_back = 0;              // table row 1, or normal data
  double thickness_mm = 0, refraction = 0, extinction = 0;  // Fresnel data
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
class TextReader;
WindowLibrary ReadWindowLibrary(TextReader& reader);

}  // namespace zelmo
