#include "libraries/walls_screen.h"

#include <algorithm>

#include "core/fields.h"
#include "core/form_helpers.h"
#include "core/grid_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"
#include "libraries/opaque_screen.h"
#include "workspace/project_store.h"

namespace zelmo {

namespace {

// The help topics open in the help file's "msgWindow" window.
constexpr int kWallsHelp = 12003;
constexpr const char* kTitle = "Walls / Floors / Roofs / Doors";
constexpr const char* kCheckTitle = "Walls / Floors / Roofs / Doors - Check";
constexpr const char* kItemJoin = "| ";
constexpr const char* kSameName = "A wall with the same name already exists";
constexpr const char* kThicknessPrompt = "Type thickness (mm) ";
constexpr const char* kAppendTag = "2";
constexpr const char* kInsertTag = "3";
constexpr const char* kInsertCaption = "&Insert";
constexpr const char* kCloseCaption = "Cl&ose";

enum LayerCol { kLayerCol, kThickCol, kTypeCol };
const char* const kHeadings[] = {"Layer",    "Thick.(mm)", "Type",   "Name",
                                 "Conduct.", "Sp. heat",   "Density"};

// A wall in the list: its number with the mask "0#" (at least two digits),
// a bar, the name.
std::string WallItem(int number, const std::string& name) {
  std::string digits = std::to_string(number);
  if (digits.size() < 2) digits = "0" + digits;
  return digits + kItemJoin + name;
}

std::string ItemName(const std::string& item) { return TrimBlanks(FieldAfter(item, kItemJoin)); }

// A material of OPAQUE.LIB as a line of the material list, its fields in
// columns.
std::string MaterialItem(const OpaqueRow& row) {
  return PadField(row[0], 3, "H") + "|" + PadField(row[1], 21, "V") + "|" +
         PadField(row[2], 8, "H") + "|" + PadField(row[3], 6, "H") + "|" + PadField(row[4], 8, "H");
}

}  // namespace

Walls::Walls(Session& session) : Form("Walls"), session_(session) {
  caption = kTitle;
  width = 14400;
  height = 7400;
  Label1.caption = "Existing walls / floors / roofs / doors";
  Label2.caption = "Wall / floor / roof / door - layers";
  Label3.caption = "U-value";
  Label4.caption = Cp1252FromUtf8("W/m2,°C");
  Frame1.caption = "Library";
  Command3D8.caption = "Opaque materials";
  Command3D1.caption = "&Add";
  Command3D6.caption = "Co&py";
  Command3D7.caption = "&Rename";
  Command3D4.caption = "De&lete";
  Command3D2.caption = "A&dd";
  Command3D3.caption = kInsertCaption;
  Command3D5.caption = "Dele&te";
  Command3D9.caption = "&Edit";
  Command1.caption = "&OK";
  Command2.caption = "&Cancel";
  Command3.caption = "&Help";
  cancel_button = "Command2";
  UvalueWall.locked = true;
  MtrlList.visible = false;
  Grid& grid = WallLayerList;
  grid.SetCols(7);
  // The widths of the layout, a quarter wider for the screen font, whose
  // headings would otherwise be cut.
  grid.col_widths = {775, 1375, 750, 3690, 1250, 1250, 1250};
  grid.SetRows(2);
  for (int c = 0; c < grid.cols(); ++c) grid.Cell(0, c) = kHeadings[c];

  WallList.on_click = [this] { WallListClick(); };
  MtrlList.on_click = [this] { MaterialClicked(MtrlList.list_index); };
  Command3D1.on_click = [this] { AddWall(); };
  Command3D6.on_click = [this] { CopyWall(); };
  Command3D7.on_click = [this] { RenameWall(); };
  Command3D4.on_click = [this] { DeleteWall(); };
  Command3D2.on_click = [this] { AddLayers(); };
  Command3D3.on_click = [this] { InsertLayersOrClose(); };
  Command3D5.on_click = [this] { DeleteLayer(); };
  Command3D9.on_click = [this] { EditThickness(); };
  Command3D8.on_click = [this] { OpaqueMaterials(); };
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
  Command3.on_click = [this] { Help(); };
}

void Walls::Load() {
  CenterForm(*this, session_.ws);
  ReadMaterials();
  lib_ = ReadWallsLib(session_.ws);
  FillWallList();
  if (WallList.items.empty()) {
    ShowWall(-1);
  } else {
    ShowWall(0);
  }
  dirty_ = false;
}

void Walls::ReadMaterials() {
  materials_ = ReadOpaqueLib(session_.ws);
  MtrlList.Clear();
  for (const auto& row : materials_) MtrlList.AddItem(MaterialItem(row));
}

void Walls::FillWallList() {
  WallList.Clear();
  for (int slot = 1; slot <= kMaxWalls; ++slot) {
    if (!TrimBlanks(lib_.names[slot]).empty()) WallList.AddItem(WallItem(slot, lib_.names[slot]));
  }
}

int Walls::CurrentWall() const {
  const std::string item = WallList.SelectedItem();
  if (item.empty()) return 0;
  const double number = Val(FieldBefore(item, kItemJoin));
  return number >= 1 && number <= kMaxWalls ? static_cast<int>(number) : 0;
}

int Walls::LayerRows() const {
  int rows = 0;
  for (int row = 1; row < WallLayerList.rows(); ++row) {
    if (!TrimBlanks(WallLayerList.Cell(row, kTypeCol)).empty()) ++rows;
  }
  return rows;
}

void Walls::WallListClick() {
  if (!LayerCheck()) {
    WallList.list_index = previous_index_;
    return;
  }
  ShowWall(WallList.list_index);
}

void Walls::ShowWall(int index) {
  WallList.list_index = index;
  const int slot = CurrentWall();
  Grid& grid = WallLayerList;
  grid.SetRows(2);
  for (int c = 0; c < grid.cols(); ++c) grid.Cell(1, c).clear();
  for (int k = 1; slot > 0 && k <= kMaxLayers; ++k) {
    const WallLayer& layer = lib_.layers[slot][k];
    if (layer.material.empty()) break;
    const int row = FindMaterial(materials_, TrimBlanks(layer.material));
    if (row < 0) continue;
    const OpaqueRow& material = materials_[row];
    grid.AddRow(std::to_string(k) + kTab + layer.thickness + kTab + layer.material + kTab +
                material[1] + kTab + material[2] + kTab + material[3] + kTab + material[4]);
  }
  if (grid.rows() > 2) grid.RemoveRow(1);
  Command3D5.enabled = LayerRows() > 0;
  GridSelectRowTop(grid, 1, 0, 0);
  caption = slot > 0 ? std::string(kTitle) + " (" + TrimBlanks(lib_.names[slot]) + ")" : kTitle;
  ShowUValue();
  previous_index_ = index;
  UpdateButtons();
}

void Walls::ShowUValue() {
  const int slot = CurrentWall();
  UvalueWall.text =
      slot > 0 ? UValueText(WallResistance(lib_, slot, materials_, session_.ws)) : std::string();
}

void Walls::UpdateButtons() {
  const int walls = static_cast<int>(WallList.items.size());
  const bool any = walls > 0;
  for (Button* button : {&Command3D1, &Command3D3, &Command3D4, &Command3D6, &Command3D7}) {
    button->enabled = any;
  }
  // A wall must be there to take layers.
  Command3D2.enabled = Command3D9.enabled = any;
  Command3D1.enabled = walls < kMaxWalls;
  Command3D6.enabled = any && walls < kMaxWalls;
  if (LayerRows() >= kMaxLayers) Command3D2.enabled = Command3D3.enabled = false;
  Command3D5.enabled = LayerRows() > 0;
}

bool Walls::LayerCheck() {
  if (WallList.items.empty() || !TrimBlanks(WallLayerList.Cell(1, kLayerCol)).empty()) return true;
  session_.dialogs->MsgBox("There must be at least one layer in the wall", mb::kExclamation,
                           kCheckTitle);
  Command3D2.SetFocus();
  return false;
}

std::string Walls::AskNewName(const std::string& prompt, const std::string& default_text,
                              const std::string& title, const std::string& duplicate,
                              const std::string& duplicate_title) {
  const std::string answer =
      AskInput(session_, prompt, default_text, title, kMaxWallName, 0, 0, 0, false);
  const std::string name = TrimBlanks(answer);
  if (name.empty()) return {};
  for (const auto& item : WallList.items) {
    if (ItemName(item) == name) {
      session_.dialogs->MsgBox(duplicate, mb::kExclamation, duplicate_title);
      return {};
    }
  }
  return name;
}

void Walls::AddWall() {
  if (!WallList.items.empty() && !LayerCheck()) return;
  const int slot = lib_.FirstFreeSlot();
  if (slot == 0) return;
  const std::string name = AskNewName("Type a name ", "", "Add Walls/Floors/Roofs/Doors", kSameName,
                                      "Walls/Floors/Roofs/Doors - Check");
  if (name.empty()) return;
  lib_.ClearSlot(slot);
  lib_.names[slot] = name;
  lib_.layer_count[slot] = 0;
  WallList.AddItem(WallItem(slot, name));
  ShowWall(static_cast<int>(WallList.items.size()) - 1);
  dirty_ = true;
}

void Walls::CopyWall() {
  const int source = CurrentWall();
  if (source == 0 || !LayerCheck()) return;
  const int slot = lib_.FirstFreeSlot();
  if (slot == 0) return;
  const std::string name = AskNewName("Type name of target ", "", "Copy Walls/Floors/Roofs/Doors",
                                      kSameName, "Walls/Floors/Roofs/Doors- Check");
  if (name.empty()) return;
  lib_.names[slot] = name;
  lib_.layers[slot] = lib_.layers[source];
  lib_.layer_count[slot] = lib_.layer_count[source];
  WallList.AddItem(WallItem(slot, name));
  ShowWall(static_cast<int>(WallList.items.size()) - 1);
  dirty_ = true;
}

void Walls::RenameWall() {
  const int slot = CurrentWall();
  if (slot == 0) return;
  const std::string name =
      AskNewName("Type a new name ", lib_.names[slot], "Rename Walls/Floors/Roofs/Doors",
                 kSameName + std::string(" "), "Walls/Floors/Roofs/Doors- Check");
  if (name.empty()) return;
  lib_.names[slot] = name;
  std::string& item = WallList.items[WallList.list_index];
  item = FieldBefore(item, kItemJoin) + kItemJoin + name;
  caption = std::string(kTitle) + " (" + name + ")";
  dirty_ = true;
}

void Walls::DeleteWall() {
  const int slot = CurrentWall();
  if (slot == 0) return;
  Dialogs& dialogs = *session_.dialogs;
  if (WallReferenced(session_.ws, slot)) {
    dialogs.MsgBox("The wall is referenced in a surface and can not be deleted", mb::kExclamation,
                   "Walls/Floors/Roofs/Doors- Check");
    return;
  }
  const std::string question = "Do you want to delete the wall type" + NumText(slot) + "?";
  if (dialogs.MsgBox(question, mb::kYesNo + mb::kExclamation, "Delete wall") != Answer::kYes) {
    return;
  }
  lib_.ClearSlot(slot);
  WallList.RemoveItem(WallList.list_index);
  ShowWall(WallList.items.empty() ? -1 : 0);
  dirty_ = true;
  if (LayerCheck()) Save();
}

void Walls::AddLayers() {
  if (CurrentWall() == 0) return;
  mtrl_tag_ = kAppendTag;
  MtrlList.list_index = -1;
  MtrlList.visible = true;
  Command3D3.caption = kCloseCaption;
  // While layers are being added only the material list and Close act.
  for (Button* button : {&Command3D1, &Command3D6, &Command3D7, &Command3D4, &Command3D2,
                         &Command3D5, &Command3D9, &Command3D8}) {
    button->enabled = false;
  }
  Command1.visible = Command2.visible = Command3.visible = false;
}

void Walls::InsertLayersOrClose() {
  if (Adding()) {
    CloseMaterials();
    return;
  }
  AddLayers();
  mtrl_tag_ = kInsertTag;
}

void Walls::CloseMaterials() {
  MtrlList.visible = false;
  Command3D3.caption = kInsertCaption;
  Command1.visible = Command2.visible = Command3.visible = true;
  Command3D8.enabled = true;
  UpdateButtons();
  if (LayerCheck()) Save();
}

std::string Walls::LayerRow(const std::string& thickness, int material) const {
  const OpaqueRow& row = materials_[material];
  std::string text = kTab + thickness;
  for (const auto& field : row) text += kTab + field;
  return text;
}

void Walls::MaterialClicked(int index) {
  // Each click is a layer, the same material again included.
  MtrlList.list_index = -1;
  if (!Adding() || CurrentWall() == 0 || index < 0 ||
      index >= static_cast<int>(materials_.size()) || LayerRows() >= kMaxLayers) {
    return;
  }
  const std::string thickness = AskThickness("Add wall-layer", "");
  if (thickness.empty()) return;
  Grid& grid = WallLayerList;
  const std::string row = LayerRow(thickness, index);
  if (mtrl_tag_ == kInsertTag) {
    const int at = std::max(1, std::min(grid.row, grid.rows() - 1));
    GridInsertRow(grid, at, row);
    // The layer before which the next one goes stays selected, so layers
    // inserted one after another keep the order they were chosen in.
    int selected = at + 1;
    for (int r = grid.rows() - 1; r >= 1 && grid.rows() > 2; --r) {
      if (!TrimBlanks(grid.Cell(r, kTypeCol)).empty()) continue;
      grid.RemoveRow(r);
      if (r < selected) --selected;
    }
    grid.row = std::min(selected, grid.rows() - 1);
  } else {
    grid.AddRow(row);
    if (grid.rows() > 2 && TrimBlanks(grid.Cell(1, kTypeCol)).empty()) grid.RemoveRow(1);
  }
  StoreGridLayers();
  ShowUValue();
  dirty_ = true;
  if (LayerRows() >= kMaxLayers) {
    CloseMaterials();
    Command3D2.enabled = Command3D3.enabled = false;
  }
}

void Walls::StoreGridLayers() {
  const int slot = CurrentWall();
  if (slot == 0) return;
  auto& layers = lib_.layers[slot];
  for (auto& layer : layers) layer = {};
  Grid& grid = WallLayerList;
  int count = 0;
  for (int row = 1; row < grid.rows() && count < kMaxLayers; ++row) {
    const std::string type = TrimBlanks(grid.Cell(row, kTypeCol));
    if (type.empty()) continue;
    ++count;
    layers[count] = {type, TrimBlanks(grid.Cell(row, kThickCol))};
    SetGridCellRaw(grid, row, kLayerCol, std::to_string(count));
  }
  lib_.layer_count[slot] = static_cast<int16_t>(count);
}

void Walls::DeleteLayer() {
  const int slot = CurrentWall();
  Grid& grid = WallLayerList;
  const int row = grid.row;
  const double layer = Val(grid.Cell(row, kLayerCol));
  if (slot == 0 || row < 1 || !(layer >= 1 && layer <= kMaxLayers)) return;
  auto& layers = lib_.layers[slot];
  for (int k = static_cast<int>(layer); k < kMaxLayers; ++k) layers[k] = layers[k + 1];
  layers[kMaxLayers] = {};
  if (lib_.layer_count[slot] > 0) --lib_.layer_count[slot];
  ShowWall(WallList.list_index);
  grid.row = grid.row_sel = std::min(row, grid.rows() - 1);
  dirty_ = true;
  if (LayerCheck()) Save();
}

std::string Walls::AskThickness(const std::string& title, const std::string& default_text) {
  for (;;) {
    const std::string answer =
        AskInput(session_, kThicknessPrompt, default_text, title, kMaxThicknessLength, -1,
                 kMinThickness, kMaxThickness, false);
    if (TrimBlanks(answer).empty()) return {};
    const std::string fault = CheckThickness(answer);
    if (fault.empty()) return TrimBlanks(answer);
    session_.dialogs->MsgBox(fault, mb::kExclamation, kCheckTitle);
  }
}

void Walls::ReadTablesAgain() {
  const int slot = CurrentWall();
  lib_ = ReadWallsLib(session_.ws);
  dirty_ = false;
  FillWallList();
  int index = WallList.items.empty() ? -1 : 0;
  for (int i = 0; i < static_cast<int>(WallList.items.size()); ++i) {
    if (Val(FieldBefore(WallList.items[i], kItemJoin)) == slot) index = i;
  }
  ShowWall(index);
}

void Walls::EditThickness() {
  const int slot = CurrentWall();
  const int row = WallLayerList.row;
  if (slot == 0 || row < 1 || TrimBlanks(WallLayerList.Cell(row, kLayerCol)).empty()) return;
  if (dirty_) {
    std::string text = "WALLS";
    switch (AskSaveChanges(*session_.dialogs, text)) {
      case Answer::kYes:
        Save();
        break;
      case Answer::kNo:
        break;
      default:
        return;
    }
    // Answering No drops every change not saved.
    ReadTablesAgain();
    if (CurrentWall() != slot) return;
    WallLayerList.row = std::min(row, WallLayerList.rows() - 1);
  }
  const int at = WallLayerList.row;
  const double layer = Val(WallLayerList.Cell(at, kLayerCol));
  if (!(layer >= 1 && layer <= kMaxLayers)) return;
  WallLayer& stored = lib_.layers[slot][static_cast<int>(layer)];
  const std::string thickness = AskThickness("Edit thickness", TrimBlanks(stored.thickness));
  if (thickness.empty()) return;
  // The edit is not counted as a change: it is kept by OK alone.
  stored.thickness = thickness;
  SetGridCellRaw(WallLayerList, at, kThickCol, thickness);
  ShowWall(WallList.list_index);
  WallLayerList.row = WallLayerList.row_sel = at;
}

void Walls::OpaqueMaterials() {
  OpaqueMtrl screen(session_);
  screen.Tag.clear();
  session_.dialogs->ShowModal(screen);
  if (!screen.written()) return;
  ReadMaterials();
  // A material of the wall shown may have new values: its layers and its
  // U-value are shown again.
  ShowWall(WallList.list_index);
}

void Walls::Save() {
  const Workspace& ws = session_.ws;
  if (!WriteWallsLib(ws, lib_)) {
    FailWrite(WallsPath(ws));
  }
  // The constructions enter every module's input in every case.
  MarkModulesStale(ws, "ALL", kAllModules);
  dirty_ = false;
}

void Walls::Ok() {
  OkAndClose(
      *this, [this] { return LayerCheck(); }, [this] { Save(); });
}

void Walls::Cancel() {
  CancelAskingToSave(
      *this, *session_.dialogs, dirty_, "WALLS", [this] { return LayerCheck(); },
      [this] { Save(); });
}

void Walls::Help() { ShowScreenHelp(session_, kWallsHelp); }

}  // namespace zelmo
