#include <algorithm>

#include "building/volume_surfaces_screen.h"
#include "core/form_helpers.h"
#include "core/session.h"

namespace zelmo {

VolumeSurfaces::VolumeSurfaces(Session& session, const Facings& facings)
    : Form("VolumeSurfaces"), session_(session), facings_(facings) {
  caption = "Number of surfaces facing a volume";
  Label1.caption = "Number of surfaces facing a volume";
  Command1.caption = "Cancel";
  cancel_button = "Command1";
  width = 3600;
  height = 3900;
  Grid1.SetCols(2);
  Grid1.col_widths = {800, 900};
  Command1.on_click = [this] { Unload(); };
}

void VolumeSurfaces::Load() {
  CenterForm(*this, session_.ws);
  // The header, Ground and Outdoors at the least; a volume beyond 8 has no
  // count to show.
  const int highest = std::min<int>(facings_.FacingMax, 8);
  Grid1.SetRows(std::max(highest + 3, 3));
  Grid1.Cell(0, 0) = "Volume";
  Grid1.Cell(0, 1) = "Number";
  Grid1.Cell(1, 0) = "Ground";
  Grid1.Cell(2, 0) = "Outdoors";
  for (int code = 1; code <= highest; ++code) Grid1.Cell(code + 2, 0) = std::to_string(code);
  for (int row = 1; row < Grid1.rows(); ++row) {
    Grid1.Cell(row, 1) = std::to_string(facings_.FacingCount[row]);
  }
  Grid1.row = 1;
}

}  // namespace zelmo
