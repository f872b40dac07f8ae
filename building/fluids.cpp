#include "building/fluids.h"

#include <cmath>

#include "core/fields.h"
#include "core/numbers.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

namespace {

// The slot of a volume number, or 0 when the text names no volume.
int SlotOf(const std::string& volume) {
  if (volume.size() != 1 || volume[0] < '1' || volume[0] > '0' + kMaxVolumes) return 0;
  return volume[0] - '0';
}

}  // namespace

std::string FluidTable::FluidOf(const std::string& volume) const {
  int slot = SlotOf(volume);
  if (slot == 0 || rows[slot].volume.empty()) return kFluidAir;
  return rows[slot].fluid;
}

FluidTable ReadFluids(const Workspace& ws, const std::vector<std::string>& volume_list) {
  FluidTable table;
  for (const auto& volume : volume_list) {
    int slot = SlotOf(volume);
    if (slot != 0) table.rows[slot] = {volume, kFluidAir};
  }
  std::string path = JoinPath(ws.CasePath, kFluidsFile);
  auto lines = ReadAllLines(path);
  if (!lines) return table;
  for (size_t i = 0; i < lines->size(); ++i) {
    const std::string& line = (*lines)[i];
    std::string volume = TrimBlanks(FieldBefore(line, kTab));
    // The number addresses a slot of the table; one past its ends is a
    // damaged file. Slot 0 (text with no number) holds nothing.
    double number = std::round(Val(volume));
    if (!(number >= 0 && number <= kMaxVolumes)) {
      throw FileError(path, static_cast<int>(i) + 1, "Subscript out of range");
    }
    int slot = static_cast<int>(number);
    if (slot == 0) continue;
    table.rows[slot] = {volume, TrimBlanks(FieldAfter(line, kTab))};
  }
  return table;
}

bool WriteFluids(const Workspace& ws, const std::vector<FluidRow>& rows) {
  std::vector<std::string> lines;
  lines.reserve(rows.size());
  for (const auto& row : rows) lines.push_back(TrimBlanks(row.volume) + kTab + row.fluid);
  return WriteAllLines(JoinPath(ws.CasePath, kFluidsFile), lines);
}

}  // namespace zelmo
