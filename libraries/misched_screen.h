// MISched, "Interior curtain schedule": for each month, whether the curtains
// of the case are drawn at night, by day or by an hourly profile.
#pragma once

#include <string>

#include "core/controls.h"
#include "libraries/misched.h"

namespace zelmo {

struct Session;

class MISched : public Form {
 public:
  explicit MISched(Session& session);

  // The schedule, the twelve months, month 1 shown.
  void Load() override;
  void QueryUnload() override { Cancel(); }

  // Shows the month of `MonthList`: its option and its hours.
  void MonthClick();
  // Option `index` becomes the month's mode.
  void OptionClick(int index);
  // Hour box `hour` (0 to 23) into the month's mask.
  void HourClick(int hour);
  void Fill();
  void ClearHours();
  // Copies mode and hours of the shown month to one month or all others.
  void CopyMonth();
  // MISCHED.INP, then the fifth and sixth modules of the case stale. Throws
  // FileError when the file cannot be written.
  void Save();
  void Ok();
  void Cancel();
  void Help();

  bool dirty() const { return dirty_; }
  const MISchedule& months() const { return months_; }

  Label Label1{this, "Label1"};
  ListBox MonthList{this, "MonthList"};
  OptionButton Option3D1[3]{{this, "Option3D1(0)"}, {this, "Option3D1(1)"}, {this, "Option3D1(2)"}};
  Frame Frame1{this, "Frame1"};
  Label Label2{this, "Label2"};
  CheckBox Check3D1[kMaskHours]{
      {this, "Check3D1(0)"},  {this, "Check3D1(1)"},  {this, "Check3D1(2)"},
      {this, "Check3D1(3)"},  {this, "Check3D1(4)"},  {this, "Check3D1(5)"},
      {this, "Check3D1(6)"},  {this, "Check3D1(7)"},  {this, "Check3D1(8)"},
      {this, "Check3D1(9)"},  {this, "Check3D1(10)"}, {this, "Check3D1(11)"},
      {this, "Check3D1(12)"}, {this, "Check3D1(13)"}, {this, "Check3D1(14)"},
      {this, "Check3D1(15)"}, {this, "Check3D1(16)"}, {this, "Check3D1(17)"},
      {this, "Check3D1(18)"}, {this, "Check3D1(19)"}, {this, "Check3D1(20)"},
      {this, "Check3D1(21)"}, {this, "Check3D1(22)"}, {this, "Check3D1(23)"}};
  Button Command3D5{this, "Command3D5"};
  Button Command3D4{this, "Command3D4"};
  Button Command3D3{this, "Command3D3"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  // The hours and their buttons follow the hourly mode.
  void EnableHours(bool hourly);
  int ShownIndex() const;
  MonthSchedule& Shown() { return months_[ShownIndex()]; }

  Session& session_;
  MISchedule months_;
  bool dirty_ = false;
};

}  // namespace zelmo
