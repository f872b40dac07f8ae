// Out_put, "Output Specification": the output type of a case, the quantities
// reported per volume, the one volume of the comfort calculation and the two
// data files. Its rows follow the volumes the elements define.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/controls.h"
#include "libraries/output_spec.h"

namespace zelmo {

struct Session;

class Out_put : public Form {
 public:
  // The controls of one volume, indexed by its running number from 0.
  struct VolumeRow {
    VolumeRow(Form* form, int index);
    Label Label3;
    // Check3D2 to Check3D7: temperature, heating, cooling, Sol(out), Sol(in),
    // Sol(abs).
    CheckBox Quantity[kOutputQuantities];
    OptionButton Check3D1;
  };

  explicit Out_put(Session& session);

  // A row per volume of the elements, then OUTPUT.INP over them; closes with
  // a message when the case has no volume.
  void Load() override;
  void QueryUnload() override { Cancel(); }

  void OptionClick(int index);
  void VolLoadClick();   // Check3D8
  void SurfTmpClick();   // Check3D9
  void QuantityClick();  // a box of a volume row
  // The comfort calculation moves to volume `row`.
  void ComfortClick(int row);

  // At most one comfort volume.
  bool CheckComfort();
  // OUTPUT.INP, then the last module of the case stale. Throws FileError
  // when the file cannot be written.
  void Save();
  void Ok();
  void Cancel();
  void Help();

  bool dirty() const { return dirty_; }
  const std::vector<std::string>& volumes() const { return volumes_; }
  VolumeRow& row(int index) { return *rows_[index]; }
  int OutputType() const;

  Frame Frame1{this, "Frame1"};
  OptionButton Option3D1[3]{{this, "Option3D1(0)"}, {this, "Option3D1(1)"}, {this, "Option3D1(2)"}};
  Frame Frame2{this, "Frame2"};
  Label Label2{this, "Label2"};
  Label Label4{this, "Label4"};
  Label Label10{this, "Label10"};
  Label Label5{this, "Label5"};
  Label Label6{this, "Label6"};
  Label Label7{this, "Label7"};
  Label Label8{this, "Label8"};
  Label Label9{this, "Label9"};
  Frame Frame3{this, "Frame3"};
  Label Label1{this, "Label1"};
  Frame Frame4{this, "Frame4"};
  CheckBox Check3D8{this, "Check3D8"};
  CheckBox Check3D9{this, "Check3D9"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  // The blocks and the write frame by the output type and the two boxes.
  void ApplyEnabling();
  void SetOutputBlock(bool on);
  void SetComfortBlock(bool on);

  Session& session_;
  std::vector<std::string> volumes_;
  std::vector<std::unique_ptr<VolumeRow>> rows_;
  bool loading_ = false;
  bool dirty_ = false;
};

}  // namespace zelmo
