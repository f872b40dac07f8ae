#include "libraries/glass_types_screen.h"

#include <algorithm>
#include <cmath>

#include "core/form_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"
#include "libraries/window_types_lib.h"
#include "workspace/project_store.h"

namespace zelmo {

namespace {

constexpr const char* kTitle = "MESSAGE";
constexpr int kAngleCol = 0;

}  // namespace

AddAngle::AddAngle(Session& session) : Form("AddAngle"), session_(session) {
  caption = "Add Angle";
  width = 4200;
  height = 2600;
  Label1.caption = "Transmission :";
  Label3.caption = "Reflect. front : ";
  Label5.caption = "Reflect. back :";
  Label2.caption = Label4.caption = Label6.caption = "%";
  Command1.caption = "&OK";
  Command2.caption = "&Cancel";
  default_button = "Command1";
  cancel_button = "Command2";
  for (TextBox* box : {&transm, &Absf, &Absb}) {
    box->on_got_focus = [box] {
      box->SelectAll();
      box->SetFocus();
    };
  }
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
}

void AddAngle::Load() {
  CenterForm(*this, session_.ws);
  transm.SetFocus();
}

void AddAngle::Ok() {
  if (!ShowFaults(*session_.dialogs, AngleFaults(transm.text, Absf.text, Absb.text), kTitle,
                  mb::kExclamation, {&transm, &Absf, &Absb})) {
    return;
  }
  accepted = true;
  Unload();
}

void AddAngle::Cancel() {
  accepted = false;
  Unload();
}

AddGlass::AddGlass(Session& session) : Form("AddGlass"), session_(session) {
  caption = "Add Glass";
  Label1.caption = "Name:";
  Label2.caption = "Solar radiation transmittance (%):";
  Label3.caption = "Solar radiation reflectance (%):";
  Command1.caption = "&OK";
  Command2.caption = "&Cancel";
  default_button = "Command1";
  cancel_button = "Command2";
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
}

void AddGlass::Ok() {
  if (!ShowFaults(*session_.dialogs, AddGlassFaults(Text1.text, Text2.text, Text3.text), kTitle,
                  mb::kExclamation, {&Text1, &Text2, &Text3})) {
    return;
  }
  accepted = true;
  Unload();
}

Glass_types::Glass_types(Session& session) : Form("Glass_types"), session_(session) {
  caption = "Glass types";
  width = 8400;
  height = 6900;
  help_context = kGlassTypesHelp;
  Label1.caption = "Existing glasses";
  Command1.caption = "&Add";
  Command2.caption = "Dele&te";
  Label2.caption = "Emittance ";
  Label3.caption = "front :";
  Label5.caption = "back :";
  Label4.caption = Label6.caption = "%";
  Label7.caption = "Data type :";
  Label14.caption = "Properties";
  Grid1.SetCols(4);
  Grid1.SetRows(kMaxAngles + 1);
  Grid1.col_widths = {900, 1000, 900, 900};
  Grid1.row = Grid1.row_sel = 1;
  const char* headings[] = {"Angle", "Transm. %", "Refl.f. %", "Refl.b. %"};
  for (int col = 0; col < 4; ++col) Grid1.Cell(0, col) = headings[col];
  Command4.caption = "A&dd";
  Command5.caption = "&Insert";
  Command6.caption = "D&elete";
  Command7.caption = "&Edit";
  Command3.caption = "&Ok";
  Command8.caption = "&Cancel";
  Command9.caption = "&Help";
  default_button = "Command3";
  cancel_button = "Command8";

  List1.on_click = [this] { GlassChosen(); };
  Combo1.on_click = [this] { DataTypeChosen(); };
  Command1.on_click = [this] { NewGlass(); };
  Command2.on_click = [this] { DeleteGlass(); };
  Command4.on_click = [this] { AddRow(); };
  Command5.on_click = [this] { InsertRow(); };
  Command6.on_click = [this] { DeleteRow(); };
  Command7.on_click = [this] { EditRow(); };
  Grid1.on_dbl_click = [this] { EditRow(); };
  Command3.on_click = [this] { Ok(); };
  Command8.on_click = [this] { Cancel(); };
  Command9.on_click = [this] { ShowScreenHelp(session_, kGlassTypesHelp); };
  for (TextBox* box : {&text1, &Text2, &Text3, &Text4, &Text5}) {
    box->on_got_focus = [box] {
      box->SelectAll();
      box->SetFocus();
    };
  }
}

void Glass_types::Load() {
  CenterForm(*this, session_.ws);
  Combo1.items = {"1", "2", "3"};
  table_ = ReadGlassTypes(session_.ws);
  FillList();
  if (table_.GlassCount == 0) {
    ClearScreen();
    ShowDataType();
    return;
  }
  List1.list_index = 0;
  ShowGlass(0);
}

void Glass_types::FillList() {
  List1.Clear();
  for (int g = 1; g <= table_.GlassCount; ++g) List1.AddItem(table_.Cell(g, 1));
}

void Glass_types::ShowGlass(int index) {
  current_ = index;
  const int g = index + 1;
  text1.text = table_.Cell(g, 2);
  Text2.text = table_.Cell(g, 3);
  Text3.text = table_.Cell(g, 5);
  Text4.text = table_.Cell(g, 6);
  Text5.text = table_.Cell(g, 7);
  const double type = Val(table_.Cell(g, 4));
  Combo1.list_index = type >= 1 && type <= 3 ? static_cast<int>(type) - 1 : -1;
  for (int r = 1; r <= kMaxAngles; ++r) {
    for (int block = 0; block < 3; ++block)
      Grid1.Cell(r, block + 1) = table_.Cell(g, AngleColumn(block, r));
  }
  // The reader has kept the count within the table.
  rows_ = std::clamp(static_cast<int>(std::nearbyint(Val(table_.Cell(g, kGlassRowsColumn)))), 0,
                     kMaxAngles);
  WriteAngles();
  ShowDataType();
}

void Glass_types::StoreGlass(int index) {
  const int g = index + 1;
  table_.Cell(g, 2) = text1.text;
  table_.Cell(g, 3) = Text2.text;
  table_.Cell(g, 4) = Combo1.SelectedItem();
  table_.Cell(g, 5) = Text3.text;
  table_.Cell(g, 6) = Text4.text;
  table_.Cell(g, 7) = Text5.text;
  table_.Cell(g, kGlassRowsColumn) = NumText(rows_);
  for (int r = 1; r <= kMaxAngles; ++r) {
    for (int block = 0; block < 3; ++block)
      table_.Cell(g, AngleColumn(block, r)) = Grid1.Cell(r, block + 1);
  }
}

void Glass_types::ClearScreen() {
  for (TextBox* box : {&text1, &Text2, &Text3, &Text4, &Text5}) box->text.clear();
  for (int r = 1; r <= kMaxAngles; ++r) {
    for (int col = 0; col < 4; ++col) Grid1.Cell(r, col).clear();
  }
  rows_ = 0;
  // A new glass starts as an angle table.
  Combo1.list_index = 0;
}

void Glass_types::ShowDataType() {
  const int type = Combo1.list_index < 0 ? 1 : Combo1.list_index + 1;
  Label15.caption = kDataTypeHeadings[type - 1];
  const bool table = type == 1;
  for (Control* c : {static_cast<Control*>(&Label14), static_cast<Control*>(&Grid1),
                     static_cast<Control*>(&Command4), static_cast<Control*>(&Command5),
                     static_cast<Control*>(&Command6), static_cast<Control*>(&Command7)}) {
    c->visible = table;
  }
  for (Control* c : {&Label8, &Label9, &Label11, &Label12}) c->visible = !table;
  Text3.visible = Text4.visible = !table;
  Label10.visible = Label13.visible = Text5.visible = type == 2;
  if (type == 2) {
    Label8.caption = "thickness :";
    Label9.caption = "refraction :";
    Label10.caption = "extinction :";
    Label11.caption = "mm";
    Label12.caption = "";
    Label13.caption = "1/m";
  } else if (type == 3) {
    Label8.caption = " transm. :";
    Label9.caption = " refl. :";
    Label11.caption = Label12.caption = "%";
  }
}

void Glass_types::WriteAngles() {
  for (int r = 1; r <= kMaxAngles; ++r) {
    Grid1.Cell(r, kAngleCol) = r <= rows_ ? AngleText(r, rows_) : "";
  }
}

void Glass_types::GlassChosen() {
  const int index = List1.list_index;
  if (index == current_ || index < 0) return;
  if (!CheckGlass()) {
    List1.list_index = current_;
    return;
  }
  if (current_ >= 0) StoreGlass(current_);
  ShowGlass(index);
}

void Glass_types::DataTypeChosen() { ShowDataType(); }

bool Glass_types::CheckGlass() {
  if (current_ < 0) return true;
  GlassInput input;
  input.front = text1.text;
  input.back = Text2.text;
  input.data_type = Combo1.SelectedItem();
  input.text3 = Text3.text;
  input.text4 = Text4.text;
  input.text5 = Text5.text;
  input.rows = rows_;
  if (rows_ > 0) {
    input.last_transm = Grid1.Cell(rows_, 1);
    input.last_front = Grid1.Cell(rows_, 2);
    input.last_back = Grid1.Cell(rows_, 3);
  }
  const Faults faults = GlassFaults(input);
  if (!faults.empty() && faults.front().field == kTableField) Grid1.row = Grid1.row_sel = rows_;
  return ShowFaults(*session_.dialogs, faults, kTitle, mb::kExclamation,
                    {&text1, &Text2, &Combo1, &Grid1, &Text3, &Text4, &Text5});
}

void Glass_types::NewGlass() {
  if (!CheckGlass()) return;
  Dialogs& dialogs = *session_.dialogs;
  if (table_.GlassCount == kMaxGlassTypes) {
    dialogs.MsgBox("Maximum number of Glass types = " + NumText(kMaxGlassTypes), mb::kOkOnly, "");
    return;
  }
  const std::string name = TrimBlanks(AskInput(session_, "Glass type name", "", "ADD GLASS TYPE",
                                               kGlassNameLength, 0, 0, 0, false));
  // Window types name their glass, so a name is one word.
  if (name.find(' ') != std::string::npos) {
    dialogs.MsgBox("The name: " + name + " should not include spaces !", mb::kExclamation,
                   "Test for spaces in name");
    return;
  }
  if (name.empty()) return;
  if (current_ >= 0) StoreGlass(current_);
  const int g = ++table_.GlassCount;
  table_.cells[g].assign(kGlassColumns + 1, "");
  table_.Cell(g, 1) = name;
  List1.AddItem(name);
  ClearScreen();
  text1.text = Text2.text = "87";
  current_ = List1.list_index = g - 1;
  WriteAngles();
  ShowDataType();
}

void Glass_types::DeleteGlass() {
  if (current_ < 0) return;
  const int g = current_ + 1;
  if (GlassIsReferenced(session_.ws, table_.Cell(g, 1))) {
    session_.dialogs->MsgBox("This type of glass is referenced in a window and can not be deleted",
                             mb::kOkOnly, kTitle);
    return;
  }
  // No question: the rows behind it move up, keeping their order.
  table_.Cell(g, 1) = " ";
  auto first = table_.cells.begin() + 1;
  auto last = first + table_.GlassCount;
  auto kept = std::stable_partition(first, last, [](const auto& row) { return row[1] != " "; });
  for (auto it = kept; it != last; ++it) it->assign(kGlassColumns + 1, "");
  table_.GlassCount = static_cast<int>(kept - first);
  FillList();
  current_ = -1;
  if (table_.GlassCount == 0) {
    ClearScreen();
    ShowDataType();
    return;
  }
  List1.list_index = 0;
  ShowGlass(0);
}

int Glass_types::SelectedRow() const {
  return Grid1.row >= 1 && Grid1.row <= rows_ ? Grid1.row : 0;
}

bool Glass_types::AskAngle(const std::string& title, std::array<std::string, 3>& cells) {
  AddAngle form(session_);
  form.caption = title;
  form.transm.text = cells[0];
  form.Absf.text = cells[1];
  form.Absb.text = cells[2];
  session_.dialogs->ShowModal(form);
  if (!form.accepted) return false;
  cells = {TrimBlanks(form.transm.text), TrimBlanks(form.Absf.text), TrimBlanks(form.Absb.text)};
  return true;
}

void Glass_types::PutRow(int row, const std::array<std::string, 3>& cells) {
  for (int col = 1; col <= 3; ++col) Grid1.Cell(row, col) = cells[col - 1];
  WriteAngles();
  Grid1.row = Grid1.row_sel = row;
}

void Glass_types::MoveRow(int from, int to) {
  for (int col = 0; col < 4; ++col) Grid1.Cell(to, col) = Grid1.Cell(from, col);
}

void Glass_types::AddRow() {
  if (current_ < 0) return;
  if (rows_ == kMaxAngles) {
    session_.dialogs->MsgBox("Maximum number of angles = " + NumText(kMaxAngles), mb::kOkOnly,
                             kTitle);
    return;
  }
  std::array<std::string, 3> cells;
  if (!AskAngle("Add data", cells)) return;
  ++rows_;
  PutRow(rows_, cells);
}

void Glass_types::InsertRow() {
  if (current_ < 0) return;
  if (rows_ == kMaxAngles) {
    session_.dialogs->MsgBox("Maximum number of angles = " + NumText(kMaxAngles), mb::kOkOnly,
                             kTitle);
    return;
  }
  // Below the rows in use, an insert is an add.
  const int at = SelectedRow() > 0 ? SelectedRow() : rows_ + 1;
  std::array<std::string, 3> cells;
  if (!AskAngle("Insert data", cells)) return;
  for (int r = rows_; r >= at; --r) MoveRow(r, r + 1);
  ++rows_;
  PutRow(at, cells);
}

void Glass_types::EditRow() {
  const int row = SelectedRow();
  if (current_ < 0 || row == 0) return;
  std::array<std::string, 3> cells = {Grid1.Cell(row, 1), Grid1.Cell(row, 2), Grid1.Cell(row, 3)};
  if (!AskAngle("Edit data", cells)) return;
  PutRow(row, cells);
}

void Glass_types::DeleteRow() {
  const int row = SelectedRow();
  if (current_ < 0 || row == 0) return;
  for (int r = row; r < rows_; ++r) MoveRow(r + 1, r);
  for (int col = 0; col < 4; ++col) Grid1.Cell(rows_, col).clear();
  --rows_;
  WriteAngles();
}

void Glass_types::Ok() {
  if (!CheckGlass()) return;
  if (current_ >= 0) StoreGlass(current_);
  const Workspace& ws = session_.ws;
  if (!WriteGlassTypes(ws, table_)) {
    FailWrite(JoinPath(ws.ProjectPath, kGlassTypesFile));
  }
  // Window types of every case are built from these glasses.
  MarkModulesStale(ws, "ALL", kAllModules);
  Unload();
}

}  // namespace zelmo
