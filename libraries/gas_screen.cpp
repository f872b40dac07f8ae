#include "libraries/gas_screen.h"

#include <algorithm>

#include "core/form_helpers.h"
#include "core/grid_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"
#include "libraries/library_rules.h"
#include "libraries/window_types_lib.h"
#include "workspace/project_store.h"

namespace zelmo {

namespace {
constexpr const char* kTitle = "MESSAGE";
}  // namespace

Addgas::Addgas(Session& session) : Form("Addgas"), session_(session) {
  caption = "Add data";
  width = 4800;
  height = 4900;
  Label* labels[] = {&Label1, &Label2, &Label3, &Label4, &Label5,
                     &Label6, &Label7, &Label8, &Label9};
  for (int i = 0; i < kGasFields; ++i) labels[i]->caption = kGasColumns[i].label;
  Label10.caption = "W/m,K";
  Label11.caption = "Kg/m,s";
  Label12.caption = "Kg/m3";
  Label13.caption = "Pr";
  OK.caption = "&OK";
  Command2.caption = "&Cancel";
  Command3.caption = "&Help";
  default_button = "OK";
  cancel_button = "Command2";
  for (TextBox* box : Inputs()) {
    box->on_got_focus = [box] {
      box->SelectAll();
      box->SetFocus();
    };
    // The number test reads at most eleven characters.
    if (box != &namegas) box->max_length = 11;
  }
  OK.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, kGasesHelp); };
}

std::array<TextBox*, kGasFields> Addgas::Inputs() {
  return {&namegas, &k, &dk, &u, &du, &r, &dr, &p, &dp};
}

void Addgas::Load() {
  CenterForm(*this, session_.ws);
  namegas.SetFocus();
  namegas.SelectAll();
}

void Addgas::Ok() {
  KeepNameOnOneLine(namegas);
  std::array<std::string, kGasFields> fields;
  const auto inputs = Inputs();
  for (int i = 0; i < kGasFields; ++i) fields[i] = inputs[i]->text;
  if (!ShowFaults(*session_.dialogs, GasFaults(fields), kTitle, mb::kExclamation,
                  {inputs.begin(), inputs.end()})) {
    return;
  }
  accepted = true;
  Unload();
}

void Addgas::Cancel() {
  accepted = false;
  Unload();
}

Gases::Gases(Session& session) : Form("Gases"), session_(session) {
  caption = "Gas types";
  width = 12500;
  height = 4300;
  help_context = kGasesHelp;
  Label1.caption = "Gases";
  Grid1.SetCols(kGasFields);
  Grid1.SetRows(kMaxGasTypes + 1);
  Grid1.col_widths = {1100, 1400, 1100, 1400, 1100, 1400, 1100, 1400, 1100};
  for (int col = 0; col < kGasFields; ++col) Grid1.Cell(0, col) = kGasColumns[col].heading;
  Command4.caption = "&Add";
  Command7.caption = "&Insert";
  Command5.caption = "&Edit";
  Command6.caption = "&Delete";
  Command1.caption = "&Ok";
  Command2.caption = "&Cancel";
  Command3.caption = "&Help";
  default_button = "Command1";
  cancel_button = "Command2";
  Grid1.on_change = [this] { GasCurrentRow = Grid1.row; };
  Grid1.on_click = [this] { GasCurrentRow = Grid1.row; };
  Grid1.on_dbl_click = [this] { EditGas(); };
  Command4.on_click = [this] { AddGas(); };
  Command7.on_click = [this] { InsertGas(); };
  Command5.on_click = [this] { EditGas(); };
  Command6.on_click = [this] { DeleteGas(); };
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, kGasesHelp); };
}

void Gases::Load() {
  CenterForm(*this, session_.ws);
  const GasTable table = ReadGasTypes(session_.ws);
  gas_count_ = table.GasCount;
  for (int g = 1; g <= gas_count_; ++g) {
    for (int col = 0; col < kGasFields; ++col) Grid1.Cell(g, col) = table.Cell(g, col + 1);
  }
  GasCurrentRow = Grid1.row = Grid1.row_sel = 1;
}

bool Gases::AtLimit() {
  if (gas_count_ < kMaxGasTypes) return false;
  session_.dialogs->MsgBox("Maximum number of gas types = " + NumText(kMaxGasTypes),
                           mb::kExclamation, kTitle);
  return true;
}

int Gases::SelectedRow() const {
  return GasCurrentRow >= 1 && GasCurrentRow <= gas_count_ ? GasCurrentRow : 0;
}

bool Gases::AskGas(const std::string& title, std::array<std::string, kGasFields>& cells) {
  Addgas form(session_);
  form.caption = title;
  const auto inputs = form.Inputs();
  for (int i = 0; i < kGasFields; ++i) inputs[i]->text = cells[i];
  session_.dialogs->ShowModal(form);
  if (!form.accepted) return false;
  for (int i = 0; i < kGasFields; ++i) cells[i] = TrimBlanks(inputs[i]->text);
  return true;
}

void Gases::PutRow(int row, const std::array<std::string, kGasFields>& cells) {
  for (int col = 0; col < kGasFields; ++col) SetGridCellText(Grid1, row, col, cells[col]);
  GasCurrentRow = Grid1.row = Grid1.row_sel = row;
}

void Gases::AddGas() {
  if (AtLimit()) return;
  std::array<std::string, kGasFields> cells;
  if (!AskGas("Add data", cells)) return;
  PutRow(++gas_count_, cells);
}

void Gases::InsertGas() {
  if (AtLimit()) return;
  // Below the gases, an insert is an add.
  const int at = SelectedRow() > 0 ? SelectedRow() : gas_count_ + 1;
  std::array<std::string, kGasFields> cells;
  if (!AskGas("Insert data", cells)) return;
  for (int row = gas_count_; row >= at; --row) {
    for (int col = 0; col < kGasFields; ++col) Grid1.Cell(row + 1, col) = Grid1.Cell(row, col);
  }
  ++gas_count_;
  PutRow(at, cells);
}

void Gases::EditGas() {
  const int row = SelectedRow();
  if (row == 0) return;
  std::array<std::string, kGasFields> cells;
  for (int col = 0; col < kGasFields; ++col) cells[col] = Grid1.Cell(row, col);
  if (!AskGas("Edit data", cells)) return;
  PutRow(row, cells);
}

void Gases::DeleteGas() {
  const int row = SelectedRow();
  if (row == 0) return;
  if (GasIsReferenced(session_.ws, Grid1.Cell(row, 0))) {
    session_.dialogs->MsgBox("This type of gas is referenced in a window and can not be deleted",
                             mb::kOkOnly, kTitle);
    return;
  }
  // No question: the gases below move up.
  for (int r = row; r < gas_count_; ++r) {
    for (int col = 0; col < kGasFields; ++col) Grid1.Cell(r, col) = Grid1.Cell(r + 1, col);
  }
  for (int col = 0; col < kGasFields; ++col) Grid1.Cell(gas_count_, col).clear();
  --gas_count_;
  GasCurrentRow = Grid1.row = Grid1.row_sel = std::max(1, GasCurrentRow - 1);
}

void Gases::Ok() {
  GasTable table;
  table.GasCount = gas_count_;
  for (int g = 1; g <= gas_count_; ++g) {
    for (int col = 0; col < kGasFields; ++col) table.Cell(g, col + 1) = Grid1.Cell(g, col);
  }
  const Workspace& ws = session_.ws;
  if (!WriteGasTypes(ws, table)) {
    FailWrite(JoinPath(ws.ProjectPath, kGasTypesFile));
  }
  // The gaps of window types in every case are filled with these gases.
  MarkModulesStale(ws, "ALL", kAllModules);
  Unload();
}

}  // namespace zelmo
