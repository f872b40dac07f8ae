#include "libraries/moveins_lib.h"

#include "building/surface_file.h"
#include "core/fields.h"
#include "core/file_system.h"
#include "core/text_file.h"
#include "core/workspace.h"
#include "workspace/case_store.h"

namespace zelmo {

namespace {

std::string MoveInsPath(const Workspace& ws) { return JoinPath(ws.ProjectPath, kMoveInsFile); }

// Field lines of an element: a window and the curtain that goes with it, for
// the main wall and for the hole.
constexpr int kWindowFields[][2] = {{20, 21}, {27, 28}};

}  // namespace

std::vector<CurtainRecord> ReadMoveInsLib(const Workspace& ws) {
  std::vector<CurtainRecord> curtains;
  const std::string path = MoveInsPath(ws);
  if (!FileCanOpen(path)) return curtains;
  TextReader reader(path);
  while (!reader.AtEnd()) {
    std::string line = reader.ReadLine();
    if (TrimBlanks(line).empty()) continue;
    if (static_cast<int>(curtains.size()) == kMaxCurtains) {
      reader.Fail("More than " + std::to_string(kMaxCurtains) + " curtains");
    }
    auto field = [&line](int n) { return TrimBlanks(NthFieldBefore(line, kTab, n)); };
    curtains.push_back(
        {field(1), field(2), field(3), field(4), TrimBlanks(NthFieldAfter(line, kTab, 4))});
  }
  return curtains;
}

bool WriteMoveInsLib(const Workspace& ws, const std::vector<CurtainRecord>& curtains) {
  const std::string path = MoveInsPath(ws);
  if (curtains.empty()) {
    if (FileCanOpen(path)) return DeleteFile(path);
    return true;
  }
  std::vector<std::string> lines;
  for (const auto& c : curtains) {
    lines.push_back(c.Type + kTab + c.Name + kTab + c.Transmittance + kTab + c.Absorptance + kTab +
                    c.RValue);
  }
  return WriteAllLines(path, lines);
}

bool CurtainReferenced(const Workspace& ws, const std::string& number) {
  return AnyElementOfProject(ws, [&number](const std::vector<std::string>& fields) {
    for (const auto& [window, curtain] : kWindowFields) {
      if (!TrimBlanks(fields[window]).empty() && TrimBlanks(fields[curtain]) == number) return true;
    }
    return false;
  });
}

}  // namespace zelmo
