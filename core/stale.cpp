#include "core/stale.h"

#include "core/fields.h"
#include "core/file_system.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

namespace {

void MarkOneCase(const std::string& case_dir, const ModuleFlags& flags) {
  const std::string path = JoinPath(case_dir, kThermalFile);
  auto lines = ReadAllLines(path);
  if (!lines) return;
  std::string line = lines->empty() ? std::string() : (*lines)[0];
  for (size_t i = 0; i < flags.size(); ++i) {
    if (flags[i] && i < line.size()) line[i] = 'X';
  }
  WriteAllLines(path, {line});
}

}  // namespace

void MarkModulesStale(const Workspace& ws, const std::string& case_dir, const ModuleFlags& flags) {
  if (case_dir != "ALL") {
    MarkOneCase(case_dir, flags);
    return;
  }
  auto cases = ReadAllLines(JoinPath(ws.ProjectPath, "CASES.LIB"));
  if (!cases) return;
  for (const auto& line : *cases) {
    std::string name = TrimBlanks(FieldBefore(TrimBlanks(line), " -"));
    // A damaged line never reaches a folder outside the project.
    if (!IsPlainFolderName(name)) continue;
    MarkOneCase(JoinPath(ws.ProjectPath, name), flags);
  }
}

}  // namespace zelmo
