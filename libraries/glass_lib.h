// The glass type library of a project (Glasstp.INP): two emittances and the
// optical data of each glass in one of three forms, a table by angle of
// incidence, Fresnel data, or normal transmittance and reflectance. Window
// types name their panes' glass, so a glass may move in the file. Also the
// older, read-only glass list GLASS.LIB.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "libraries/library_rules.h"
#include "modules/glazing_library.h"

namespace zelmo {

struct Workspace;

inline constexpr const char* kGlassTypesFile = "Glasstp.INP";
inline constexpr const char* kGlassLibFile = "GLASS.LIB";
inline constexpr int kMaxGlassTypes = modules::kMaxGlassTypes;
inline constexpr int kMaxAngles = modules::kMaxAngles;
inline constexpr int kGlassNameLength = 30;
inline constexpr int kGlassColumns = 53;
// Columns of a glass: 1 name, 2 and 3 the emittances, 4 the data type, 5 to 7
// the Fresnel data, 8 the number of angle rows, then three blocks of 15.
inline constexpr int kGlassRowsColumn = 8;
// The column of angle row `row` (1 to 11) in block `block`: 0 transmission,
// 1 reflection of the front, 2 reflection of the back.
constexpr int AngleColumn(int block, int row) { return 8 + 15 * block + row; }

// Rows 1 to 40 in file order without gaps, columns 1 to 53; row and column 0
// are not used.
struct GlassTable {
  GlassTable();
  std::string& Cell(int row, int col) { return cells[row][col]; }
  const std::string& Cell(int row, int col) const { return cells[row][col]; }
  std::vector<std::vector<std::string>> cells;
  int GlassCount = 0;
};

// Four lines a glass. A group whose name is empty is dropped; no file gives
// no glass. A file cut inside a group, more than 40 glasses or a number of
// angle rows outside 0 to 11 throws FileError naming the line.
GlassTable ReadGlassTypes(const Workspace& ws);
// Rows 1 to GlassCount, four lines each. False when not written.
bool WriteGlassTypes(const Workspace& ws, const GlassTable& table);

// GLASS.LIB: rows of four TAB fields, trimmed; no file gives no row. More
// than 99 rows throws FileError.
inline constexpr int kMaxGlassLib = 99;
std::vector<std::array<std::string, 4>> ReadGlassLib(const Workspace& ws);

// The heading of each data type on the glass screen, by data type 1 to 3.
inline constexpr std::array<const char*, 3> kDataTypeHeadings = {
    "Table for transm., Refl. front and back", "Fresnel glass",
    "Fresnel glass : Normal transm. and refl."};

// The angle of angle row `row` of `rows`, in the number-to-text form; "??"
// when there is one row only.
std::string AngleText(int row, int rows);

// The inputs of a glass as the checks see them.
enum GlassField { kFrontField, kBackField, kDataTypeField, kTableField, kText3, kText4, kText5 };
struct GlassInput {
  std::string front, back, data_type;
  std::string text3, text4, text5;                 // by data type: Fresnel data or normal values
  int rows = 0;                                    // angle rows in use
  std::string last_transm, last_front, last_back;  // the last angle row
};
Faults GlassFaults(const GlassInput& input);

// The three values of an angle row.
enum AngleField { kTransmField, kAbsfField, kAbsbField };
Faults AngleFaults(const std::string& transm, const std::string& absf, const std::string& absb);

// The entry of the read-only glass list.
enum AddGlassField { kGlassNameField, kTransmittanceField, kReflectanceField };
Faults AddGlassFaults(const std::string& name, const std::string& transmittance,
                      const std::string& reflectance);

}  // namespace zelmo
