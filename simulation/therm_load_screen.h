// ThermLoad, "Simulation": the cases of the project in a grid, where the
// user ticks which to prepare, which to run and with which modules, and the
// run itself.
#pragma once

#include <atomic>
#include <chrono>
#include <map>
#include <string>

#include "core/controls.h"
#include "simulation/run_plan.h"

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
  // The progress line once a second: the case, the module and its time, for
  // each case running.
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
  // Off: the rows run one after another, as they always have. On: up to
  // `side_by_side_jobs` cases at once, each with its modules in order.
  CheckBox Check1{this, "Check1"};
  int side_by_side_jobs = 2;

 private:
  Session& session_;
  void CellChanged(int row, int col);
  // The run over the ticked rows with several cases at once.
  RunEnd SimulateSideBySide();
  // The buttons of a screen that is running or waiting.
  void SetRunning(bool running);

  bool right_button_ = false;
  bool dirty_ = false;
  bool running_ = false;
  std::atomic<bool> stop_requested_ = false;
  // The running module of each row, and when it started.
  struct Running {
    std::string text;
    std::chrono::steady_clock::time_point started;
  };
  std::map<int, Running> running_modules_;
};

}  // namespace zelmo
