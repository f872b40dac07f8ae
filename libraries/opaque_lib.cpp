#include "libraries/opaque_lib.h"

#include "core/fields.h"
#include "core/grid_helpers.h"
#include "core/numbers.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

std::string OpaquePath(const Workspace& ws) { return JoinPath(ws.ProjectPath, kOpaqueFile); }

OpaqueTable ReadOpaqueLib(const Workspace& ws) {
  OpaqueTable rows;
  const std::string path = OpaquePath(ws);
  if (!FileCanOpen(path)) return rows;
  TextReader reader(path);
  while (!reader.AtEnd()) {
    std::string rest = reader.ReadTrimmedLine();
    if (static_cast<int>(rows.size()) == kMaxMaterials) {
      reader.Fail("More than " + std::to_string(kMaxMaterials) + " opaque materials");
    }
    OpaqueRow row;
    for (int k = 0; k < kOpaqueFields - 1; ++k) {
      row[k] = TrimBlanks(FieldBefore(rest, kTab));
      rest = FieldAfter(rest, kTab);
    }
    row[kOpaqueFields - 1] = TrimBlanks(rest);
    rows.push_back(std::move(row));
  }
  return rows;
}

bool WriteOpaqueLib(const Workspace& ws, const OpaqueTable& rows) {
  std::vector<std::string> lines;
  lines.reserve(rows.size());
  for (const auto& row : rows) {
    std::string line = TrimBlanks(row[0]);
    for (int k = 1; k < kOpaqueFields; ++k) line += kTab + TrimBlanks(row[k]);
    lines.push_back(std::move(line));
  }
  return WriteAllLines(OpaquePath(ws), lines);
}

int FindMaterial(const OpaqueTable& rows, const std::string& type) {
  for (size_t i = 0; i < rows.size(); ++i) {
    if (rows[i][0] == type) return static_cast<int>(i);
  }
  return -1;
}

MaterialCheck CheckMaterial(const std::array<std::string, 4>& fields) {
  struct Bound {
    const char* message;
    double low;
    double high;
  };
  static constexpr Bound kBounds[] = {{"Conduct must be a value (", 0.01, 500},
                                      {"Sp heat must be a value (", 0.01, 5000},
                                      {"Density must be a value (", 0.01, 100000}};
  MaterialCheck check;
  auto fault = [&check](int field, const std::string& text) {
    check.message += text + "\r";
    if (check.first_fault < 0) check.first_fault = field;
  };
  if (TrimBlanks(fields[0]).empty()) fault(0, "Name must be set");
  for (int k = 0; k < 3; ++k) {
    const Bound& bound = kBounds[k];
    const std::string text = FirstCommaAsPoint(TrimBlanks(fields[k + 1]));
    const float value = static_cast<float>(Val(text));
    if (IsSignedNumberText(text) && value >= static_cast<float>(bound.low) &&
        value <= static_cast<float>(bound.high)) {
      continue;
    }
    fault(k + 1, bound.message + NumText(bound.low) + " - " + NumText(bound.high) + ")");
  }
  return check;
}

}  // namespace zelmo
