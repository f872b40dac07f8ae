// ThermLoad, "Simulation": the cases of the project in a grid, where the
// user ticks which to prepare, which to run and with which modules, and the
// run itself.
#pragma once

#include "core/controls.h"

namespace zelmo {

struct Session;

class ThermLoad : public Form {
 public:
  explicit ThermLoad(Session& session);
  // The cases of CASES.LIB; the current case's row ticked throughout when
  // its THERMAL.INP is there, current and coloured.
  void Load() override;
  void QueryUnload() override { Cancel(); }

  // A press of a mouse button on the grid: a right-button press makes the
  // click that follows do nothing.
  void GridMouseDown(int button);
  // A click on the grid's current cell: Prepare and Include case exclude
  // each other, a module cell toggles.
  void GridClick();
  void Fill();
  void Clear();
  // The run over the ticked rows; a clean run commits the flags and closes
  // the screen.
  void Simulate();
  void Cancel();

  // Mouse buttons as the grid reports them.
  static constexpr int kLeftButton = 1;
  static constexpr int kRightButton = 2;
  static constexpr int kMiddleButton = 4;
  static constexpr int kCurrentCaseColor = Rgb(0, 160, 250);

  Label Label1{this, "Label1"};
  Grid ThermGrid{this, "ThermGrid"};
  Button Command1{this, "Command1"};  // Simulate
  Button Command2{this, "Command2"};  // Cancel
  Button Command3{this, "Command3"};  // Help
  Button Command4{this, "Command4"};  // Fill
  Button Command5{this, "Command5"};  // Clear

 private:
  Session& session_;
  bool right_button_ = false;
  bool dirty_ = false;
};

}  // namespace zelmo
