#include "libraries/moveins_screen.h"

#include "building/surface_rules.h"
#include "core/fields.h"
#include "core/form_helpers.h"
#include "core/grid_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text_file.h"
#include "libraries/library_rules.h"

namespace zelmo {

namespace {

constexpr int kTypeCol = 0;
constexpr int kCols = 5;
constexpr int kVisibleRows = 15;
constexpr int kHelpContext = 12050;
constexpr const char* kNewPrefix = "Type: ";
constexpr const char* kEditPrefix = "MI-no: ";

CurtainRecord RowRecord(const Grid& grid, int row) {
  return {grid.Cell(row, 0), grid.Cell(row, 1), grid.Cell(row, 2), grid.Cell(row, 3),
          grid.Cell(row, 4)};
}

void SetRowRecord(Grid& grid, int row, const CurtainRecord& c) {
  const std::string* values[] = {&c.Type, &c.Name, &c.Transmittance, &c.Absorptance, &c.RValue};
  for (int col = 0; col < kCols; ++col) grid.Cell(row, col) = *values[col];
}

}  // namespace

MoveIns::MoveIns(Session& session) : Form("MoveIns"), session_(session) {
  caption = "Interior curtains";
  help_context = kHelpContext;
  Command3D1.caption = "&Add";
  Command3D2.caption = "&Delete";
  Command3D4.caption = "&Edit";
  Command1.caption = "&OK";
  Command2.caption = "&Cancel";
  Command3.caption = "&Help";
  default_button = "Command1";
  cancel_button = "Command2";
  MoveInsList.SetCols(kCols);
  MoveInsList.col_widths = {700, 2000, 2600, 2600, 2200};
  Command3D1.on_click = [this] { Add(); };
  Command3D2.on_click = [this] { Delete(); };
  Command3D4.on_click = [this] { Edit(); };
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
  Command3.on_click = [this] { Help(); };
}

void MoveIns::Load() {
  std::vector<CurtainRecord> curtains = ReadMoveInsLib(session_.ws);
  Grid& grid = MoveInsList;
  grid.SetRows(1);
  SetRowRecord(
      grid, 0,
      {"Type", "Name ", "Solar rad. transm. (%)", "Solar rad. absorp. (%)", "R-value (m2,K/W)"});
  for (const auto& curtain : curtains) {
    grid.AddRow();
    SetRowRecord(grid, grid.rows() - 1, curtain);
  }
  curtain_count_ = static_cast<int>(curtains.size());
  if (curtain_count_ == 0) grid.AddRow();
  grid.row = grid.row_sel = 1;
  grid.col = kTypeCol;
  grid.col_sel = kCols - 1;
  // The window is as wide as its columns.
  width = 600;
  for (int w : grid.col_widths) width += w;
  height = 6300;
  CenterForm(*this, session_.ws);
  UpdateButtons();
  dirty_ = false;
}

void MoveIns::UpdateButtons() {
  Command3D1.enabled = curtain_count_ < kMaxCurtains;
  Command3D2.enabled = Command3D4.enabled = curtain_count_ > 0;
}

int MoveIns::NextCurtainNumber() const {
  int row = 1;
  for (; row < MoveInsList.rows(); ++row) {
    if (TrimBlanks(MoveInsList.Cell(row, kTypeCol)) != std::to_string(row)) return row;
  }
  return row;
}

void MoveIns::Add() {
  if (curtain_count_ >= kMaxCurtains) return;
  AddMoveIns form(session_, *this, false, std::to_string(NextCurtainNumber()));
  session_.dialogs->ShowModal(form);
}

void MoveIns::Edit() {
  if (curtain_count_ == 0 || MoveInsList.row < 1) return;
  AddMoveIns form(session_, *this, true, TrimBlanks(MoveInsList.Cell(MoveInsList.row, kTypeCol)));
  session_.dialogs->ShowModal(form);
}

void MoveIns::StoreNew(const std::string& number, const CurtainRecord& values) {
  Grid& grid = MoveInsList;
  const bool was_empty = curtain_count_ == 0;
  int at;
  if (Val(grid.Cell(grid.rows() - 1, kTypeCol)) < Val(number)) {
    grid.AddRow();
    at = grid.rows() - 1;
  } else {
    // Types compare as text while a gap is filled, so "10" stays above "9".
    grid.AddRow();
    at = grid.rows() - 2;
    for (; at >= 1 && grid.Cell(at, kTypeCol) > number; --at) {
      SetRowRecord(grid, at + 1, RowRecord(grid, at));
    }
    ++at;
  }
  CurtainRecord record = values;
  record.Type = number;
  SetRowRecord(grid, at, record);
  ++curtain_count_;
  UpdateButtons();
  if (was_empty && TrimBlanks(grid.Cell(1, kTypeCol)).empty()) {
    grid.RemoveRow(1);
    --at;
  }
  GridSelectRow(grid, at, kTypeCol, kVisibleRows);
  dirty_ = true;
}

void MoveIns::StoreEdit(const CurtainRecord& values) {
  Grid& grid = MoveInsList;
  CurtainRecord record = values;
  record.Type = grid.Cell(grid.row, kTypeCol);
  SetRowRecord(grid, grid.row, record);
  dirty_ = true;
}

void MoveIns::Delete() {
  Grid& grid = MoveInsList;
  if (curtain_count_ == 0 || grid.row < 1) return;
  if (CurtainReferenced(session_.ws, TrimBlanks(grid.Cell(grid.row, kTypeCol)))) {
    session_.dialogs->MsgBox("The MI is referenced in a surface and can not be deleted ",
                             mb::kExclamation, "");
    return;
  }
  if (grid.rows() == 2) {
    SetRowRecord(grid, 1, {});
  } else {
    grid.RemoveRow(grid.row);
  }
  --curtain_count_;
  grid.row_sel = grid.row;
  UpdateButtons();
  dirty_ = true;
}

void MoveIns::Save() {
  std::vector<CurtainRecord> curtains;
  for (int row = 1; row <= curtain_count_ && row < MoveInsList.rows(); ++row) {
    curtains.push_back(RowRecord(MoveInsList, row));
  }
  const Workspace& ws = session_.ws;
  if (!WriteMoveInsLib(ws, curtains)) {
    FailWrite(JoinPath(ws.ProjectPath, kMoveInsFile));
  }
  // No module result depends on the library itself: the elements carry the
  // numbers, and the modules read the values at the next run.
  dirty_ = false;
}

void MoveIns::Ok() {
  OkAndClose(
      *this, [] { return true; }, [this] { Save(); });
}

void MoveIns::Cancel() {
  CancelAskingToSave(
      *this, *session_.dialogs, dirty_, "Movable insulations", [] { return true; },
      [this] { Save(); });
}

void MoveIns::Help() {
  if (session_.desktop) session_.desktop->ShowHelp(session_.ws.HelpFile, kHelpContext);
}

AddMoveIns::AddMoveIns(Session& session, MoveIns& owner, bool edit, const std::string& number)
    : Form("AddMoveIns"), session_(session), owner_(owner), edit_(edit) {
  caption = "Add Movable Insulations";
  width = 5200;
  height = 2800;
  Label5.caption = "Name";
  Label1.caption = "Solar radiation transmittance (%):";
  Label2.caption = "Solar radiation absorptance (%):";
  Label3.caption = "R-value (m2,K/W):";
  Command1.caption = "&OK";
  Command2.caption = "&Cancel";
  default_button = "Command1";
  cancel_button = "Command2";
  NAmeMI.max_length = 12;
  for (TextBox* box : {&NAmeMI, &Solar, &Absorp, &RValue}) {
    box->on_got_focus = [box] { box->SelectAll(); };
  }
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
  if (edit_) {
    caption = "Edit Moveable Insulation";
    Label4.caption = kEditPrefix + number;
    CurtainRecord c = RowRecord(owner_.MoveInsList, owner_.MoveInsList.row);
    NAmeMI.text = c.Name;
    Solar.text = c.Transmittance;
    Absorp.text = c.Absorptance;
    RValue.text = c.RValue;
  } else {
    caption = "Add Moveable Insulation";
    Label4.caption = kNewPrefix + number;
  }
}

void AddMoveIns::Load() {
  CenterForm(*this, session_.ws);
  NAmeMI.SetFocus();
  NAmeMI.SelectAll();
}

bool AddMoveIns::CheckAddMoveIns() {
  std::string message;
  TextBox* first = nullptr;
  auto rule = [&message, &first](bool passes, TextBox& input, const std::string& text) {
    if (passes) return;
    message += text + "\r";
    if (!first) first = &input;
  };
  rule(PassesNumberRule(Solar.text, 0, 100), Solar,
       "Transmittance must be a value (" + NumText(0) + " - " + NumText(100) + ")");
  rule(PassesNumberRule(Absorp.text, 0, 100), Absorp,
       "Absorptions must be a value (" + NumText(0) + " - " + NumText(100) + ")");
  rule(PassesNumberRule(RValue.text, 0, 1000000, /*strict=*/true), RValue,
       "R-value must be a value (> " + NumText(0) + " - " + NumText(1000000) + ")");
  // Unlike the other libraries, the name is checked last.
  rule(!TrimBlanks(NAmeMI.text).empty(), NAmeMI, "Name is missing");
  if (!first) return true;
  session_.dialogs->MsgBox(message, mb::kExclamation, "MESSAGE");
  first->SetFocus();
  first->SelectAll();
  return false;
}

void AddMoveIns::Ok() {
  KeepNameOnOneLine(NAmeMI);
  if (!CheckAddMoveIns()) return;
  CurtainRecord values{{},
                       TrimBlanks(NAmeMI.text),
                       TrimBlanks(Solar.text),
                       TrimBlanks(Absorp.text),
                       TrimBlanks(RValue.text)};
  if (edit_) {
    owner_.StoreEdit(values);
  } else {
    owner_.StoreNew(FieldAfter(Label4.caption, kNewPrefix), values);
  }
  Unload();
}

}  // namespace zelmo
