#include "libraries/output_spec.h"

#include <cmath>

#include "core/fields.h"
#include "core/numbers.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

namespace {

std::string OutputPath(const Workspace& ws) { return JoinPath(ws.CasePath, kOutputFile); }

// A file flag: the number with its sign column and one blank behind it.
std::string HeadFlag(bool on) { return NumText(on ? -1 : 0) + " "; }

}  // namespace

bool IsFlagOn(const std::string& text) { return std::fabs(Val(TrimBlanks(text))) != 0; }

const OutputRow* OutputSpec::RowOf(int volume) const {
  const OutputRow* found = nullptr;
  for (const auto& row : rows) {
    if (Val(row.volume) == volume) found = &row;
  }
  return found;
}

int OutputSpec::OutputType() const { return ValInt(TrimBlanks(head[0])); }
bool OutputSpec::WriteVolLoad() const { return IsFlagOn(head[1]); }
bool OutputSpec::WriteSurfTmp() const { return IsFlagOn(head[2]); }

std::optional<OutputSpec> ReadOutputSpec(const Workspace& ws) {
  const std::string path = OutputPath(ws);
  if (!FileCanOpen(path)) return std::nullopt;
  TextReader reader(path);
  OutputSpec spec;
  for (auto& line : spec.head) line = reader.ReadLine();
  const double type = Val(TrimBlanks(spec.head[0]));
  // The output type picks one of the screen's three options.
  if (type != kMonthlySummaries && type != kDailyDetails && type != kHourlyValues) {
    throw FileError(path, 1, "Invalid output type");
  }
  while (!reader.AtEnd()) {
    std::vector<std::string> cells = SplitTabs(reader.ReadLine());
    if (TrimBlanks(cells[0]).empty()) continue;
    OutputRow row;
    row.volume = TrimBlanks(cells[0]);
    for (int k = 0; k < kOutputFlags && k + 1 < static_cast<int>(cells.size()); ++k) {
      row.flags[k] = TrimBlanks(cells[k + 1]);
    }
    spec.rows.push_back(std::move(row));
  }
  return spec;
}

bool WriteOutputSpec(const Workspace& ws, const OutputChoice& choice) {
  std::vector<std::string> lines{std::to_string(choice.type), HeadFlag(choice.vol_load),
                                 HeadFlag(choice.surf_tmp)};
  for (const auto& row : choice.rows) {
    std::string line = row.volume + kTab;
    for (bool on : row.flags) line += (on ? "-1" : "0") + kTab;
    lines.push_back(line);
  }
  return WriteAllLines(OutputPath(ws), lines);
}

}  // namespace zelmo
