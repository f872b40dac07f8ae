// The Surface screen: its lists, the showing and storing of an element and
// the enabling of its inputs.
#include <cstdlib>

#include "building/surface_rules.h"
#include "building/surface_screen.h"
#include "core/fields.h"
#include "core/form_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

constexpr const char* kWallStandard[] = {"70", "70", "87", "87"};
constexpr int kLibraryNumberWidth = 3;

// A list row of a numbered record: the number 3 wide, "| ", the name.
std::string NumberedRow(const std::string& number, const std::string& name) {
  return PadField(number, kLibraryNumberWidth, "V") + "| " + name;
}

// The header lines of a library file: its number and its name. Lines that
// start with a TAB are layers of the record above.
void AddLibraryRows(const std::string& path, std::vector<Control*> lists) {
  auto lines = ReadAllLines(path);
  if (!lines) return;
  for (const auto& line : *lines) {
    if (line.empty() || line[0] == '\t') continue;
    std::string number = TrimBlanks(FieldBefore(line, kTab));
    std::string name = TrimBlanks(NthFieldBefore(line + kTab, kTab, 2));
    if (number.empty()) continue;
    // A number past any library's size stays as it is written.
    const double value = Val(number);
    if (value > -1e9 && value < 1e9) number = std::to_string(static_cast<long>(value));
    for (Control* list : lists) list->AddItem(NumberedRow(number, name));
  }
}

// The number of a list row: the text left of its bar, trimmed. A wall
// numbered 100 fills the three places and has no blank before its bar.
std::string RowNumber(const Control& list) {
  if (list.list_index <= 0) return {};
  return TrimBlanks(FieldBefore(list.SelectedItem(), "|"));
}

}  // namespace

Surface::Surface(Session& session)
    : Form("Surface"),
      session_(session),
      main_wall_{MainWallFrame,
                 M_Wall,
                 LabelMWall,
                 {&M_AbsF, &M_AbsB, &M_EmmF, &M_EmmB},
                 {&LabelMAbsF, &LabelMAbsB, &LabelMEmmF, &LabelMEmmB},
                 15},
      main_win_{MainWinFrame, M_Wind, LabelMWind, M_MovIns, LabelMMovIns, 20},
      hole_wall_{HoleWallFrame,
                 H_Wall,
                 LabelHWall,
                 {&H_AbsF, &H_AbsB, &H_EmmF, &H_EmmB},
                 {&LabelHAbsF, &LabelHAbsB, &LabelHEmmF, &LabelHEmmB},
                 22},
      hole_win_{HoleWinFrame, H_Wind, LabelHWind, H_MovIns, LabelHMovIns, 27} {
  caption = "Building element";
  width = 14200;
  height = 9000;
  help_context = 12110;
  cancel_button = "Command2";

  Command3D1.caption = "&Add";
  Command3D2.caption = "&Delete";
  Command3D3.caption = "Co&py";
  Command3D4.caption = "&Insert";
  Command3D5.caption = "&Rename";
  Command1.caption = "&OK";
  Command2.caption = "&Cancel";
  Command3.caption = "&Help";
  CheckSurfaces.caption = "&Surfaces";
  CheckSurfaces.tool_tip = "Show number of surfaces facing each volume ";
  QShapes.caption = "?";

  LabelShape.caption = "Shape index:";
  LabelZenith.caption = "Zenith:";
  LabelAzimuth.caption = "Azimuth:";
  UnitZenith.caption = UnitAzimuth.caption = Cp1252FromUtf8("°");
  LabelCorner.caption = "Lower left corner";
  LabelX.caption = "X";
  LabelY.caption = "Y";
  LabelZ.caption = "Z";
  LabelFront.caption = "Front facing ";
  LabelBack.caption = "Back facing";
  LabelFrontVolume.caption = LabelBackVolume.caption = "Volume :";
  LabelDimensions.caption = "Dimensions (m):";
  LabelA.caption = "A";
  LabelB.caption = "B";
  LabelC.caption = "C";
  LabelD.caption = "D";
  LabelE.caption = "E";
  LabelF.caption = "F";

  MainWallFrame.caption = "Main wall ( if opaque )";
  MainWinFrame.caption = "Main wall ( if transparent )";
  HoleWallFrame.caption = "The hole ( if opaque )";
  HoleWinFrame.caption = "The hole ( if transparent )";
  LabelMWall.caption = LabelHWall.caption = "Construction type:";
  LabelMAbsF.caption = LabelHAbsF.caption = "Absorptance front:";
  LabelMAbsB.caption = LabelHAbsB.caption = " %  back:";
  LabelMEmmF.caption = LabelHEmmF.caption = "Emittance  front:";
  LabelMEmmB.caption = LabelHEmmB.caption = " %  back:";
  LabelMWind.caption = LabelHWind.caption = "Window type:";
  LabelMMovIns.caption = LabelHMovIns.caption = "Curtain type:";

  LabelLeakage.caption = "Leakage flow at dP = 50 Pa";
  UnitLeakage.caption = "l/sm2";
  Command4.caption = "Assign";

  front.items = {"", "Ground", "Outdoor"};
  back.items = {"", "Outdoor"};
  for (int v = 1; v <= 8; ++v) {
    front.AddItem("Volume " + std::to_string(v));
    back.AddItem("Volume " + std::to_string(v));
  }

  SurfList.on_click = [this] { SurfListClick(); };
  Shape.on_click = [this] { ShapeClick(); };
  front.on_click = [this] { FrontClick(); };
  front.on_lost_focus = [this] { FrontLostFocus(); };
  front.on_key_press = [this](int& key) {
    if (key == keys::kReturn) FrontLostFocus();
  };
  back.on_click = [this] { BackClick(); };
  M_Wall.on_click = [this] { M_WallClick(); };
  H_Wall.on_click = [this] { H_WallClick(); };
  M_Wind.on_click = [this] { WindowOrCurtainClick(M_Wind, 20); };
  M_MovIns.on_click = [this] { WindowOrCurtainClick(M_MovIns, 21); };
  H_Wind.on_click = [this] { WindowOrCurtainClick(H_Wind, 27); };
  H_MovIns.on_click = [this] { WindowOrCurtainClick(H_MovIns, 28); };
  TextInput(Zenith, 2);
  TextInput(Azimuth, 3);
  TextInput(X, 4);
  TextInput(Y, 5);
  TextInput(Z, 6);
  TextBox* dims[] = {&A, &B, &C, &D, &E, &F};
  for (int k = 0; k < 6; ++k) TextInput(*dims[k], 9 + k);
  for (int k = 0; k < 4; ++k) {
    TextInput(*main_wall_.percents[k], 16 + k);
    TextInput(*hole_wall_.percents[k], 23 + k);
  }
  TextInput(Leakage, 29);
  Command3D1.on_click = [this] { Add(); };
  Command3D2.on_click = [this] { Delete(); };
  Command3D3.on_click = [this] { Copy(); };
  Command3D4.on_click = [this] { Insert(); };
  Command3D5.on_click = [this] { Rename(); };
  Command4.on_click = [this] { Assign(); };
  Excl.on_click = [this] { ExclClick(); };
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
  Command3.on_click = [this] { Help(); };
  QShapes.on_click = [this] { ShowShapes(); };
  CheckSurfaces.on_click = [this] { ShowVolumeSurfaces(); };
}

void Surface::Load() {
  CenterForm(*this, session_.ws);
  ReadSurfaces(session_.ws, table_);
  // Gaps left by empty name lines close up here as they would on saving,
  // so that a row of the list is always the slot below it.
  int count = 0;
  for (int slot = 1; slot <= table_.SurfCount; ++slot) {
    if (TrimBlanks(table_.SurfName[slot]).empty()) continue;
    ++count;
    if (count == slot) continue;
    table_.SurfName[count] = table_.SurfName[slot];
    table_.SurfData[count] = table_.SurfData[slot];
    table_.SurfName[slot].clear();
    ClearElement(table_, slot);
  }
  table_.SurfCount = count;

  Loading = true;
  Shape.items.assign(kShapeNames.begin(), kShapeNames.end());
  FillLibraryLists();
  FillSurfList();
  UpdateCountButtons();
  if (table_.SurfCount == 0) {
    CurrentElement = 0;
    BlankInputs();
    Shape.Clear();
    front.list_index = back.list_index = 0;
    EnableInputs(false);
  } else {
    EnableInputs(true);
    ShowRow(0);
    if (fatal) return;
  }
  Loading = true;
  EnableByShape();
  Loading = false;
  Excl.value = 1;
  ExclClick();
  ApplyLeakageMode(false);
  Dirty = false;
}

void Surface::FillLibraryLists() {
  const std::string& project = session_.ws.ProjectPath;
  for (ComboBox* list : {&M_Wall, &H_Wall, &M_Wind, &H_Wind, &M_MovIns, &H_MovIns}) {
    list->items = {""};
  }
  M_Wall.AddItem("0  | Shading screen");
  AddLibraryRows(JoinPath(project, "WALLS.LIB"), {&M_Wall, &H_Wall});
  AddLibraryRows(JoinPath(project, "WNDTP.LIB"), {&M_Wind, &H_Wind});
  AddLibraryRows(JoinPath(project, "MOVEINS.LIB"), {&M_MovIns, &H_MovIns});
}

void Surface::FillSurfList() {
  SurfList.items.clear();
  for (int slot = 1; slot <= table_.SurfCount; ++slot) {
    SurfList.AddItem(NumberedRow(std::to_string(slot), table_.SurfName[slot]));
  }
}

void Surface::UpdateCountButtons() {
  const int count = table_.SurfCount;
  Command3D1.enabled = count < kMaxElements;
  Command3D3.enabled = Command3D4.enabled = count > 0 && count < kMaxElements;
  Command3D2.enabled = Command3D5.enabled = count > 0;
}

std::string Surface::FrontCode() const {
  return front.list_index <= 0 ? std::string() : std::to_string(front.list_index - 2);
}

std::string Surface::BackCode() const {
  return back.list_index <= 0 ? std::string() : std::to_string(back.list_index - 1);
}

void Surface::StoreField(Control& input, int field) {
  if (Loading || Adding || CurrentElement < 1) return;
  auto& fields = Fields();
  switch (field) {
    case 1:
      fields[1] = input.list_index < 0 ? std::string() : std::to_string(input.list_index);
      break;
    case 7:
      fields[7] = FrontCode();
      break;
    case 8:
      fields[8] = BackCode();
      break;
    case 15:
    case 21:
    case 22:
    case 28:
      fields[field] = RowNumber(input);
      break;
    case 20:
    case 27:
      fields[field] = RowNumber(input);
      // No window, no curtain.
      if (fields[field].empty()) {
        fields[field + 1].clear();
        (field == 20 ? M_MovIns : H_MovIns).list_index = 0;
      }
      break;
    default:
      fields[field] = TrimBlanks(input.text);
  }
}

int Surface::ListPositionOf(Control& list, const std::string& number) {
  const std::string wanted = TrimBlanks(number);
  for (int row = 0; row < static_cast<int>(list.items.size()); ++row) {
    std::string item_number =
        row == 0 ? std::string() : TrimBlanks(FieldBefore(list.items[row], "|"));
    if (item_number == wanted) return row;
  }
  session_.dialogs->MsgBox("Error in GetListIndex ", mb::kOkOnly + mb::kCritical, "FATAL ERROR");
  fatal = true;
  Unload();
  if (end_program) end_program();
  return 0;
}

void Surface::ShowElement() {
  const auto& fields = Fields();
  // A shape beyond the list, however large, shows no shape.
  const double shape = Val(fields[1]);
  Shape.list_index =
      shape >= 0 && shape < static_cast<double>(Shape.items.size()) ? static_cast<int>(shape) : -1;
  auto or_default = [](const std::string& text, const char* fallback) {
    return TrimBlanks(text).empty() ? std::string(fallback) : text;
  };
  Zenith.text = or_default(fields[2], "0");
  Azimuth.text = or_default(fields[3], "0");
  X.text = fields[4];
  Y.text = fields[5];
  Z.text = fields[6];
  TextBox* dims[] = {&A, &B, &C, &D, &E, &F};
  for (int k = 0; k < 6; ++k) dims[k]->text = fields[9 + k];

  struct ListField {
    ComboBox& list;
    int field;
  };
  for (ListField lf : {ListField{M_Wall, 15}, ListField{M_Wind, 20}, ListField{M_MovIns, 21},
                       ListField{H_Wall, 22}, ListField{H_Wind, 27}, ListField{H_MovIns, 28}}) {
    lf.list.list_index = ListPositionOf(lf.list, fields[lf.field]);
    if (fatal) return;
  }
  M_AbsF.text = or_default(fields[16], "70");
  M_AbsB.text = or_default(fields[17], IsShadingScreen() ? "20" : "70");
  M_EmmF.text = or_default(fields[18], "90");
  M_EmmB.text = or_default(fields[19], "90");
  H_AbsF.text = or_default(fields[23], "20");
  H_AbsB.text = or_default(fields[24], "20");
  H_EmmF.text = or_default(fields[25], "90");
  H_EmmB.text = or_default(fields[26], "90");
  Leakage.text = fields[29];
  ShowShadingLabels();

  auto position = [](const std::string& code, int offset, int items) {
    std::string text = TrimBlanks(code);
    if (text.empty() || !IsSignedNumberText(text)) return 0;
    double index = Val(text) + offset;
    return index >= 1 && index < items ? static_cast<int>(index) : 0;
  };
  front.list_index = position(fields[7], 2, static_cast<int>(front.items.size()));
  back.list_index = position(fields[8], 1, static_cast<int>(back.items.size()));
  ApplyFrontSide(true);
  ApplyLeakageMode(false);
}

void Surface::ShowShadingLabels() {
  const bool shading = IsShadingScreen();
  LabelMAbsF.caption = shading ? "Absorptance:" : "Absorptance front:";
  LabelMAbsB.caption = shading ? " % Trans:" : " %  back:";
}

void Surface::ShowRow(int row) {
  Loading = true;
  const bool was_dirty = Dirty;
  CurrentElement = row + 1;
  SurfList.list_index = row;
  ApplyMainPair();
  ApplyHolePair();
  BlankInputs();
  ShowElement();
  if (fatal) return;
  EnableByShape();
  caption = "Building element (" + table_.SurfName[CurrentElement] + ")";
  Dirty = was_dirty;
  Loading = false;
}

void Surface::BlankInputs() {
  for (TextBox* input : {&Zenith, &Azimuth, &A, &B, &C, &D, &E, &F}) input->text.clear();
  for (TextBox* input : {&X, &Y, &Z, &Leakage}) input->text = "0";
  for (TextBox* input : {&M_AbsF, &M_AbsB, &H_AbsF, &H_AbsB}) input->text = "70";
  for (TextBox* input : {&M_EmmF, &M_EmmB, &H_EmmF, &H_EmmB}) input->text = "87";
}

void Surface::EnableInputs(bool enabled) {
  for (Control* control : controls()) {
    if (control == &SurfList || control->kind() == ControlKind::kButton) continue;
    control->enabled = enabled;
  }
  QShapes.enabled = Command4.enabled = enabled;
  if (!enabled) {
    for (ComboBox* list : {&M_Wall, &H_Wall, &M_Wind, &H_Wind, &M_MovIns, &H_MovIns}) {
      list->list_index = -1;
    }
  }
}

void Surface::EnableByShape() {
  const auto used = DimensionsOfShape(Shape.list_index);
  TextBox* dims[] = {&A, &B, &C, &D, &E, &F};
  Label* labels[] = {&LabelA, &LabelB, &LabelC, &LabelD, &LabelE, &LabelF};
  for (int k = 0; k < 6; ++k) {
    dims[k]->enabled = used[k] && Frame3D1.enabled;
    labels[k]->enabled = dims[k]->enabled;
  }
}

void Surface::ApplyMainPair() { ApplyPair(main_wall_, main_win_, true); }

void Surface::ApplyHolePair() {
  ApplyPair(hole_wall_, hole_win_, TrimBlanks(Fields()[1]) == std::to_string(kShapeWithHole));
}

// An element is opaque or transparent, never both: the frame of the choice
// made stays on and the other is switched off and cleared.
void Surface::ApplyPair(WallFrame& wall, WinFrame& win, bool hole_possible) {
  if (CurrentElement < 1) return;
  if (!hole_possible) {
    SwitchWallFrame(wall, false, false);
    SwitchWinFrame(win, false, false);
  } else if (!TrimBlanks(Fields()[wall.field]).empty()) {
    SwitchWallFrame(wall, true, true);
    SwitchWinFrame(win, false, false);
  } else if (!TrimBlanks(Fields()[win.field]).empty()) {
    SwitchWallFrame(wall, false, false);
    SwitchWinFrame(win, true, true);
  } else {
    SwitchWallFrame(wall, true, false);
    SwitchWinFrame(win, true, false);
  }
  ApplyFrontSide(true);
}

void Surface::SwitchWallFrame(WallFrame& wall, bool on, bool percents_on) {
  wall.frame.enabled = on;
  wall.list.enabled = wall.list_label.enabled = on;
  if (!on) {
    wall.list.list_index = 0;
    StoreField(wall.list, wall.field);
    for (int k = 0; k < 4; ++k) {
      wall.percents[k]->text = kWallStandard[k];
      StoreField(*wall.percents[k], wall.field + 1 + k);
    }
  }
  for (int k = 0; k < 4; ++k) {
    wall.percents[k]->enabled = wall.percent_labels[k]->enabled = on && percents_on;
  }
}

void Surface::SwitchWinFrame(WinFrame& win, bool on, bool curtain_on) {
  win.frame.enabled = on;
  win.window.enabled = win.window_label.enabled = on;
  win.curtain.enabled = win.curtain_label.enabled = on && curtain_on;
  if (!on) {
    win.window.list_index = 0;
    StoreField(win.window, win.field);
    win.curtain.list_index = 0;
    StoreField(win.curtain, win.field + 1);
  }
}

// The front inputs of a side that faces Ground (or nothing) are off; the
// others follow their labels, which carry the state of their frame.
void Surface::ApplyFrontSide(bool empty_is_ground) {
  const std::string code = FrontCode();
  const bool off = code == "-1" || (empty_is_ground && code.empty());
  std::pair<TextBox*, Label*> pairs[] = {{&M_AbsF, &LabelMAbsF},
                                         {&M_EmmF, &LabelMEmmF},
                                         {&H_AbsF, &LabelHAbsF},
                                         {&H_EmmF, &LabelHEmmF}};
  for (auto& [input, label] : pairs) input->enabled = !off && label->enabled;
}

void Surface::ApplyLeakageMode(bool with_value) {
  LeakageRow row = LeakageFor(FrontCode(), BackCode());
  session_.ws.LeakageMode = row.mode;
  LabelLeakage.caption = row.label;
  UnitLeakage.caption = row.unit;
  Leakage.visible = LabelLeakage.visible = UnitLeakage.visible = row.shown;
  Command4.visible = Excl.visible = LabelExcl.visible = row.mode == 1;
  if (with_value) {
    Leakage.text = row.value;
    StoreField(Leakage, 29);
  }
}

}  // namespace zelmo
