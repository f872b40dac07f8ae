#include "libraries/opaque_screen.h"

#include "core/fields.h"
#include "core/form_helpers.h"
#include "core/grid_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text_file.h"
#include "libraries/library_rules.h"
#include "libraries/walls_lib.h"
#include "workspace/project_store.h"

namespace zelmo {

namespace {

constexpr int kOpaqueHelp = 12004;
constexpr int kVisibleRows = 15;
constexpr const char* kAddTitle = "Add opaque material";
constexpr const char* kChangeTitle = "Change opaque material";
constexpr const char* kNumberCaption = "Material no: ";
constexpr const char* kDeleteTitle = "Delete ";
const char* const kHeadings[kOpaqueFields] = {"Type", "Name", "Conduct. (W/m,K)",
                                              "Sp. Heat (Wh/kg,K)", "Density (kg/m3)"};

}  // namespace

AddOpaque::AddOpaque(Session& session, OpaqueMtrl& owner)
    : Form("AddOpaque"), session_(session), owner_(owner) {
  width = 5200;
  height = 2900;
  Label1.caption = "Name:";
  Label2.caption = "Conduct. (W/m,K):";
  Label3.caption = "Sp. heat (Wh/kg,K):";
  Label4.caption = "Density (kg/m3):";
  Command1.caption = "&OK";
  Command2.caption = "&Cancel";
  Command3.caption = "&Help";
  default_button = "Command1";
  cancel_button = "Command2";
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
  Command3.on_click = [this] { Help(); };
}

void AddOpaque::Load() {
  CenterForm(*this, session_.ws);
  Mtrl.SetFocus();
  Mtrl.SelectAll();
}

bool AddOpaque::CheckMaterial() {
  const MaterialCheck check =
      zelmo::CheckMaterial({Mtrl.text, Conduct.text, Heat.text, Density.text});
  if (check.first_fault < 0) return true;
  session_.dialogs->MsgBox(check.message, mb::kExclamation, "MESSAGE");
  TextBox* fields[] = {&Mtrl, &Conduct, &Heat, &Density};
  fields[check.first_fault]->SetFocus();
  fields[check.first_fault]->SelectAll();
  return false;
}

void AddOpaque::Ok() {
  KeepNameOnOneLine(Mtrl);
  if (!CheckMaterial()) return;
  const std::array<std::string, 4> fields = {TrimBlanks(Mtrl.text), TrimBlanks(Conduct.text),
                                             TrimBlanks(Heat.text), TrimBlanks(Density.text)};
  if (caption == kAddTitle) {
    owner_.StoreNew(TrimBlanks(FieldAfter(Label5.caption, kNumberCaption)), fields);
  } else {
    owner_.StoreChanged(fields);
  }
  Unload();
}

void AddOpaque::Help() { ShowScreenHelp(session_, kOpaqueHelp); }

OpaqueMtrl::OpaqueMtrl(Session& session) : Form("OpaqueMtrl"), session_(session) {
  caption = "Opaque materials";
  width = 9600;
  height = 6600;
  Label1.caption = "List of opaque materials";
  Command1.caption = "&Add";
  Command2.caption = "&Delete";
  Command3.caption = "&Edit";
  Command4.caption = "&OK";
  Command5.caption = "&Cancel";
  Command6.caption = "&Help";
  default_button = "Command4";
  cancel_button = "Command5";
  OpaqueList.SetCols(kOpaqueFields);
  OpaqueList.on_change = [this] { SelectionChanged(); };
  Command1.on_click = [this] { Add(); };
  Command2.on_click = [this] { Delete(); };
  Command3.on_click = [this] { Edit(); };
  Command4.on_click = [this] { Ok(); };
  Command5.on_click = [this] { Cancel(); };
  Command6.on_click = [this] { Help(); };
}

std::string OpaqueMtrl::TypeOf(int row) const { return TrimBlanks(OpaqueList.Cell(row, 0)); }

void OpaqueMtrl::Load() {
  CenterForm(*this, session_.ws);
  Grid& grid = OpaqueList;
  // The widths of the layout, a quarter wider for the screen font, whose
  // headings would otherwise be cut.
  grid.col_widths = {690, 3750, 2125, 2315, 1940};
  grid.SetRows(2);
  OpaqueCount = 0;
  PredefinedMaterialCount = 0;
  if (FileCanOpen(OpaquePath(session_.ws))) {
    for (const auto& row : ReadOpaqueLib(session_.ws)) {
      grid.AddRow();
      for (int c = 0; c < kOpaqueFields; ++c) grid.Cell(grid.rows() - 1, c) = row[c];
      ++OpaqueCount;
      if (Val(row[0]) <= kLastPredefinedType) ++PredefinedMaterialCount;
    }
    // The blank row stands only while the library is empty.
    if (OpaqueCount > 0) grid.RemoveRow(1);
    for (int c = 0; c < kOpaqueFields; ++c) grid.Cell(0, c) = kHeadings[c];
  }
  int shown = 1;
  for (int row = 1; !Tag.empty() && row < grid.rows(); ++row) {
    if (TypeOf(row) == Tag) shown = row;
  }
  GridSelectRow(grid, shown, 0, kVisibleRows);
  SelectionChanged();
  MaterialRowLimit = PredefinedMaterialCount + (kMaxMaterials - kLastPredefinedType);
  MaterialNumberOffset = kLastPredefinedType - PredefinedMaterialCount;
  Command1.enabled = OpaqueCount != MaterialRowLimit;
  OpaqueDirty = false;
  written_ = false;
}

void OpaqueMtrl::SelectionChanged() {
  if (OpaqueList.tag == "*") return;
  const bool own = OpaqueCount > 0 && OpaqueList.row > PredefinedMaterialCount;
  Command2.enabled = own;
  Command3.enabled = own;
}

void OpaqueMtrl::Add() {
  Grid& grid = OpaqueList;
  // The lowest free Type from 48: the first row of the user's materials whose
  // Type is not the one it would have with no number skipped.
  int row = PredefinedMaterialCount + 1;
  while (row < grid.rows() && std::to_string(MaterialNumberOffset + row) == TypeOf(row)) ++row;
  const int candidate = MaterialNumberOffset + row;
  if (candidate > kMaxMaterials) {
    session_.dialogs->MsgBox("Maximum number of opaque materials exceeded",
                             mb::kOkOnly + mb::kExclamation, "Error message");
    Command1.enabled = false;
    return;
  }
  AddOpaque editor(session_, *this);
  editor.caption = kAddTitle;
  editor.Label5.caption = kNumberCaption + std::to_string(candidate);
  session_.dialogs->ShowModal(editor);
}

void OpaqueMtrl::Edit() {
  Grid& grid = OpaqueList;
  const int row = grid.row;
  if (row < 1 || row >= grid.rows() || row <= PredefinedMaterialCount || OpaqueCount == 0) return;
  AddOpaque editor(session_, *this);
  editor.caption = kChangeTitle;
  editor.Mtrl.text = TrimBlanks(grid.Cell(row, 1));
  editor.Conduct.text = TrimBlanks(grid.Cell(row, 2));
  editor.Heat.text = TrimBlanks(grid.Cell(row, 3));
  editor.Density.text = TrimBlanks(grid.Cell(row, 4));
  editor.Label5.caption = kNumberCaption + grid.Cell(row, 0);
  session_.dialogs->ShowModal(editor);
}

void OpaqueMtrl::StoreNew(const std::string& type, const std::array<std::string, 4>& fields) {
  Grid& grid = OpaqueList;
  const double number = Val(type);
  int at = grid.rows() - 1;
  grid.AddRow();
  if (Val(grid.Cell(at, 0)) < number) {
    at = grid.rows() - 1;
  } else {
    // A gap in the numbers: the greater Types move down one row.
    int row = grid.rows() - 2;
    for (; row >= 1 && Val(grid.Cell(row, 0)) > number; --row) {
      for (int c = 0; c < kOpaqueFields; ++c) grid.Cell(row + 1, c) = grid.Cell(row, c);
    }
    at = row + 1;
  }
  SetGridCellText(grid, at, 0, type);
  for (int c = 1; c < kOpaqueFields; ++c) SetGridCellText(grid, at, c, fields[c - 1]);
  ++OpaqueCount;
  if (OpaqueCount == kMaxMaterials) Command1.enabled = false;
  if (grid.rows() > 2 && TypeOf(1).empty()) {
    grid.RemoveRow(1);
    --at;
  }
  GridSelectRow(grid, at, 0, kVisibleRows);
  SelectionChanged();
  OpaqueDirty = true;
}

void OpaqueMtrl::StoreChanged(const std::array<std::string, 4>& fields) {
  const int row = OpaqueList.row;
  for (int c = 1; c < kOpaqueFields; ++c) SetGridCellText(OpaqueList, row, c, fields[c - 1]);
  OpaqueDirty = true;
}

void OpaqueMtrl::Delete() {
  Grid& grid = OpaqueList;
  int row = grid.row;
  if (row < 1 || row >= grid.rows() || row <= PredefinedMaterialCount || OpaqueCount == 0) return;
  Dialogs& dialogs = *session_.dialogs;
  if (MaterialInWalls(ReadWallsLib(session_.ws), TypeOf(row))) {
    dialogs.MsgBox("The material is referenced in a wall and can not be deleted ",
                   mb::kOkOnly + mb::kExclamation, kDeleteTitle);
    return;
  }
  const std::string question =
      "Do you want to delete the material type " + grid.Cell(row, 1) + "  ?";
  if (dialogs.MsgBox(question, mb::kYesNo + mb::kQuestion, kDeleteTitle) != Answer::kYes) return;
  grid.RemoveRow(row);
  --OpaqueCount;
  if (row > grid.rows() - 1) row = grid.rows() - 1;
  GridSelectRow(grid, row, 0, kVisibleRows);
  SelectionChanged();
  Command1.enabled = true;
  OpaqueDirty = true;
}

OpaqueTable OpaqueMtrl::GridRows() {
  OpaqueTable rows;
  // The blank row of an empty library is no material.
  if (OpaqueCount == 0) return rows;
  for (int row = 1; row < OpaqueList.rows(); ++row) {
    OpaqueRow fields;
    for (int c = 0; c < kOpaqueFields; ++c)
      fields[c] = TrimBlanks(GridCellText(OpaqueList, row, c));
    rows.push_back(std::move(fields));
  }
  return rows;
}

void OpaqueMtrl::Save() {
  if (!WriteOpaqueLib(session_.ws, GridRows())) {
    FailWrite(OpaquePath(session_.ws));
  }
  // No module reads the materials but through the walls, whose save marks
  // the cases stale.
  OpaqueDirty = false;
  written_ = true;
}

void OpaqueMtrl::Ok() {
  Save();
  Unload();
}

void OpaqueMtrl::Cancel() {
  CancelAskingToSave(
      *this, *session_.dialogs, OpaqueDirty, "Opaque materials", [] { return true; },
      [this] { Save(); });
}

void OpaqueMtrl::Help() { ShowScreenHelp(session_, kOpaqueHelp); }

}  // namespace zelmo
