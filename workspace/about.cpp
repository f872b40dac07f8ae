#include "workspace/about.h"

#include "core/form_helpers.h"
#include "workspace/startup.h"

namespace zelmo {

About::About(Session& session) : Form("About"), session_(session) {
  caption = "About Zelmo-QRN";
  width = 6600;
  height = 3600;
  Label1.caption = "ZELMO-QRN";
  Label2.caption = kVersionText;
  Label3.caption =
      "Dynamic thermal simulation of buildings.\r"
      "Describe a building as a project with cases, keep the libraries of\r"
      "materials, walls, glass, gases, window types and curtains, and run\r"
      "the calculation modules on the cases.";
  Command1.caption = "&Close";
  Command1.on_click = [this] { Unload(); };
  default_button = "Command1";
  cancel_button = "Command1";
}

void About::Load() { CenterForm(*this, session_.ws); }

Support::Support(Session& session) : Form("Support"), session_(session) {
  caption = "Support";
  width = 6600;
  height = 3000;
  Label1.caption = "ZELMO-QRN support";
  Label2.caption =
      "Questions on the program, its installation and its calculation\r"
      "modules are answered by the supplier of your ZELMO-QRN licence.\r"
      "Please give the version shown under Info / About Zelmo-QRN\r"
      "and, for a failed simulation, the error text and the case.";
  Command1.caption = "&Close";
  Command1.on_click = [this] { Unload(); };
  default_button = "Command1";
  cancel_button = "Command1";
}

void Support::Load() { CenterForm(*this, session_.ws); }

}  // namespace zelmo
