// Surface: the building elements of the current case. A list of named
// elements and the inputs of the one selected; nothing reaches SURFACE.INP
// until OK, or Yes in the save question of Cancel.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "building/surface_file.h"
#include "core/controls.h"

namespace zelmo {

struct Session;
struct Workspace;

class Surface : public Form {
 public:
  explicit Surface(Session& session);

  // Reads SURFACE.INP and the project's libraries. A damaged SURFACE.INP
  // throws FileError and the screen does not open.
  void Load() override;
  void QueryUnload() override { Cancel(); }

  // The rules of an element, over the inputs of the screen. All faults are
  // gathered in one box "Surface form check"; the first one takes the focus.
  bool CheckSurface();

  // Events.
  void SurfListClick();
  void ShapeClick();
  void FrontClick();
  void BackClick();
  void FrontLostFocus();
  void M_WallClick();
  void WindowOrCurtainClick(Control& list, int field);
  void H_WallClick();
  void Add();     // Command3D1
  void Delete();  // Command3D2
  void Copy();    // Command3D3
  void Insert();  // Command3D4
  void Rename();  // Command3D5
  void Assign();  // Command4
  void ExclClick();
  void Ok();                  // Command1
  void Cancel();              // Command2
  void Help();                // Command3
  void ShowShapes();          // QShapes
  void ShowVolumeSurfaces();  // CheckSurfaces

  // Writes one input into the current element's field (1 to 29).
  void StoreField(Control& input, int field);
  // Fills the inputs from the current element.
  void ShowElement();
  // The row of `list` whose number (left of the bar) is `number`; the empty
  // entry matches an empty number. No row: the fatal box, and the program ends.
  int ListPositionOf(Control& list, const std::string& number);

  const SurfaceTable& table() const { return table_; }
  SurfaceTable& table() { return table_; }

  // The screen's states.
  int CurrentElement = 0;
  bool Loading = false;
  bool Adding = false;
  bool Dirty = false;
  // Set by ListPositionOf after its fatal box: nothing more is done.
  bool fatal = false;
  // Ends the program after the fatal box; the platform's view sets it.
  std::function<void()> end_program;

  ListBox SurfList{this, "SurfList"};
  Button Command3D1{this, "Command3D1"};
  Button Command3D2{this, "Command3D2"};
  Button Command3D3{this, "Command3D3"};
  Button Command3D4{this, "Command3D4"};
  Button Command3D5{this, "Command3D5"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};
  Button CheckSurfaces{this, "CheckSurfaces"};

  Frame Frame3D1{this, "Frame3D1"};
  Label LabelShape{this, "LabelShape"};
  ComboBox Shape{this, "Shape"};
  Button QShapes{this, "QShapes"};
  Label LabelZenith{this, "LabelZenith"};
  TextBox Zenith{this, "Zenith"};
  Label UnitZenith{this, "UnitZenith"};
  Label LabelAzimuth{this, "LabelAzimuth"};
  TextBox Azimuth{this, "Azimuth"};
  Label UnitAzimuth{this, "UnitAzimuth"};
  Label LabelCorner{this, "LabelCorner"};
  Label LabelX{this, "LabelX"};
  TextBox X{this, "X"};
  Label LabelY{this, "LabelY"};
  TextBox Y{this, "Y"};
  Label LabelZ{this, "LabelZ"};
  TextBox Z{this, "Z"};
  Label LabelFront{this, "LabelFront"};
  Label LabelFrontVolume{this, "LabelFrontVolume"};
  ComboBox front{this, "front"};
  Label LabelBack{this, "LabelBack"};
  Label LabelBackVolume{this, "LabelBackVolume"};
  ComboBox back{this, "back"};
  Label LabelDimensions{this, "LabelDimensions"};
  Label LabelA{this, "LabelA"};
  TextBox A{this, "A"};
  Label LabelB{this, "LabelB"};
  TextBox B{this, "B"};
  Label LabelC{this, "LabelC"};
  TextBox C{this, "C"};
  Label LabelD{this, "LabelD"};
  TextBox D{this, "D"};
  Label LabelE{this, "LabelE"};
  TextBox E{this, "E"};
  Label LabelF{this, "LabelF"};
  TextBox F{this, "F"};

  Frame MainWallFrame{this, "MainWallFrame"};
  Label LabelMWall{this, "LabelMWall"};
  ComboBox M_Wall{this, "M_Wall"};
  Label LabelMAbsF{this, "LabelMAbsF"};
  TextBox M_AbsF{this, "M_AbsF"};
  Label LabelMAbsB{this, "LabelMAbsB"};
  TextBox M_AbsB{this, "M_AbsB"};
  Label LabelMEmmF{this, "LabelMEmmF"};
  TextBox M_EmmF{this, "M_EmmF"};
  Label LabelMEmmB{this, "LabelMEmmB"};
  TextBox M_EmmB{this, "M_EmmB"};
  Frame MainWinFrame{this, "MainWinFrame"};
  Label LabelMWind{this, "LabelMWind"};
  ComboBox M_Wind{this, "M_Wind"};
  Label LabelMMovIns{this, "LabelMMovIns"};
  ComboBox M_MovIns{this, "M_MovIns"};

  Frame HoleWallFrame{this, "HoleWallFrame"};
  Label LabelHWall{this, "LabelHWall"};
  ComboBox H_Wall{this, "H_Wall"};
  Label LabelHAbsF{this, "LabelHAbsF"};
  TextBox H_AbsF{this, "H_AbsF"};
  Label LabelHAbsB{this, "LabelHAbsB"};
  TextBox H_AbsB{this, "H_AbsB"};
  Label LabelHEmmF{this, "LabelHEmmF"};
  TextBox H_EmmF{this, "H_EmmF"};
  Label LabelHEmmB{this, "LabelHEmmB"};
  TextBox H_EmmB{this, "H_EmmB"};
  Frame HoleWinFrame{this, "HoleWinFrame"};
  Label LabelHWind{this, "LabelHWind"};
  ComboBox H_Wind{this, "H_Wind"};
  Label LabelHMovIns{this, "LabelHMovIns"};
  ComboBox H_MovIns{this, "H_MovIns"};

  Label LabelLeakage{this, "LabelLeakage"};
  TextBox Leakage{this, "Leakage"};
  Label UnitLeakage{this, "UnitLeakage"};
  Button Command4{this, "Command4"};
  CheckBox Excl{this, "Excl"};
  Label LabelExcl{this, "LabelExcl"};

 private:
  friend struct SurfaceParts;

  // One wall frame or window frame: its list, its inputs and their labels.
  struct WallFrame {
    Frame& frame;
    ComboBox& list;
    Label& list_label;
    std::vector<TextBox*> percents;
    std::vector<Label*> percent_labels;
    int field;  // the list's field; the percents follow it
  };
  struct WinFrame {
    Frame& frame;
    ComboBox& window;
    Label& window_label;
    ComboBox& curtain;
    Label& curtain_label;
    int field;  // the window's field; the curtain's is the next
  };

  // Tables and lists (surface_tables.cpp).
  void FillLibraryLists();
  void FillSurfList();
  void BlankInputs();
  void EnableInputs(bool enabled);
  void EnableByShape();
  void ApplyMainPair();
  void ApplyHolePair();
  void ApplyPair(WallFrame& wall, WinFrame& win, bool hole_possible);
  void SwitchWallFrame(WallFrame& wall, bool on, bool percents_on);
  void SwitchWinFrame(WinFrame& win, bool on, bool curtain_on);
  void ApplyFrontSide(bool ground_or_none_off);
  void ApplyLeakageMode(bool with_value);
  void ShowShadingLabels();
  void ShowRow(int row);
  void UpdateCountButtons();
  bool IsShadingScreen() const { return M_Wall.list_index == 1; }
  std::string FrontCode() const;
  std::string BackCode() const;
  std::vector<std::string>& Fields() { return table_.SurfData[CurrentElement]; }

  // Events (surface_events.cpp).
  std::string AskNewName(const std::string& prompt, const std::string& title);
  void TextInput(TextBox& input, int field);
  void Save();

  Session& session_;
  SurfaceTable table_;
  WallFrame main_wall_;
  WinFrame main_win_;
  WallFrame hole_wall_;
  WinFrame hole_win_;
};

// Screen of the outlines of the five shapes with their dimension letters.
class ShapesPicture : public Form {
 public:
  explicit ShapesPicture(const Workspace& ws);
  void Load() override;
  Picture Picture1{this, "Picture1"};

 private:
  const Workspace& ws_;
};

}  // namespace zelmo
