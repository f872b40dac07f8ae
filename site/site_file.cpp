#include "site/site_file.h"

#include "core/fields.h"
#include "core/numbers.h"
#include "core/stale.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

namespace {

// A flag or index read from a damaged file stays a small whole number.
int SmallWhole(double value) {
  if (!(value > -1000.0 && value < 1000.0)) return 0;
  return static_cast<int>(value);
}

}  // namespace

std::vector<std::string> ReadSite(const Workspace& ws) {
  const std::string path = JoinPath(ws.CasePath, kSiteFile);
  if (!FileCanOpen(path)) return {};
  TextReader reader(path);
  std::vector<std::string> lines;
  lines.reserve(kSiteLines);
  for (int i = 0; i < kSiteLines; ++i) lines.push_back(reader.ReadTrimmedLine());
  return lines;
}

SiteFirstLine ParseSiteFirstLine(const std::string& line) {
  SiteFirstLine first;
  first.latitude = TrimBlanks(FieldBefore(line, kTab));
  std::string rest = FieldAfter(line, kTab);
  first.wind = SmallWhole(Val(FieldBefore(rest, kTab)));
  first.terrain = SmallWhole(Val(FieldAfter(rest, kTab)));
  return first;
}

std::string SiteFirstLineText(const std::string& latitude, int wind, int terrain) {
  return TrimBlanks(latitude) + kTab + NumText(wind) + kTab + NumText(terrain) + kTab;
}

bool WriteSite(const Workspace& ws, const std::vector<std::string>& lines, bool changed) {
  if (!WriteAllLines(JoinPath(ws.CasePath, kSiteFile), lines)) return false;
  // Site and period feed the last two modules only.
  if (changed) MarkModulesStale(ws, ws.CasePath, kSiteModules);
  return true;
}

}  // namespace zelmo
