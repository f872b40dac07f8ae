#include "libraries/window_types_screen.h"

#include "core/fields.h"
#include "core/form_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"
#include "libraries/gas_lib.h"
#include "libraries/gas_screen.h"
#include "libraries/glass_lib.h"
#include "libraries/glass_types_screen.h"
#include "libraries/window_library_export.h"
#include "workspace/project_store.h"

namespace zelmo {

namespace {

constexpr const char* kTitle = "MESSAGE";
constexpr const char* kPanesMissing = "Panes are missing for one of the window types";
// The grid: odd rows 2j-1 show pane j, even rows 2j the gap behind it.
constexpr int kPaneCol = 0, kGlassCol = 1, kGasCol = 2, kGapCol = 3, kReversedCol = 4;
constexpr int kGridRows = 2 * kMaxPanes - 1;

int IndexOf(const Control& combo, const std::string& item) {
  for (size_t i = 0; i < combo.items.size(); ++i) {
    if (combo.items[i] == item) return static_cast<int>(i);
  }
  return -1;
}

// A list item: the number with the mask "0#", "| ", the name.
std::string ListItem(int number, const std::string& name) {
  return (number < 10 ? "0" : "") + std::to_string(number) + "| " + name;
}

void MoveCells(Grid& grid, int from, int to, std::initializer_list<int> cols) {
  for (int col : cols) grid.Cell(to, col) = grid.Cell(from, col);
}

void BlankCells(Grid& grid, int row, std::initializer_list<int> cols) {
  for (int col : cols) grid.Cell(row, col).clear();
}

}  // namespace

AddGaGl::AddGaGl(Session& session) : Form("AddGaGl"), session_(session) {
  caption = "Add data";
  width = 4600;
  height = 3000;
  help_context = kAddGaGlHelp;
  Label1.caption = "Glasses";
  Label2.caption = "Gases";
  Label3.caption = "Gap (mm)";
  Check1.caption = "Reversed coating";
  Command1.caption = "&Ok";
  Command2.caption = "&Cancel";
  Command3.caption = "&Help";
  default_button = "Command1";
  cancel_button = "Command2";
  Check1.on_click = [this] { ReversedClicked(); };
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, kAddGaGlHelp); };
}

void AddGaGl::Load() {
  CenterForm(*this, session_.ws);
  const GlassTable glass = ReadGlassTypes(session_.ws);
  for (int g = 1; g <= glass.GlassCount; ++g) Combo1.AddItem(glass.Cell(g, 1));
  const GasTable gas = ReadGasTypes(session_.ws);
  for (int g = 1; g <= gas.GasCount; ++g) Combo2.AddItem(gas.Cell(g, 1));
  Combo1.list_index = IndexOf(Combo1, preset_glass);
  Combo2.list_index = IndexOf(Combo2, preset_gas);
  ReversedClicked();
}

void AddGaGl::ReversedClicked() { Label5.caption = Check1.value ? "(Reversed coating) " : ""; }

void AddGaGl::Ok() {
  const bool first_pane = PaneEditCode == 101 || PaneEditCode == 301;
  if (!ShowFaults(*session_.dialogs,
                  PaneFaults(Text1.text, Combo2.SelectedItem(), Combo1.SelectedItem(), first_pane),
                  kTitle, mb::kExclamation, {&Text1, &Combo2, &Combo1})) {
    return;
  }
  accepted = true;
  Unload();
}

void AddGaGl::Cancel() {
  accepted = false;
  Unload();
}

Wind_Types::Wind_Types(Session& session)
    : Form("Wind_Types"), properties(&glazing_properties_), session_(session) {
  caption = "Window types";
  width = 8700;
  height = 6200;
  help_context = kWindowTypesHelp;
  Label1.caption = "Existing windows";
  Command1.caption = "&Add";
  Command2.caption = "Del&ete";
  Label2.caption = "Window panes";
  Grid1.SetCols(5);
  Grid1.SetRows(kGridRows + 1);
  Grid1.col_widths = {600, 1700, 1300, 700, 900};
  Grid1.row = Grid1.row_sel = 1;
  const char* headings[] = {"Pane", "Glass", "Gas", "Gap", "Reversed"};
  for (int col = 0; col < 5; ++col) Grid1.Cell(0, col) = headings[col];
  Command6.caption = "A&dd";
  Command7.caption = "&Insert";
  Command8.caption = "De&lete";
  Command9.caption = "Edi&t";
  Frame1.caption = "Window properties";
  Label3.caption = "U-value";
  Label4.caption = Cp1252FromUtf8("W/m2,°C");
  Label5.caption = "g-value";
  Label7.caption = "Tsol";
  Label6.caption = Label8.caption = "-";
  for (TextBox* box : {&UValue, &GVAlue, &Tsol}) box->locked = true;
  Frame2.caption = "Library";
  Command10.caption = "Glass";
  Command11.caption = "Gas";
  Command3.caption = "&Ok";
  Command4.caption = "&Cancel";
  Command5.caption = "&Help";
  default_button = "Command3";
  cancel_button = "Command4";

  List1.on_click = [this] { TypeChosen(); };
  Command1.on_click = [this] { NewType(); };
  Command2.on_click = [this] { DeleteType(); };
  Command6.on_click = [this] { AddPane(); };
  Command7.on_click = [this] { InsertPane(); };
  Command8.on_click = [this] { DeletePane(); };
  Command9.on_click = [this] { EditPane(); };
  Grid1.on_dbl_click = [this] { EditPane(); };
  Command10.on_click = [this] { OpenGlassTypes(); };
  Command11.on_click = [this] { OpenGases(); };
  Command3.on_click = [this] { Ok(); };
  Command4.on_click = [this] { Cancel(); };
  Command5.on_click = [this] { ShowScreenHelp(session_, kWindowTypesHelp); };
}

void Wind_Types::Load() {
  CenterForm(*this, session_.ws);
  table_ = ReadWindowTypes(session_.ws);
  for (int row = 1; row <= kMaxWindowTypes; ++row) {
    const std::string& name = table_.Cell(row, 1);
    if (name.empty()) continue;
    List1.AddItem(ListItem(row, name));
  }
  ClearType();
  if (List1.items.empty()) return;
  List1.list_index = 0;
  ShowType(0);
  ShowProperties(false);
}

int Wind_Types::NumberOf(int index) const { return ValInt(FieldBefore(List1.items[index], "| ")); }

std::string Wind_Types::NameOf(int index) const {
  return TrimBlanks(FieldAfter(List1.items[index], "| "));
}

void Wind_Types::ClearType() {
  for (int row = 1; row <= kGridRows; ++row) {
    for (int col = 0; col < 5; ++col) Grid1.Cell(row, col).clear();
  }
  PaneCount = 0;
  UValue.text.clear();
  GVAlue.text.clear();
  Tsol.text.clear();
}

void Wind_Types::ShowType(int index) {
  ClearType();
  WindowCurrentIndex = index;
  const int number = NumberOf(index);
  PaneCount = table_.Panes(number);
  for (int pane = 1; pane <= PaneCount; ++pane) {
    const int row = 2 * pane - 1;
    Grid1.Cell(row, kPaneCol) = NumText(pane);
    Grid1.Cell(row, kGlassCol) = table_.Cell(number, GlassColumn(pane));
    Grid1.Cell(row, kReversedCol) = table_.Cell(number, ReversedColumn(pane));
    if (pane == PaneCount) continue;
    Grid1.Cell(row + 1, kGasCol) = table_.Cell(number, GasColumn(pane));
    Grid1.Cell(row + 1, kGapCol) = table_.Cell(number, GapColumn(pane));
  }
  Command9.enabled = PaneCount > 0;
  caption = "Window types (" + NameOf(index) + ")";
}

void Wind_Types::StoreType() {
  if (WindowCurrentIndex < 0) return;
  auto& row = table_.cells[NumberOf(WindowCurrentIndex)];
  row.assign(kWindowColumns + 1, "");
  row[1] = NameOf(WindowCurrentIndex);
  row[2] = NumText(PaneCount);
  for (int pane = 1; pane <= PaneCount; ++pane) {
    const int at = 2 * pane - 1;
    row[GlassColumn(pane)] = Grid1.Cell(at, kGlassCol);
    row[ReversedColumn(pane)] = Grid1.Cell(at, kReversedCol);
    if (pane == PaneCount) continue;
    row[GapColumn(pane)] = Grid1.Cell(at + 1, kGapCol);
    row[GasColumn(pane)] = Grid1.Cell(at + 1, kGasCol);
  }
}

void Wind_Types::SaveTypes() {
  const Workspace& ws = session_.ws;
  if (!WriteWindowTypes(ws, table_)) {
    FailWrite(JoinPath(ws.ProjectPath, kWindowTypesFile));
  }
  // Every case's windows are built from these types.
  MarkModulesStale(ws, "ALL", kAllModules);
}

void Wind_Types::TypeChosen() {
  const int index = List1.list_index;
  if (index < 0) return;
  StoreType();
  SaveTypes();
  ShowType(index);
  ShowProperties(true);
}

void Wind_Types::ShowProperties(bool say_why) {
  UValue.text.clear();
  GVAlue.text.clear();
  Tsol.text.clear();
  if (WindowCurrentIndex < 0) return;
  const Workspace& ws = session_.ws;
  if (!WriteWindowLibrary(ws)) {
    if (say_why) session_.dialogs->MsgBox(kPanesMissing, mb::kOkOnly, "Message");
    return;
  }
  // The properties are asked for whenever the type shown may have changed,
  // and never stored.
  const auto results = RequestWindowProperties(ws, *properties, NumberOf(WindowCurrentIndex));
  if (!results) return;
  // The masks "###0.00" and "###0.000".
  UValue.text = FormatDecimals(results->u, 2);
  GVAlue.text = FormatDecimals(results->g, 3);
  Tsol.text = FormatDecimals(results->tsol, 3);
}

void Wind_Types::NewType() {
  Dialogs& dialogs = *session_.dialogs;
  if (List1.items.size() >= static_cast<size_t>(kMaxWindowTypes)) {
    dialogs.MsgBox("Maximum number of window types = " + NumText(kMaxWindowTypes), mb::kOkOnly,
                   kTitle);
    return;
  }
  const std::string name = TrimBlanks(
      AskInput(session_, "Type name", "", "ADD WINDOW", kWindowNameLength, 0, 0, 0, false));
  if (name.find(' ') != std::string::npos) {
    dialogs.MsgBox("The name: " + name + " should not include spaces !", mb::kExclamation,
                   "Test for spaces in name");
    return;
  }
  if (name.empty()) return;
  for (int i = 0; i < static_cast<int>(List1.items.size()); ++i) {
    if (NameOf(i) == name) {
      dialogs.MsgBox("A window with the same name already exists", mb::kOkOnly, kTitle);
      return;
    }
  }
  // The first free number; other types keep theirs.
  int number = 1;
  while (number < kMaxWindowTypes && !table_.Cell(number, 1).empty()) ++number;
  table_.Cell(number, 1) = name;
  StoreType();
  List1.AddItem(ListItem(number, name));
  List1.list_index = static_cast<int>(List1.items.size()) - 1;
  ShowType(List1.list_index);
}

void Wind_Types::DeleteType() {
  if (WindowCurrentIndex < 0) return;
  const int number = NumberOf(WindowCurrentIndex);
  Dialogs& dialogs = *session_.dialogs;
  if (WindowIsReferenced(session_.ws, number)) {
    dialogs.MsgBox("The window is referenced in a surface and can not be deleted", mb::kOkOnly,
                   kTitle);
    return;
  }
  if (dialogs.MsgBox("Do you want to delete the window type" + NumText(number) + "?",
                     mb::kYesNo + mb::kQuestion, "DELETE WINDOW") == Answer::kYes) {
    table_.cells[number].assign(kWindowColumns + 1, "");
    List1.RemoveItem(WindowCurrentIndex);
    WindowCurrentIndex = -1;
    ClearType();
    if (List1.items.empty()) {
      List1.Clear();
      caption = "Window types";
    } else {
      List1.list_index = 0;
      ShowType(0);
    }
  }
  StoreType();
  SaveTypes();
  ShowProperties(false);
}

int Wind_Types::SelectedPane() const {
  const int row = Grid1.row;
  if (row < 1 || row > kGridRows || row % 2 == 0 || Grid1.Cell(row, kPaneCol).empty()) return 0;
  return (row + 1) / 2;
}

bool Wind_Types::AskPane(AddGaGl& form, const std::string& title) {
  form.caption = title;
  form.PaneEditCode = PaneEditCode;
  session_.dialogs->ShowModal(form);
  return form.accepted;
}

void Wind_Types::PutPane(int row, int pane, const AddGaGl& form) {
  Grid1.Cell(row, kPaneCol) = NumText(pane);
  Grid1.Cell(row, kGlassCol) = form.Combo1.SelectedItem();
  Grid1.Cell(row, kReversedCol) = form.Check1.value ? "Yes" : "No";
}

void Wind_Types::PutGap(int row, const AddGaGl& form) {
  Grid1.Cell(row, kGasCol) = form.Combo2.SelectedItem();
  Grid1.Cell(row, kGapCol) = TrimBlanks(form.Text1.text);
}

void Wind_Types::PaneChanged() {
  Command9.enabled = PaneCount > 0;
  StoreType();
  SaveTypes();
  ShowProperties(false);
}

void Wind_Types::AddPane() {
  if (WindowCurrentIndex < 0) return;
  if (PaneCount == kMaxPanes) {
    session_.dialogs->MsgBox("Maximum number of panes = " + NumText(kMaxPanes), mb::kOkOnly,
                             kTitle);
    return;
  }
  PaneEditCode = 100 + 2 * PaneCount + 1;
  AddGaGl form(session_);
  // The first pane has no gap in front of it.
  const bool first = PaneCount == 0;
  for (Control* c : {static_cast<Control*>(&form.Combo2), static_cast<Control*>(&form.Text1),
                     static_cast<Control*>(&form.Label2), static_cast<Control*>(&form.Label3)}) {
    c->enabled = !first;
  }
  if (!AskPane(form, "Add data")) return;
  const int pane = ++PaneCount;
  PutPane(2 * pane - 1, pane, form);
  // The gas and gap entered with a pane lie in front of it.
  if (pane > 1) PutGap(2 * pane - 2, form);
  Grid1.row = Grid1.row_sel = 2 * pane - 1;
  PaneChanged();
}

void Wind_Types::InsertPane() {
  if (WindowCurrentIndex < 0) return;
  if (PaneCount == kMaxPanes) {
    session_.dialogs->MsgBox("Maximum number of panes = " + NumText(kMaxPanes), mb::kOkOnly,
                             kTitle);
    return;
  }
  const int pane = SelectedPane();
  if (PaneCount == 0 || pane == 0) return;
  PaneEditCode = 200 + Grid1.row;
  AddGaGl form(session_);
  if (!AskPane(form, "Insert data")) return;
  // The panes from the selected one on move down by two rows, each with the
  // gap in front of it.
  for (int q = PaneCount; q >= pane; --q) {
    if (q > 1) MoveCells(Grid1, 2 * q - 2, 2 * q, {kGasCol, kGapCol});
    MoveCells(Grid1, 2 * q - 1, 2 * q + 1, {kGlassCol, kReversedCol});
    Grid1.Cell(2 * q + 1, kPaneCol) = NumText(q + 1);
  }
  PutPane(2 * pane - 1, pane, form);
  // Before the first pane the gap lies behind the new one.
  PutGap(pane == 1 ? 2 : 2 * pane - 2, form);
  ++PaneCount;
  PaneChanged();
}

void Wind_Types::EditPane() {
  const int pane = SelectedPane();
  if (pane == 0) return;
  const int row = Grid1.row;
  PaneEditCode = 300 + row;
  AddGaGl form(session_);
  form.preset_glass = Grid1.Cell(row, kGlassCol);
  form.Check1.value = Grid1.Cell(row, kReversedCol) == "Yes" ? 1 : 0;
  if (row > 1) {
    form.preset_gas = Grid1.Cell(row - 1, kGasCol);
    form.Text1.text = Grid1.Cell(row - 1, kGapCol);
  } else {
    for (Control* c : {static_cast<Control*>(&form.Combo2), static_cast<Control*>(&form.Text1),
                       static_cast<Control*>(&form.Label2), static_cast<Control*>(&form.Label3)}) {
      c->enabled = c->visible = false;
    }
  }
  if (!AskPane(form, "Edit data")) return;
  Grid1.Cell(row, kGlassCol) = form.Combo1.SelectedItem();
  Grid1.Cell(row, kReversedCol) = form.Check1.value ? "Yes" : "No";
  if (row > 1) PutGap(row - 1, form);
  PaneChanged();
}

void Wind_Types::DeletePane() {
  const int pane = SelectedPane();
  if (PaneCount == 0 || pane == 0) return;
  const int row = 2 * pane - 1;
  BlankCells(Grid1, row, {kPaneCol, kGlassCol, kReversedCol});
  if (pane > 1) BlankCells(Grid1, row - 1, {kGasCol, kGapCol});
  // The panes behind move up; only when the deleted pane had a gap in front
  // of it do their gaps move with them, so deleting the first pane keeps the
  // gap of row 2 and loses the last one.
  for (int q = pane + 1; q <= PaneCount; ++q) {
    MoveCells(Grid1, 2 * q - 1, 2 * q - 3, {kGlassCol, kReversedCol});
    Grid1.Cell(2 * q - 3, kPaneCol) = NumText(q - 1);
    if (pane > 1) MoveCells(Grid1, 2 * q - 2, 2 * q - 4, {kGasCol, kGapCol});
  }
  if (pane != PaneCount) {
    BlankCells(Grid1, 2 * PaneCount - 1, {kPaneCol, kGlassCol, kReversedCol});
    BlankCells(Grid1, 2 * PaneCount - 2, {kGasCol, kGapCol});
  }
  --PaneCount;
  PaneChanged();
}

void Wind_Types::OpenGlassTypes() {
  Glass_types screen(session_);
  session_.dialogs->ShowModal(screen);
  // The panes' glass may have changed.
  ShowProperties(false);
}

void Wind_Types::OpenGases() {
  Gases screen(session_);
  session_.dialogs->ShowModal(screen);
  ShowProperties(false);
}

void Wind_Types::Ok() {
  if (WindowCurrentIndex >= 0 && PaneCount == 0) {
    session_.dialogs->MsgBox(kPanesMissing, mb::kOkOnly, "Message");
    return;
  }
  StoreType();
  SaveTypes();
  Unload();
}

}  // namespace zelmo
