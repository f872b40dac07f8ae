#include "libraries/gas_lib.h"

#include "core/fields.h"
#include "core/numbers.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

GasTable ReadGasTypes(const Workspace& ws) {
  GasTable table;
  const std::string path = JoinPath(ws.ProjectPath, kGasTypesFile);
  if (!FileCanOpen(path)) return table;
  TextReader reader(path);
  while (!reader.AtEnd()) {
    // The TAB behind the ninth cell is what lets the walk take it.
    std::string rest = reader.ReadLine();
    if (table.GasCount == kMaxGasTypes) reader.Fail("Subscript out of range");
    auto& row = table.cells[++table.GasCount];
    for (int col = 1; col <= kGasFields; ++col) {
      row[col] = TrimBlanks(FieldBefore(rest, kTab));
      rest = FieldAfter(rest, kTab);
    }
  }
  return table;
}

bool WriteGasTypes(const Workspace& ws, const GasTable& table) {
  std::vector<std::string> lines;
  for (int g = 1; g <= table.GasCount; ++g) {
    std::string line;
    for (int col = 1; col <= kGasFields; ++col) line += table.Cell(g, col) + kTab;
    lines.push_back(line);
  }
  return WriteAllLines(JoinPath(ws.ProjectPath, kGasTypesFile), lines);
}

Faults GasFaults(const std::array<std::string, kGasFields>& fields) {
  Faults faults;
  AddFault(faults, !TrimBlanks(fields[0]).empty(), 0, kGasColumns[0].message);
  for (int i = 1; i < kGasFields; ++i) {
    AddFault(faults, IsRealNumberText(TrimBlanks(fields[i])), i, kGasColumns[i].message);
  }
  return faults;
}

}  // namespace zelmo
