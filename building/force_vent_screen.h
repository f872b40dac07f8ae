// ForceVent: the mechanical air flows between the volumes and between each
// volume and Outdoor (FORCEVEN.INP). Air must balance in every volume.
#pragma once

#include <string>
#include <vector>

#include "building/forcevent.h"
#include "core/controls.h"

namespace zelmo {

struct Session;

class ForceVent : public Form {
 public:
  explicit ForceVent(Session& session);

  // Reads the volumes, their pairs with Outdoor and the file; closes with a
  // message when there are fewer than two volumes.
  void Load() override;
  void QueryUnload() override { Cancel(); }

  // A key typed into the flow grid.
  void FlowKeyPress(int& key);
  // Checks, saves and closes.
  void Ok();
  // Asks about unsaved changes, then closes or stays.
  void Cancel();

  // Every flow a number from -20000 to 20000; the first fault is shown and
  // its cell made current.
  bool CheckNumbers();
  // Every volume balanced; the unbalanced ones are shown together.
  bool CheckBalance();
  // FORCEVEN.INP, then the last module of the case stale. Throws FileError
  // when the file cannot be written.
  void Save();

  bool dirty() const { return dirty_; }

  Grid Grid1{this, "Grid1"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};

 private:
  // The rows of the grid as from, to and flow.
  VentTable GridRows();

  Session& session_;
  std::vector<std::string> volume_list_;
  bool dirty_ = false;
};

}  // namespace zelmo
