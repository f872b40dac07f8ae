// The Surface screen: what the user's actions do.
#include <cmath>

#include "building/surface_rules.h"
#include "building/surface_screen.h"
#include "building/volume_surfaces_screen.h"
#include "building/volumes.h"
#include "core/fields.h"
#include "core/form_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text_file.h"

namespace zelmo {

namespace {
constexpr int kNameLength = 10;
}  // namespace

void Surface::TextInput(TextBox& input, int field) {
  input.on_change = [this, &input, field] {
    if (Loading) return;
    Dirty = true;
    StoreField(input, field);
  };
  input.on_lost_focus = [this, &input, field] { StoreField(input, field); };
  input.on_key_press = [this, &input, field](int& key) {
    if (key == keys::kReturn) StoreField(input, field);
  };
  input.on_got_focus = [&input] {
    input.SetFocus();
    input.SelectAll();
  };
}

void Surface::SurfListClick() {
  if (Loading || SurfList.list_index < 0) return;
  if (!CheckSurface()) {
    SurfList.list_index = CurrentElement - 1;
    return;
  }
  ShowRow(SurfList.list_index);
}

void Surface::ShapeClick() {
  if (Loading) return;
  StoreField(Shape, 1);
  Dirty = true;
  ApplyHolePair();
  EnableByShape();
}

void Surface::FrontClick() {
  if (Loading) return;
  StoreField(front, 7);
  Dirty = true;
  ApplyLeakageMode(true);
  ApplyFrontSide(true);
}

void Surface::FrontLostFocus() {
  if (Loading || CurrentElement < 1) return;
  ApplyFrontSide(false);
}

void Surface::BackClick() {
  if (Loading) return;
  StoreField(back, 8);
  Dirty = true;
  ApplyLeakageMode(true);
}

void Surface::M_WallClick() {
  if (Loading) return;
  StoreField(M_Wall, 15);
  if (!Adding) {
    const char* standard[] = {"70", IsShadingScreen() ? "20" : "70", "87", "87"};
    for (int k = 0; k < 4; ++k) {
      main_wall_.percents[k]->text = standard[k];
      StoreField(*main_wall_.percents[k], 16 + k);
    }
  }
  ApplyMainPair();
  Dirty = true;
  ShowShadingLabels();
  // A shading screen stands in the open: it has no leakage.
  if (IsShadingScreen()) {
    Leakage.text = "0";
    StoreField(Leakage, 29);
  }
}

void Surface::H_WallClick() {
  if (Loading) return;
  StoreField(H_Wall, 22);
  ApplyHolePair();
  Dirty = true;
}

void Surface::WindowOrCurtainClick(Control& list, int field) {
  if (Loading) return;
  StoreField(list, field);
  if (field < 22) {
    ApplyMainPair();
  } else {
    ApplyHolePair();
  }
  Dirty = true;
}

std::string Surface::AskNewName(const std::string& prompt, const std::string& title) {
  std::string name = TrimBlanks(AskInput(session_, prompt, "", title, kNameLength, 0, 0, 0, false));
  if (name.empty()) return {};
  for (int slot = 1; slot <= table_.SurfCount; ++slot) {
    if (TrimBlanks(table_.SurfName[slot]) == name) {
      session_.dialogs->MsgBox("A surface with the same name already exists",
                               mb::kOkOnly + mb::kExclamation, "MESSAGE");
      return {};
    }
  }
  return name;
}

void Surface::Add() {
  if (table_.SurfCount >= kMaxElements) return;
  if (table_.SurfCount > 0 && !CheckSurface()) return;
  std::string name = AskNewName("Type name ", "Add building element ");
  if (name.empty()) return;
  Adding = true;
  const bool was_empty = table_.SurfCount == 0;
  if (was_empty) Shape.items.assign(kShapeNames.begin(), kShapeNames.end());
  const int slot = ++table_.SurfCount;
  table_.SurfName[slot] = name;
  ClearElement(table_, slot);
  UpdateCountButtons();
  if (was_empty) EnableInputs(true);
  FillSurfList();
  ShowRow(slot - 1);
  Dirty = true;
  EnableByShape();
  Adding = false;
}

void Surface::Copy() {
  if (table_.SurfCount < 1 || table_.SurfCount >= kMaxElements) return;
  if (!CheckSurface()) return;
  std::string name = AskNewName("Type name of target ", "Copy building element ");
  if (name.empty()) return;
  const int slot = ++table_.SurfCount;
  table_.SurfName[slot] = name;
  table_.SurfData[slot] = Fields();
  UpdateCountButtons();
  FillSurfList();
  ShowRow(slot - 1);
  Dirty = true;
}

void Surface::Insert() {
  if (table_.SurfCount < 1 || table_.SurfCount >= kMaxElements) return;
  if (!CheckSurface()) return;
  std::string name = AskNewName("Type name ", "Insert building element ");
  if (name.empty()) return;
  Adding = true;
  const int at = CurrentElement;
  for (int slot = table_.SurfCount; slot >= at; --slot) {
    table_.SurfName[slot + 1] = table_.SurfName[slot];
    table_.SurfData[slot + 1] = table_.SurfData[slot];
  }
  ++table_.SurfCount;
  table_.SurfName[at] = name;
  ClearElement(table_, at);
  UpdateCountButtons();
  FillSurfList();
  ShowRow(at - 1);
  Dirty = true;
  EnableByShape();
  Adding = false;
}

void Surface::Rename() {
  if (CurrentElement < 1) return;
  std::string name = AskNewName("Type name ", "Rename building element");
  if (name.empty()) return;
  table_.SurfName[CurrentElement] = name;
  FillSurfList();
  SurfList.list_index = CurrentElement - 1;
  caption = "Building element (" + name + ")";
  Dirty = true;
}

void Surface::Delete() {
  if (CurrentElement < 1) return;
  Answer answer = session_.dialogs->MsgBox(
      "Do you want to delete the surface " + SurfList.SelectedItem() + "  ?",
      mb::kYesNo + mb::kQuestion, "Delete building element");
  if (answer != Answer::kYes) return;
  const int last = table_.SurfCount;
  for (int slot = CurrentElement; slot < last; ++slot) {
    table_.SurfName[slot] = table_.SurfName[slot + 1];
    table_.SurfData[slot] = table_.SurfData[slot + 1];
  }
  table_.SurfName[last].clear();
  ClearElement(table_, last);
  table_.SurfCount = last - 1;
  UpdateCountButtons();
  if (table_.SurfCount > 0) {
    FillSurfList();
    ShowRow(0);
  } else {
    Loading = true;
    SurfList.Clear();
    CurrentElement = 0;
    BlankInputs();
    Shape.Clear();
    front.list_index = back.list_index = 0;
    EnableInputs(false);
    EnableByShape();
    caption = "Building element";
    Loading = false;
  }
  Dirty = true;
}

void Surface::Assign() {
  if (!IsLeakageFlow(Leakage.text)) {
    session_.dialogs->MsgBox(std::string(kLeakageFlowMessage) + "\r",
                             mb::kOkOnly + mb::kExclamation, kCheckTitle);
    Leakage.SetFocus();
    Leakage.SelectAll();
    return;
  }
  const std::string value = TrimBlanks(Leakage.text);
  const int remembered = SurfList.list_index;
  for (int slot = 1; slot <= table_.SurfCount; ++slot) {
    const auto& fields = table_.SurfData[slot];
    const double front_code = Val(fields[7]);
    const double back_code = Val(fields[8]);
    const double zenith = std::fabs(Val(fields[2]));
    // An element between two volumes has an area, not a flow.
    if (front_code > 0 && back_code > 0) continue;
    // A floor or a roof on the ground, when floors are left out.
    if (Excl.value == 1 && front_code != 0 && (zenith == 0 || zenith == 180)) continue;
    table_.SurfData[slot][29] = value;
  }
  if (remembered >= 0) ShowRow(remembered);
  Dirty = true;
}

void Surface::ExclClick() {
  LabelExcl.caption =
      Excl.value == 1 ? "Assign value for leakage flow to all building elements excluding floors"
                      : "Assign value for leakage flow to all building elements including floors";
}

void Surface::Save() {
  if (!WriteSurfaces(session_.ws, table_)) {
    throw FileError(PathOnDisk(JoinPath(session_.ws.CasePath, kSurfaceFile)), 0,
                    "The building elements could not be written");
  }
}

void Surface::Ok() {
  OkAndClose(
      *this, [this] { return CheckSurface(); }, [this] { Save(); });
}

void Surface::Cancel() {
  CancelAskingToSave(
      *this, *session_.dialogs, Dirty, "Surfaces", [this] { return CheckSurface(); },
      [this] { Save(); });
}

void Surface::Help() {
  if (session_.desktop) session_.desktop->ShowHelp(session_.ws.HelpFile, 12110);
}

void Surface::ShowShapes() {
  ShapesPicture picture(session_.ws);
  session_.dialogs->ShowModal(picture);
}

void Surface::ShowVolumeSurfaces() {
  VolumeSurfaces screen(session_, CountFacings(table_));
  session_.dialogs->ShowModal(screen);
}

ShapesPicture::ShapesPicture(const Workspace& ws) : Form("ShapesPicture"), ws_(ws) {
  caption = "Shape index";
  width = 13500;
  height = 3450;
}

void ShapesPicture::Load() { CenterForm(*this, ws_); }

}  // namespace zelmo
