#include "building/fluids.h"

#include "core/fields.h"
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
  auto lines = ReadAllLines(JoinPath(ws.CasePath, kFluidsFile));
  if (!lines) return table;
  for (const auto& line : *lines) {
    std::string volume = TrimBlanks(FieldBefore(line, kTab));
    int slot = SlotOf(volume);
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
