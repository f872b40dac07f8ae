#include "libraries/misched.h"

#include "core/fields.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

namespace {

std::string MISchedPath(const Workspace& ws) { return JoinPath(ws.CasePath, kMISchedFile); }

}  // namespace

MISchedule ReadMISched(const Workspace& ws) {
  MISchedule months;
  const std::string path = MISchedPath(ws);
  if (!FileCanOpen(path)) return months;
  TextReader reader(path);
  int month = 0;
  while (!reader.AtEnd()) {
    std::string line = reader.ReadLine();
    if (TrimBlanks(line).empty()) continue;
    if (month == kMonths) reader.Fail("More than " + std::to_string(kMonths) + " months");
    MonthSchedule& read = months[month++];
    read.mode = TrimBlanks(NthFieldBefore(line, kTab, 2));
    read.mask = TrimBlanks(NthFieldAfter(line, kTab, 2));
    // The mode picks one of the screen's three options.
    if (read.mode != kModeNight && read.mode != kModeDay && read.mode != kModeHourly) {
      reader.Fail("Invalid curtain mode \"" + read.mode + "\"");
    }
  }
  return months;
}

bool WriteMISched(const Workspace& ws, const MISchedule& months) {
  std::vector<std::string> lines;
  for (int month = 0; month < kMonths; ++month) {
    lines.push_back(std::to_string(month + 1) + kTab + months[month].mode + kTab +
                    months[month].mask);
  }
  return WriteAllLines(MISchedPath(ws), lines);
}

}  // namespace zelmo
