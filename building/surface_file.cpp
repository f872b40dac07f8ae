#include "building/surface_file.h"

#include <cmath>

#include "core/fields.h"
#include "core/file_system.h"
#include "core/form_helpers.h"
#include "core/numbers.h"
#include "core/stale.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

SurfaceTable::SurfaceTable()
    : SurfName(kMaxElements + 1),
      SurfData(kMaxElements + 1, std::vector<std::string>(kSurfaceFields + 1)) {}

void ClearElement(SurfaceTable& table, int slot) { ClearElementRow(table.SurfData[slot]); }

namespace {

std::string SurfacePath(const Workspace& ws) { return JoinPath(ws.CasePath, kSurfaceFile); }

// The slot an element of a hand-made file would take beyond the table is a
// damaged file, reported on the name line that starts it.
void RefuseBeyondTable(const TextReader& reader, int slot) {
  if (slot > kMaxElements) {
    reader.Fail("More than " + std::to_string(kMaxElements) + " building elements");
  }
}

}  // namespace

void ReadSurfaces(const Workspace& ws, SurfaceTable& table) {
  const std::string path = SurfacePath(ws);
  SurfaceTable read;
  ClearElement(read, 1);
  if (!FileCanOpen(path)) {
    table = std::move(read);
    return;
  }
  TextReader reader(path);
  int slot = 0;
  while (!reader.AtEnd()) {
    ++slot;
    std::string name = reader.ReadTrimmedLine();
    RefuseBeyondTable(reader, slot);
    read.SurfName[slot] = name;
    if (name.empty()) continue;  // a gap: the slot stays used and empty
    auto& fields = read.SurfData[slot];
    for (int k = 1; k <= kSurfaceFields; ++k) {
      fields[k] = FieldAfter(reader.ReadTrimmedLine(), kTab);
    }
  }
  read.SurfCount = slot;
  table = std::move(read);
}

SurfaceVolumes ReadSurfaceVolumes(const Workspace& ws) {
  const std::string path = SurfacePath(ws);
  SurfaceVolumes volumes;
  if (!FileCanOpen(path)) return volumes;
  TextReader reader(path);
  while (!reader.AtEnd()) {
    if (reader.ReadTrimmedLine().empty()) continue;
    RefuseBeyondTable(reader, volumes.count() + 1);
    for (int k = 1; k <= kSurfaceFields; ++k) {
      std::string line = reader.ReadTrimmedLine();
      if (k != 7 && k != 8) continue;
      std::string code = TrimBlanks(FieldAfter(line, kTab));
      // The volume tables run from Ground to Volume 8; a code beyond them
      // is a damaged file.
      double number = std::nearbyint(Val(code));
      if (!(number >= -1 && number <= 8)) reader.Fail("Subscript out of range");
      (k == 7 ? volumes.front : volumes.back).push_back(code);
    }
  }
  return volumes;
}

bool WriteSurfaces(const Workspace& ws, const SurfaceTable& table) {
  std::vector<std::string> lines;
  lines.reserve(static_cast<size_t>(table.SurfCount) * (kSurfaceFields + 1));
  for (int slot = 1; slot <= kMaxElements; ++slot) {
    const std::string name = TrimBlanks(table.SurfName[slot]);
    if (name.empty()) continue;
    lines.push_back(name);
    for (int k = 1; k <= kSurfaceFields; ++k) {
      lines.push_back(kTab + TrimBlanks(table.SurfData[slot][k]));
    }
  }
  if (!WriteAllLines(SurfacePath(ws), lines)) return false;
  MarkModulesStale(ws, ws.CasePath, kAllModules);
  return true;
}

bool AnyElementOfProject(const Workspace& ws,
                         const std::function<bool(const std::vector<std::string>&)>& uses) {
  auto cases = ReadAllLines(JoinPath(ws.ProjectPath, "CASES.LIB"));
  if (!cases) return false;
  for (const auto& line : *cases) {
    const std::string name = TrimBlanks(FieldBefore(TrimBlanks(line), " -"));
    // A damaged line never reaches a folder outside the project.
    if (!IsPlainFolderName(name)) continue;
    Workspace in_case = ws;
    in_case.CasePath = JoinPath(ws.ProjectPath, name);
    SurfaceTable table;
    ReadSurfaces(in_case, table);
    for (int slot = 1; slot <= table.SurfCount; ++slot) {
      if (!table.SurfName[slot].empty() && uses(table.SurfData[slot])) return true;
    }
  }
  return false;
}

}  // namespace zelmo
