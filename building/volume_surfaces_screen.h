// VolumeSurfaces: how many element sides face Ground, Outdoors and each
// volume. Nothing can be edited.
#pragma once

#include "building/volumes.h"
#include "core/controls.h"

namespace zelmo {

struct Session;

class VolumeSurfaces : public Form {
 public:
  VolumeSurfaces(Session& session, const Facings& facings);
  void Load() override;

  Label Label1{this, "Label1"};
  Grid Grid1{this, "Grid"};
  Button Command1{this, "Command1"};

 private:
  Session& session_;
  Facings facings_;
};

}  // namespace zelmo
