// Cv12TOv20, "Convert project from v1.2 to v2.0 of the ZELMO-QRN program":
// brings the files of a project made with version 1.2 up to date in place.
// SITE.INP gains the wind flag and the terrain, every building element of
// SURFACE.INP its leakage, every curtain of MOVEINS.LIB a name; FORCEVEN.INP
// and HVAC_Cal.Inp of the old form are dropped, and their screens make them
// again.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/controls.h"
#include "workspace/project_store.h"

namespace zelmo {

struct Session;
class TextReader;

// The new form of an old SITE.INP: its first line, the latitude, followed by
// the wind flag and the terrain "0". Nothing when the first line holds a TAB
// already, the mark of the new form.
std::optional<std::string> NewSiteBytes(TextReader& old);
// True when SURFACE.INP has the new form: blocks of a name and 29 field
// lines, each field line after a TAB. An empty file has no form.
bool IsNewSurfaceForm(TextReader& file);
// The new form of an old SURFACE.INP, whose blocks are a name and 28 field
// lines: each block gains the leakage, " 0" for an element with a volume on
// both sides and " 1" otherwise. `leakage_mode` is left at the last one.
std::string NewSurfaceBytes(TextReader& old, int16_t& leakage_mode);
// True when MOVEINS.LIB has the new form: a line of five fields or more, the
// name among them. Such a file is never named again.
bool IsNewMoveInsForm(TextReader& file);
// MOVEINS.LIB with a name, "Curtain type_" and the curtain's number, as the
// second field of every line.
std::string NewMoveInsBytes(TextReader& old);

// What converting one case folder takes: the new bytes of its files, or
// nothing for a file that stays.
struct CaseConversion {
  std::string folder;
  bool done_before = false;  // the case has the new form already
  std::optional<std::string> site;
  std::optional<std::string> surface;
};
// Reads the case's files and makes their new form; writes nothing. A file
// that cannot be opened is passed over; a damaged one throws FileError.
CaseConversion PlanCaseConversion(const std::string& folder, int16_t& leakage_mode);
// Writes the new files of a case, each through its "X" copy renamed over
// it, SITE.INP last: a case stopped half-way is taken up again by the next
// conversion. Throws FileError naming a file that could not be written or
// deleted.
void ConvertCase(const CaseConversion& conversion);

class Cv12TOv20 : public Form {
 public:
  explicit Cv12TOv20(Session& session);
  void Load() override;

  // Lists the cases of the chosen project.
  void ProjectClick();
  // Converts every case of the list, then the project's MOVEINS.LIB. A
  // project with nothing of the old form is left as it is, and says so.
  void Convert();
  void Help();

  Label Label1{this, "Label1"};
  ListBox EP{this, "EP"};
  Label Label2{this, "Label2"};
  ListBox EC{this, "EC"};
  Label Label3{this, "Label3"};
  ListBox CC{this, "CC"};
  Label Label4{this, "Label4"};
  ListBox NCC{this, "NCC"};
  Label Label5{this, "Label5"};
  Label TStatus{this, "TStatus"};
  Button C_Convert{this, "C_Convert"};
  Button C_Close{this, "C_Close"};
  Button Command1{this, "Command1"};

 private:
  Session& session_;
  std::vector<ProjectLine> projects_;
  std::string project_folder_;
};

}  // namespace zelmo
