#include "building/forcevent.h"

#include <cmath>

#include "core/fields.h"
#include "core/numbers.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

VentTable ReadForcedVent(const Workspace& ws, const std::vector<std::string>& pair_names) {
  VentTable rows;
  for (const auto& name : pair_names) {
    VentRow row{TrimBlanks(FieldBefore(name, kVentPairJoin)),
                TrimBlanks(FieldAfter(name, kVentPairJoin)), "0"};
    if (row.from == "-1" || row.to == "-1") continue;
    rows.push_back(row);
  }
  auto lines = ReadAllLines(JoinPath(ws.CasePath, kForcedVentFile));
  if (!lines) return rows;
  for (const auto& line : *lines) {
    std::string from = TrimBlanks(NthFieldBefore(line, kTab, 1));
    std::string to = TrimBlanks(NthFieldBefore(line, kTab, 2));
    for (auto& row : rows) {
      if (row.from == from && row.to == to) {
        row.flow = TrimBlanks(NthFieldAfter(line, kTab, 2));
        break;
      }
    }
  }
  return rows;
}

bool WriteForcedVent(const Workspace& ws, const VentTable& rows) {
  std::vector<std::string> lines;
  lines.reserve(rows.size());
  for (const auto& row : rows) {
    lines.push_back(TrimBlanks(row.from) + kTab + TrimBlanks(row.to) + kTab + TrimBlanks(row.flow));
  }
  return WriteAllLines(JoinPath(ws.CasePath, kForcedVentFile), lines);
}

std::string VentBalanceMessage(const VentTable& rows, const std::vector<std::string>& volume_list) {
  std::string message;
  for (const auto& volume : volume_list) {
    // The runtime adds in double and stores the sum back in single precision,
    // and the threshold is met in single precision too.
    float sum = 0;
    for (const auto& row : rows) {
      if (row.from == volume) sum = static_cast<float>(static_cast<double>(sum) + Val(row.flow));
      if (row.to == volume) sum = static_cast<float>(static_cast<double>(sum) - Val(row.flow));
    }
    if (std::fabs(sum) >= 0.005f) {
      message += "Volume " + volume + ": " + TrimBlanks(NumText(sum)) + "\r";
    }
  }
  return message;
}

}  // namespace zelmo
