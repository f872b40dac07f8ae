#include "simulation/results_screen.h"

#include <cstdint>
#include <filesystem>
#include <limits>

#include "core/dialogs.h"
#include "core/fields.h"
#include "core/file_system.h"
#include "core/form_helpers.h"
#include "core/ports.h"
#include "core/session.h"
#include "core/text_file.h"
#include "simulation/help_topics.h"
#include "simulation/launchers.h"
#include "simulation/modules.h"

namespace zelmo {

Results::Results(Session& session) : Form("Results"), session_(session) {
  caption = "TextFiles";
  Label1.caption = "Existing cases";
  Label2.caption = "Filetypes";
  Label3.caption = "Output files";
  Option1.caption = "Excel tables";
  Option2.caption = "Reports";
  Command1.caption = "&Print";
  Command2.caption = "&Cancel";
  Command3.caption = "&Help";
  Text1.multi_line = true;
  Text1.locked = true;
  Command1.visible = false;
  Option1.value = 1;
  cancel_button = "Command2";
  help_context = help_context::kResults;
  width = 11400;
  height = 7800;

  CaseList.on_click = [this] { CaseListClick(); };
  TypeList.on_click = [this] { TypeListClick(); };
  File1.on_click = [this] { FileClick(); };
  File1.on_dbl_click = [this] { FileOpen(); };
  Command1.on_click = [this] { Print(); };
  Command2.on_click = [this] { Unload(); };
  Command3.on_click = [this] { Help(); };
}

void Results::Load() {
  const Workspace& ws = session_.ws;
  CenterForm(*this, ws);
  Label1.caption += " - Project : " + ToLower(ws.ProjectName);
  FillCaseList(ws, CaseList);
  TypeList.AddItem("LIS");
  TypeList.AddItem("TXT");
  for (int i = 0; i < static_cast<int>(CaseList.items.size()); ++i) {
    if (EqualsIgnoringCase(TrimBlanks(FieldBefore(CaseList.items[i], " -")),
                           TrimBlanks(ws.CaseName))) {
      CaseList.list_index = i;
      CaseListClick();
      break;
    }
  }
}

void Results::CaseListClick() {
  std::string name = TrimBlanks(FieldBefore(CaseList.SelectedItem(), " -"));
  file_path_ = name.empty() ? std::string() : JoinPath(session_.ws.ProjectPath, name);
  ListFiles();
}

void Results::TypeListClick() {
  std::string type = SelectedType();
  file_pattern_ = type.empty() ? "*.*" : "*." + type;
  ListFiles();
}

void Results::ListFiles() {
  File1.Clear();
  if (file_path_.empty()) return;
  std::string extension = file_pattern_ == "*.*" ? std::string() : file_pattern_.substr(1);
  File1.items = FilesWithExtension(file_path_, extension);
}

std::string Results::SelectedType() const { return TypeList.SelectedItem(); }

std::string Results::SelectedFilePath() const {
  std::string name = File1.SelectedItem();
  if (name.empty() || file_path_.empty()) return {};
  return JoinPath(file_path_, name);
}

void Results::FileClick() {
  std::string path = SelectedFilePath();
  if (path.empty() || SelectedType() == "TXT") return;
  std::error_code ec;
  auto length = std::filesystem::file_size(ResolvePath(ToFsPath(path)), ec);
  // A file longer than the text box can take is not read; the box keeps
  // what it showed.
  if (!ec && length <= static_cast<uintmax_t>(std::numeric_limits<int32_t>::max())) {
    if (auto lines = ReadAllLines(path)) {
      std::string text;
      for (const auto& line : *lines) text += line + "\r\n";
      Text1.text = std::move(text);
    }
  }
  Command1.visible = true;
}

void Results::FileOpen() {
  std::string path = SelectedFilePath();
  if (path.empty()) return;
  if (SelectedType() == "TXT") {
    if (Option1.value != 0) {
      OpenAsTable(path);
    } else if (Option2.value != 0) {
      OpenAsReport(path);
    }
    return;
  }
  if (!FileCanOpen(path)) {
    session_.dialogs->MsgBox("Can not find the file " + path, mb::kExclamation, "MESSAGE");
    return;
  }
  std::string editor = JoinPath(session_.ws.MainDirectory, "QEDITOR.EXE");
  if (FileCanOpen(editor) || !session_.desktop) {
    RunProgram(session_, editor, {path}, window_mode::kNormal);
  } else {
    // An installation without the editor opens the file with the program
    // registered for it, rather than nothing at all.
    session_.desktop->OpenWithRegistered(path);
  }
  caption = "Results - " + ToLower(path);
}

void Results::OpenAsReport(const std::string& path) {
#ifdef _WIN32
  // The system's word processor.
  RunProgram(session_, "Write.exe", {path}, window_mode::kNormal);
#else
  // Elsewhere there is no word processor of the system's own: whatever
  // program is registered for the file shows it.
  std::string program = RegisteredProgram(session_, path);
  if (program.empty()) {
    if (session_.desktop) session_.desktop->OpenWithRegistered(path);
    return;
  }
  RunProgram(session_, program, {path}, window_mode::kNormal);
#endif
}

void Results::OpenAsTable(const std::string& path) {
  const Workspace& ws = session_.ws;
  std::string sheet = JoinPath(ws.MainDirectory, "pq.xls");
  TouchFile(sheet);
  std::string program = RegisteredProgram(session_, sheet);
  if (program.empty()) {
    session_.dialogs->MsgBox("No Excel program was found ! ", mb::kExclamation, "Error message");
    return;
  }
  RewriteDecimalSeparators(path, ws.DecimalComma);
  RunProgram(session_, program, {sheet, path}, window_mode::kNormal);
}

void Results::Print() {
  if (session_.desktop) session_.desktop->PrintText(Text1.text);
}

void Results::Help() { ShowHelpTopic(session_, help_context::kResults); }

bool RewriteDecimalSeparators(const std::string& path, bool decimal_comma) {
  auto lines = ReadAllLines(path);
  if (!lines) return false;
  char from = decimal_comma ? '.' : ',';
  char to = decimal_comma ? ',' : '.';
  for (auto& line : *lines) {
    for (char& c : line) {
      if (c == from) c = to;
    }
  }
  std::string temp = JoinPath(ParentFolder(path), "T" + LastName(path));
  bool done = WriteAllLines(temp, *lines);
  if (done) {
    auto bytes = ReadAllBytes(temp);
    done = bytes && WriteAllBytes(path, *bytes);
  }
  DeleteFile(temp);
  return done;
}

}  // namespace zelmo
