// ThermLoad, "Simulation": the cases of the project in a grid, where the
// user ticks which to prepare, which to run and with which modules, and the
// run itself.
#pragma once

#include <chrono>
#include <string>

#include "core/controls.h"

namespace zelmo {

struct Session;

class ThermLoad : public Form {
 public:
  explicit ThermLoad(Session& session);
  // The cases of CASES.LIB; the current case's row ticked throughout when
  // its THERMAL.INP is there, current and coloured.
  void Load() override;
  // While a run is on, closing asks first and then stops the run.
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
  // Ends the running module and its programs; the run stops as after a
  // failed module.
  void Stop();
  // The progress line once a second: the case, the module and its time.
  void Tick();
  bool running() const { return running_; }

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
  Button Command6{this, "Command6"};  // Stop
  Label Label2{this, "Label2"};       // the progress line

 private:
  Session& session_;
  void CellChanged(int row, int col);
  // The buttons of a screen that is running or waiting.
  void SetRunning(bool running);

  bool right_button_ = false;
  bool dirty_ = false;
  bool running_ = false;
  bool stop_requested_ = false;
  bool close_requested_ = false;
  std::string progress_;
  std::chrono::steady_clock::time_point module_started_;
};

}  // namespace zelmo
