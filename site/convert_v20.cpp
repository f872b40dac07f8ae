#include "site/convert_v20.h"

#include <algorithm>
#include <string_view>

#include "core/dialogs.h"
#include "core/fields.h"
#include "core/file_system.h"
#include "core/form_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text_file.h"
#include "workspace/case_store.h"

namespace zelmo {

namespace {

// The files as version 1.2 names them; a file system that tells case apart
// finds them whatever the case of their names.
constexpr const char* kOldSite = "Site.inp";
constexpr const char* kOldSurface = "Surface.inp";
constexpr const char* kOldMoveIns = "Moveins.Lib";
constexpr const char* kOldForcedVent = "Forceven.inp";
constexpr const char* kOldHvacCal = "HVAC_Cal.Inp";

// An old block: the name and 28 field lines; the new form has 29.
constexpr int kOldFieldLines = 28;
constexpr int kNewFieldLines = 29;
// The facing codes among the field lines, from 1.
constexpr int kFrontLine = 7;
constexpr int kBackLine = 8;

constexpr int kConvertHelpContext = 12142;

// A curtain line of the new form: type, name and the three values.
constexpr size_t kNewMoveInsFields = 5;

constexpr const char* kNothingToConvert =
    "The project has the form of v2.0 already. Nothing is changed.";
constexpr const char* kConvertTitle = "Conversion v1.2 to V2.0";

void AddLine(std::string& bytes, const std::string& line) {
  bytes += line;
  bytes += "\r\n";
}

// Writes the new bytes through "X" and the file's name beside it, renamed
// over the file: the old file stands until the new one replaces it.
void WriteThroughCopy(const std::string& path, const std::string& bytes) {
  const std::string on_disk = PathOnDisk(path);
  const std::string copy = JoinPath(ParentFolder(on_disk), "X" + LastName(on_disk));
  if (!WriteBytesThrough(on_disk, copy, bytes)) FailWrite(path);
}

void DeleteIfThere(const std::string& path) {
  if (!FileCanOpen(path)) return;
  if (!DeleteFile(path)) throw FileError(PathOnDisk(path), 0, "The file could not be deleted.");
}

}  // namespace

std::optional<std::string> NewSiteBytes(TextReader& old) {
  const std::string first = old.ReadTrimmedLine();
  if (!FieldBefore(first, kTab).empty()) return std::nullopt;
  std::string bytes;
  AddLine(bytes, first + "\t0\t0");
  while (!old.AtEnd()) AddLine(bytes, old.NextLine());
  return bytes;
}

bool IsNewSurfaceForm(TextReader& file) {
  bool blocks = false, fits = true;
  while (fits && !file.AtEnd()) {
    const std::string& name = file.NextLine();
    if (TrimBlanks(name).empty()) continue;
    fits = name[0] != '\t';
    for (int k = 1; fits && k <= kNewFieldLines; ++k) {
      fits = !file.AtEnd() && file.NextView().starts_with('\t');
    }
    blocks = true;
  }
  file.Rewind();
  return fits && blocks;
}

std::string NewSurfaceBytes(TextReader& old, int16_t& leakage_mode) {
  std::string bytes;
  while (!old.AtEnd()) {
    const std::string& name = old.NextLine();
    AddLine(bytes, name);
    // An empty line between blocks is a gap, kept as it stands.
    if (TrimBlanks(name).empty()) continue;
    double front = 0, back = 0;
    for (int k = 1; k <= kOldFieldLines; ++k) {
      const std::string& field = old.NextLine();
      AddLine(bytes, field);
      if (k == kFrontLine) front = Val(FieldAfter(field, kTab));
      if (k == kBackLine) back = Val(FieldAfter(field, kTab));
    }
    // A flow for an element between two volumes, an area towards outdoors
    // or the ground.
    leakage_mode = front > 0 && back > 0 ? 0 : 1;
    AddLine(bytes, "\t" + NumText(leakage_mode));
  }
  return bytes;
}

bool IsNewMoveInsForm(TextReader& file) {
  bool named = false;
  while (!named && !file.AtEnd()) {
    const std::string_view line = file.NextView();
    named =
        static_cast<size_t>(std::count(line.begin(), line.end(), '\t')) + 1 >= kNewMoveInsFields;
  }
  file.Rewind();
  return named;
}

std::string NewMoveInsBytes(TextReader& old) {
  std::string bytes;
  while (!old.AtEnd()) {
    const std::string& line = old.NextLine();
    if (TrimBlanks(line).empty()) {
      AddLine(bytes, line);
      continue;
    }
    const size_t tab = line.find('\t');
    const std::string number = line.substr(0, tab);
    std::string named = number + "\tCurtain type_" + TrimBlanks(number);
    if (tab != std::string::npos) named += line.substr(tab);
    AddLine(bytes, named);
  }
  return bytes;
}

CaseConversion PlanCaseConversion(const std::string& folder, int16_t& leakage_mode) {
  CaseConversion plan;
  plan.folder = folder;
  const std::string site = JoinPath(folder, kOldSite);
  const bool has_site = FileCanOpen(site);
  if (has_site) {
    TextReader in(site);
    plan.site = NewSiteBytes(in);
    if (!plan.site) {
      plan.done_before = true;
      return plan;
    }
  }
  const std::string surface = JoinPath(folder, kOldSurface);
  if (!FileCanOpen(surface)) {
    // With neither file there is no old form to tell: the case is left as
    // it is, its schedules included.
    plan.done_before = !has_site;
    return plan;
  }
  TextReader in(surface);
  if (!IsNewSurfaceForm(in)) {
    plan.surface = NewSurfaceBytes(in, leakage_mode);
  } else if (!has_site) {
    // Without a site file the elements tell that the case was done.
    plan.done_before = true;
  }
  return plan;
}

void ConvertCase(const CaseConversion& conversion) {
  const std::string& folder = conversion.folder;
  if (conversion.surface) WriteThroughCopy(JoinPath(folder, kOldSurface), *conversion.surface);
  DeleteIfThere(JoinPath(folder, kOldForcedVent));
  DeleteIfThere(JoinPath(folder, kOldHvacCal));
  // The site file tells a converted case: it is written last.
  if (conversion.site) WriteThroughCopy(JoinPath(folder, kOldSite), *conversion.site);
}

Cv12TOv20::Cv12TOv20(Session& session) : Form("Cv12TOv20"), session_(session) {
  caption = "Convert project from v1.2 to v2.0 of the ZELMO-QRN program";
  width = 9000;
  height = 6200;
  help_context = kConvertHelpContext;
  Label1.caption = "Existing projects";
  Label2.caption = "Existing cases";
  Label3.caption = "Converted cases";
  Label4.caption = "Not converted cases";
  Label5.caption = "Status ";
  C_Convert.caption = "Convert";
  C_Close.caption = "Close";
  Command1.caption = "Help";
  cancel_button = "C_Close";
  EP.on_click = [this] { ProjectClick(); };
  C_Convert.on_click = [this] { Convert(); };
  C_Close.on_click = [this] { Unload(); };
  Command1.on_click = [this] { Help(); };
}

void Cv12TOv20::Load() {
  CenterForm(*this, session_.ws);
  Dialogs& dialogs = *session_.dialogs;
  if (!FileCanOpen(ProjectsFilePath(session_.ws))) {
    dialogs.MsgBox("Can't find file Projects.lib", mb::kExclamation, "Error message");
    return;
  }
  projects_ = ReadProjectLines(session_.ws);
  for (const ProjectLine& project : projects_) EP.AddItem(ProjectListItem(project));
  if (projects_.empty()) dialogs.MsgBox("There are no projects", mb::kExclamation, "Error message");
}

void Cv12TOv20::ProjectClick() {
  EC.Clear();
  CC.Clear();
  NCC.Clear();
  project_folder_.clear();
  const int index = EP.list_index;
  if (index < 0 || index >= static_cast<int>(projects_.size())) return;
  const Workspace& ws = session_.ws;
  const std::string& directory = projects_[index].directory;
  if (!IsPlainFolderName(directory)) {
    throw FileError(ProjectsFilePath(ws), index + 1, "The line names no project folder");
  }
  project_folder_ = JoinPath(ws.LocalPath, directory);
  const std::string register_file = JoinPath(project_folder_, kCasesFile);
  Dialogs& dialogs = *session_.dialogs;
  if (!FileCanOpen(register_file)) {
    dialogs.MsgBox("Can't find file Cases.lib", mb::kExclamation, "Error message");
    return;
  }
  TextReader in(register_file);
  std::vector<std::string> names;
  while (!in.AtEnd()) {
    const std::string line = in.ReadTrimmedLine();
    if (line.empty()) continue;
    std::string name = TrimBlanks(FieldBefore(line, " -"));
    if (!IsPlainFolderName(name)) {
      throw FileError(PathOnDisk(register_file), in.LineNumber(), "The line names no case folder");
    }
    names.push_back(name);
  }
  for (const std::string& name : names) EC.AddItem(name);
  if (names.empty()) dialogs.MsgBox("There are no cases", mb::kExclamation, "Error message");
}

void Cv12TOv20::Convert() {
  CC.Clear();
  NCC.Clear();
  if (EC.items.empty()) {
    TStatus.caption = "Finns inga cases";
    return;
  }
  TStatus.caption.clear();
  std::optional<BusyPointer> busy;
  busy.emplace(*session_.dialogs);
  // Every file is read and its new form made before the first is written:
  // a damaged file stops the conversion with nothing changed.
  std::vector<CaseConversion> cases;
  for (const std::string& name : EC.items) {
    cases.push_back(PlanCaseConversion(JoinPath(project_folder_, name), session_.ws.LeakageMode));
  }
  const std::string curtains = JoinPath(project_folder_, kOldMoveIns);
  std::optional<std::string> named_curtains;
  if (FileCanOpen(curtains)) {
    TextReader in(curtains);
    // Named once only: a second name column would shift every value.
    if (!IsNewMoveInsForm(in)) named_curtains = NewMoveInsBytes(in);
  }
  const bool all_done = std::all_of(cases.begin(), cases.end(),
                                    [](const CaseConversion& c) { return c.done_before; });
  if (all_done && !named_curtains) {
    for (const std::string& name : EC.items) NCC.AddItem(name);
    TStatus.caption = "Nothing to convert";
    busy.reset();
    session_.dialogs->MsgBox(kNothingToConvert, mb::kInformation, kConvertTitle);
    return;
  }
  for (size_t i = 0; i < cases.size(); ++i) {
    if (cases[i].done_before) {
      NCC.AddItem(EC.items[i]);
      continue;
    }
    ConvertCase(cases[i]);
    CC.AddItem(EC.items[i]);
  }
  if (named_curtains) WriteThroughCopy(curtains, *named_curtains);
}

void Cv12TOv20::Help() { ShowScreenHelp(session_, help_context); }

}  // namespace zelmo
