#include "libraries/glass_lib.h"

#include <cmath>

#include "core/fields.h"
#include "core/numbers.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

namespace {

// Walks up to `count` TAB cells of a line into the row from column `first`
// on, each trimmed. The last cell of a line without a TAB behind it is not
// taken, which is why every line of the file ends in a TAB.
void WalkCells(const std::string& line, std::vector<std::string>& row, int first, int count) {
  std::string rest = line;
  for (int i = 0; i < count; ++i) {
    row[first + i] = TrimBlanks(FieldBefore(rest, kTab));
    rest = FieldAfter(rest, kTab);
  }
}

}  // namespace

GlassTable::GlassTable() : cells(kMaxGlassTypes + 1, std::vector<std::string>(kGlassColumns + 1)) {}

GlassTable ReadGlassTypes(const Workspace& ws) {
  GlassTable table;
  const std::string path = JoinPath(ws.ProjectPath, kGlassTypesFile);
  if (!FileCanOpen(path)) return table;
  TextReader reader(path);
  while (!reader.AtEnd()) {
    const std::string head = reader.ReadLine();
    const int first_line = reader.LineNumber();
    if (table.GlassCount == kMaxGlassTypes) reader.Fail("Subscript out of range");
    auto& row = table.cells[++table.GlassCount];
    WalkCells(head, row, 1, kGlassRowsColumn);
    // Lines 2 to 4 hold twelve cells; the walk takes up to a block's 15.
    for (int block = 0; block < 3; ++block) WalkCells(reader.ReadLine(), row, 9 + 15 * block, 15);
    if (row[1].empty()) {
      row.assign(kGlassColumns + 1, "");
      --table.GlassCount;
      continue;
    }
    // The screen and the window library take that many rows of each block.
    const double rows = std::nearbyint(Val(row[kGlassRowsColumn]));
    if (!(rows >= 0 && rows <= kMaxAngles)) {
      throw FileError(path, first_line, "Subscript out of range");
    }
  }
  return table;
}

bool WriteGlassTypes(const Workspace& ws, const GlassTable& table) {
  std::vector<std::string> lines;
  for (int g = 1; g <= table.GlassCount; ++g) {
    std::string head;
    for (int col = 1; col <= kGlassRowsColumn; ++col) head += table.Cell(g, col) + kTab;
    lines.push_back(head);
    // Eleven angle cells and the block's last column, which stays empty.
    for (int block = 0; block < 3; ++block) {
      std::string line;
      for (int r = 1; r <= kMaxAngles; ++r) line += table.Cell(g, AngleColumn(block, r)) + kTab;
      line += table.Cell(g, AngleColumn(block, 15)) + kTab;
      lines.push_back(line);
    }
  }
  return WriteAllLines(JoinPath(ws.ProjectPath, kGlassTypesFile), lines);
}

std::vector<std::array<std::string, 4>> ReadGlassLib(const Workspace& ws) {
  std::vector<std::array<std::string, 4>> rows;
  const std::string path = JoinPath(ws.ProjectPath, kGlassLibFile);
  if (!FileCanOpen(path)) return rows;
  TextReader reader(path);
  while (!reader.AtEnd()) {
    std::string rest = reader.ReadLine();
    if (rows.size() == kMaxGlassLib) reader.Fail("Subscript out of range");
    auto& row = rows.emplace_back();
    for (int i = 0; i < 3; ++i) {
      row[i] = TrimBlanks(FieldBefore(rest, kTab));
      rest = FieldAfter(rest, kTab);
    }
    row[3] = TrimBlanks(rest);
  }
  return rows;
}

std::string AngleText(int row, int rows) {
  if (rows == 1) return "??";
  return NumText(static_cast<float>((row - 1) * 90.0 / (rows - 1)));
}

Faults GlassFaults(const GlassInput& in) {
  Faults faults;
  AddFault(faults, NumberWithin(in.front, 0, 100, true), kFrontField,
           "Emittance front must be a value  (" + LimitsText(0, 100));
  // The back may not be fully transparent to long-wave radiation, the front
  // may.
  AddFault(faults, NumberWithin(in.back, 1, 100, true), kBackField,
           "Emittance back must be a value  (" + LimitsText(1, 100));
  const std::string type = TrimBlanks(in.data_type);
  if (type == "1") {
    if (in.rows < 2) {
      AddFault(faults, false, kDataTypeField, "Too few properties given ");
    } else {
      // The row for 90 degrees lets nothing through; the two reflections
      // are taken together.
      const bool blocked =
          Val(in.last_transm) == 0 && Val(in.last_front) + Val(in.last_back) >= 200;
      AddFault(faults, blocked, kTableField,
               "Angle 90 should have the triplet (transm =0, refl.f. =100, refl.b. = 100) ");
    }
  } else if (type == "2") {
    AddFault(faults, NumberWithin(in.text3, 0, 100, true), kText3,
             "Thickness must be a value  (" + LimitsText(0, 100));
    AddFault(faults, NumberAbove(in.text4, 1), kText4,
             "Refraction must be a value > " + NumText(1));
    AddFault(faults, NumberAbove(in.text5, 1), kText5,
             "Extinction must be a value > " + NumText(1));
  } else if (type == "3") {
    const std::string t = TrimBlanks(in.text3), r = TrimBlanks(in.text4);
    auto open = [](const std::string& text) {
      return IsSignedNumberText(text) && Val(text) > 0 && Val(text) < 100;
    };
    const std::string limits = std::string("(") + "> 0" + " - " + "< 100" + ")";
    AddFault(faults, open(t), kText3, "Transmission must be a value  " + limits);
    AddFault(faults, open(r), kText4, "Reflection must be a value  " + limits);
    const double sum = Val(t) + Val(r);
    AddFault(faults, sum > 0 && sum < 100, kText3,
             "Transmission + Reflection must be a value  " + limits);
    AddFault(faults, t.find('.') == std::string::npos, kText3,
             "Transmission : Only integer values allowed");
    AddFault(faults, r.find('.') == std::string::npos, kText4,
             "Reflection : Only integer values allowed");
  }
  return faults;
}

Faults AngleFaults(const std::string& transm, const std::string& absf, const std::string& absb) {
  Faults faults;
  AddFault(faults, NumberWithin(transm, 0, 100), kTransmField,
           "Transmission must be a value  (" + LimitsText(0, 100));
  AddFault(faults, NumberWithin(absf, 0, 100), kAbsfField,
           "Reflection front must be a value  (" + LimitsText(0, 100));
  AddFault(faults, NumberWithin(absb, 0, 100), kAbsbField,
           "Reflection back must be a value  (" + LimitsText(0, 100));
  if (!faults.empty()) return faults;
  // What a side reflects and what passes can't exceed what falls on it.
  const double t = Val(TrimBlanks(transm));
  const double front = t + Val(TrimBlanks(absf)), back = t + Val(TrimBlanks(absb));
  AddFault(faults, front >= 0 && front <= 100, kTransmField,
           "Transmission + Reflection front must be a value  (" + LimitsText(0, 100));
  AddFault(faults, back >= 0 && back <= 100, kTransmField,
           "Transmission + Reflection back must be a value  (" + LimitsText(0, 100));
  return faults;
}

Faults AddGlassFaults(const std::string& name, const std::string& transmittance,
                      const std::string& reflectance) {
  Faults faults;
  AddFault(faults, !TrimBlanks(name).empty(), kGlassNameField, "Name must be set");
  AddFault(faults, NumberWithin(transmittance, 0, 100), kTransmittanceField,
           "Transmittance must be a value (" + LimitsText(0, 100));
  AddFault(faults, NumberWithin(reflectance, 0, 100), kReflectanceField,
           "Reflectance must be a value (" + LimitsText(0, 100));
  return faults;
}

}  // namespace zelmo
