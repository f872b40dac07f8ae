#include "building/advconn.h"

#include <algorithm>

#include "core/fields.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

namespace {

// Ground, Outdoor and a side not chosen (which counts as Outdoor) join no
// two volumes.
bool IsVolumeCode(const std::string& code) { return !code.empty() && code != "0" && code != "-1"; }

}  // namespace

std::string AdvPairName(const std::string& a, const std::string& b) {
  return a <= b ? a + kAdvPairJoin + b : b + kAdvPairJoin + a;
}

AdvConnTable ReadAdvConn(const Workspace& ws, const SurfaceVolumes& volumes) {
  AdvConnTable rows;
  for (int i = 0; i < volumes.count(); ++i) {
    std::string front = TrimBlanks(volumes.front[i]);
    std::string back = TrimBlanks(volumes.back[i]);
    if (!IsVolumeCode(front) || !IsVolumeCode(back)) continue;
    std::string name = AdvPairName(front, back);
    bool known = std::any_of(rows.begin(), rows.end(),
                             [&name](const AdvConnRow& row) { return row.pair == name; });
    if (!known) rows.push_back({name, "0", "0"});
  }
  auto lines = ReadAllLines(JoinPath(ws.CasePath, kAdvConnFile));
  if (!lines) return rows;
  for (const auto& line : *lines) {
    std::string first = TrimBlanks(FieldBefore(line, "-"));
    std::string second = TrimBlanks(FieldBetween(line, "-", kTab));
    for (auto& row : rows) {
      if (TrimBlanks(FieldBefore(row.pair, "-")) != first ||
          TrimBlanks(FieldAfter(row.pair, "-")) != second) {
        continue;
      }
      row.distance = TrimBlanks(NthFieldBefore(line, kTab, 2));
      row.area = TrimBlanks(NthFieldAfter(line, kTab, 2));
      break;
    }
  }
  return rows;
}

bool WriteAdvConn(const Workspace& ws, const AdvConnTable& rows) {
  std::vector<std::string> lines;
  lines.reserve(rows.size());
  for (const auto& row : rows) {
    lines.push_back(TrimBlanks(row.pair) + kTab + TrimBlanks(row.distance) + kTab +
                    TrimBlanks(row.area));
  }
  return WriteAllLines(JoinPath(ws.CasePath, kAdvConnFile), lines);
}

}  // namespace zelmo
