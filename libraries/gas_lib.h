// The gas type library of a project (Gastp.INP): the fill gases of window
// gaps, each with four properties as linear functions of temperature. Window
// types name the gas of each gap, so a gas may move in the file.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "libraries/library_rules.h"
#include "modules/glazing_library.h"

namespace zelmo {

struct Workspace;

inline constexpr const char* kGasTypesFile = "Gastp.INP";
inline constexpr int kMaxGasTypes = modules::kMaxGasTypes;
inline constexpr int kGasFields = 9;

// Rows 1 to 10, columns 1 to 12 of which 1 to 9 are used: the name, then
// conductivity, viscosity, density and Prandtl number, each followed by its
// change with temperature. Row and column 0 are not used.
struct GasTable {
  GasTable() : cells(kMaxGasTypes + 1, std::vector<std::string>(13)) {}
  std::string& Cell(int row, int col) { return cells[row][col]; }
  const std::string& Cell(int row, int col) const { return cells[row][col]; }
  std::vector<std::vector<std::string>> cells;
  int GasCount = 0;
};

// One gas a line; no file gives no gas. More than ten lines throws FileError.
GasTable ReadGasTypes(const Workspace& ws);
// Rows 1 to GasCount, the nine cells each followed by a TAB. False when not
// written.
bool WriteGasTypes(const Workspace& ws, const GasTable& table);

// The nine inputs of a gas in column order, by name, label and grid heading.
struct GasFieldText {
  const char* name;
  const char* label;
  const char* heading;
  const char* message;  // the fault of a value that is no number
};
inline constexpr std::array<GasFieldText, kGasFields> kGasColumns = {{
    {"namegas", "Name :", "Gas", "Name is missing"},
    {"k", "Conductivity(C):", "Conductivity(C)", "C must be a real or integer number"},
    {"dk", "dC/dT:", "dC/dT", "dC/dT must be a real or integer number"},
    {"u", "Viscosity(V):", "Viscosity(V)", "V must be a real or integer number"},
    {"du", "dV/dT:", "dV/dT", "dV/dT must be a real or integer number"},
    {"r", "Density(D):", "Density(D)", "D must be a real or integer number"},
    {"dr", "dD/dT:", "dD/dT", "dD/dT must be a real or integer number"},
    {"p", "Prandtl num.(P):", "Prandtl num(P)", "P must be a real or integer number"},
    {"dp", "dP/dT:", "dP/dT", "dP/dT must be a real or integer number"},
}};

// A name, and eight values that may carry an exponent. No range is enforced
// and names are free, blanks and repeats included. Field i is column i + 1.
Faults GasFaults(const std::array<std::string, kGasFields>& fields);

}  // namespace zelmo
