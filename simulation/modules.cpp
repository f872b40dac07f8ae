#include "simulation/modules.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/dialogs.h"
#include "core/fields.h"
#include "core/file_system.h"
#include "core/numbers.h"
#include "core/ports.h"
#include "core/session.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

// Free-format input of one line: a number ends at a blank or a comma, a text
// at a comma or the line's end, and a text in double quotes is taken whole.
class FreeFormat {
 public:
  explicit FreeFormat(std::string line) : line_(std::move(line)) {}

  double Number() {
    SkipBlanks();
    size_t start = pos_;
    while (pos_ < line_.size() && line_[pos_] != ' ' && line_[pos_] != ',' && line_[pos_] != '\t') {
      ++pos_;
    }
    std::string field = line_.substr(start, pos_ - start);
    EndField();
    return Val(field);
  }

  std::string Text() {
    SkipBlanks();
    std::string field;
    if (pos_ < line_.size() && line_[pos_] == '"') {
      size_t close = line_.find('"', pos_ + 1);
      if (close == std::string::npos) close = line_.size();
      field = line_.substr(pos_ + 1, close - pos_ - 1);
      pos_ = std::min(close + 1, line_.size());
      EndField();
      return field;
    }
    size_t comma = line_.find(',', pos_);
    if (comma == std::string::npos) comma = line_.size();
    field = line_.substr(pos_, comma - pos_);
    pos_ = comma;
    EndField();
    size_t last = field.find_last_not_of(" \t");
    return last == std::string::npos ? std::string() : field.substr(0, last + 1);
  }

 private:
  void SkipBlanks() {
    while (pos_ < line_.size() && (line_[pos_] == ' ' || line_[pos_] == '\t')) ++pos_;
  }
  // Steps over the blanks behind a field and one comma.
  void EndField() {
    SkipBlanks();
    if (pos_ < line_.size() && line_[pos_] == ',') ++pos_;
  }

  std::string line_;
  size_t pos_ = 0;
};

int ToCode(double value) {
  if (!std::isfinite(value)) return 0;
  return static_cast<int>(std::lround(std::clamp(value, -1e9, 1e9)));
}

}  // namespace

std::string CannotStartText(const std::string& program) {
  return "The program could not be started:\r" + program;
}

bool RunProgram(Session& session, const std::string& program,
                const std::vector<std::string>& arguments, int window_mode) {
  if (!session.processes) return false;
  if (session.processes->Run(program, arguments, window_mode)) return true;
  session.dialogs->MsgBox(CannotStartText(program), mb::kExclamation, kCannotStartTitle);
  return false;
}

std::string CaseArgument(const Workspace& ws) { return ws.CasePath + Separator(); }

std::string ModuleProgramPath(const Workspace& ws, const std::string& program) {
  return JoinPath(ws.ThermalDirectory, program);
}

bool RunModule(Session& session, const std::string& program) {
  const Workspace& ws = session.ws;
  return session.processes && session.processes->Run(ModuleProgramPath(ws, program),
                                                     {CaseArgument(ws)}, window_mode::kNoActivate);
}

bool InitStatusFile(const Workspace& ws) {
  return WriteAllLines(JoinPath(ws.CasePath, kStatusFile),
                       {"    0 " + PadField("Start", 10, "V"), "TOM", "0"});
}

bool WriteFailedStatus(const Workspace& ws, int code, const std::string& module,
                       const std::string& text) {
  return WriteAllLines(
      JoinPath(ws.CasePath, kStatusFile),
      {PadField(std::to_string(code), 5, "H") + " " + PadField(module, 10, "V"), text, "0"});
}

bool WriteStoppedStatus(const Workspace& ws, const std::string& module) {
  return WriteFailedStatus(ws, kStoppedCode, module, kStoppedText);
}

bool ReadStatusFile(const Workspace& ws, int& code, std::string& module, std::string& text,
                    double& number) {
  std::string path = JoinPath(ws.CasePath, kStatusFile);
  if (!FileCanOpen(path)) {
    module = "??";
    return false;
  }
  TextReader reader(path);
  FreeFormat first(reader.ReadLine());
  int read_code = ToCode(first.Number());
  module = first.Text();
  text = FreeFormat(reader.ReadLine()).Text();
  number = FreeFormat(reader.ReadLine()).Number();
  code = std::abs(read_code);
  return read_code <= 0;
}

}  // namespace zelmo
