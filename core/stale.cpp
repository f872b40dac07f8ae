#include "core/stale.h"

#include "core/fields.h"
#include "core/file_system.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

namespace {

// False when the case's flags are there and could not be written.
bool MarkOneCase(const std::string& case_dir, const ModuleFlags& flags) {
  const std::string path = JoinPath(case_dir, kThermalFile);
  auto lines = ReadAllLines(path);
  if (!lines) return true;
  std::string line = lines->empty() ? std::string() : (*lines)[0];
  for (size_t i = 0; i < flags.size(); ++i) {
    if (flags[i] && i < line.size()) line[i] = 'X';
  }
  return WriteAllLines(path, {line});
}

}  // namespace

void MarkModulesStale(const Workspace& ws, const std::string& case_dir, const ModuleFlags& flags) {
  if (case_dir != "ALL") {
    if (!MarkOneCase(case_dir, flags)) FailWrite(JoinPath(case_dir, kThermalFile));
    return;
  }
  auto cases = ReadAllLines(JoinPath(ws.ProjectPath, "CASES.LIB"));
  if (!cases) return;
  // Every case is marked that can be; the first that cannot is reported.
  std::string failed;
  for (const auto& line : *cases) {
    std::string name = TrimBlanks(FieldBefore(TrimBlanks(line), " -"));
    // A damaged line never reaches a folder outside the project.
    if (!IsPlainFolderName(name)) continue;
    const std::string case_dir = JoinPath(ws.ProjectPath, name);
    if (!MarkOneCase(case_dir, flags) && failed.empty()) failed = case_dir;
  }
  if (!failed.empty()) FailWrite(JoinPath(failed, kThermalFile));
}

}  // namespace zelmo
