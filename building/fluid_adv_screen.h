// FluidAdv: what fills each volume (FLUIDS.INP) and which pairs of volumes
// exchange heat by advection across an opening (ADVCONN.INP), both rebuilt
// against the present elements each time the screen opens.
#pragma once

#include <string>
#include <vector>

#include "core/controls.h"

namespace zelmo {

struct Session;

class FluidAdv : public Form {
 public:
  explicit FluidAdv(Session& session);

  // Reads the volumes and both files; with no volumes says so and closes.
  void Load() override;
  void QueryUnload() override { Cancel(); }

  // A click in a fluid column marks that fluid for the row.
  void FluidClicked();
  // A key typed into the connection grid.
  void AdvConnKeyPress(int& key);
  // Checks, saves and closes.
  void Ok();
  // Asks about unsaved changes, then closes or stays.
  void Cancel();

  // Distance and area of every connection; the first fault is shown and its
  // cell made current. True when all pass, or when there is no connection.
  bool CheckConnections();
  // ADVCONN.INP, then FLUIDS.INP, then every module of the case stale. A file
  // that cannot be written throws FileError and what follows it is not done.
  void Save();

  bool dirty() const { return dirty_; }

  Label Label1{this, "Label1"};
  Grid FluidList{this, "FluidList"};
  Label Label2{this, "Label2"};
  Grid AdvConnList{this, "AdvConnList"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};

 private:
  void FillFluidList();
  void FillAdvConnList();

  Session& session_;
  std::vector<std::string> volume_list_;
  bool dirty_ = false;
};

}  // namespace zelmo
