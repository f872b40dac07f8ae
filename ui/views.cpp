#include "ui/views.h"

#include <map>

namespace zelmo::ui {

namespace {
std::map<std::string, ViewBuilder>& Registry() {
  static std::map<std::string, ViewBuilder> registry;
  return registry;
}
}  // namespace

void RegisterView(const std::string& form_name, ViewBuilder builder) {
  Registry()[form_name] = std::move(builder);
}

const ViewBuilder* FindView(const std::string& form_name) {
  auto it = Registry().find(form_name);
  return it == Registry().end() ? nullptr : &it->second;
}

void RegisterAllViews() {
  RegisterView("InpBox", BuildInpBox);
  RegisterView("Results", BuildResults);
  RegisterView("Errform", BuildErrform);
  RegisterView("FluidAdv", BuildFluidAdv);
  RegisterView("ForceVent", BuildForceVent);
  RegisterView("Surface", BuildSurface);
  RegisterView("ShapesPicture", BuildShapesPicture);
  RegisterView("VolumeSurfaces", BuildVolumeSurfaces);
  RegisterView("SysInit", BuildSysInit);
  RegisterView("About", BuildAbout);
  RegisterView("Support", BuildSupport);
  RegisterView("Site", BuildSite);
  RegisterView("GenPars", BuildGenPars);
  RegisterView("ThermLoad", BuildThermLoad);
  RegisterView("MoveClimaticFiles", BuildMoveClimaticFiles);
  RegisterView("NewProject", BuildNewProject);
  RegisterView("OpenProject", BuildOpenProject);
  RegisterView("CopyProject", BuildCopyProject);
  RegisterView("RenProject", BuildRenProject);
  RegisterView("DelProject", BuildDelProject);
  RegisterView("NewCase", BuildNewCase);
  RegisterView("OpenCase", BuildOpenCase);
  RegisterView("CopyCase", BuildCopyCase);
  RegisterView("RenCase", BuildRenCase);
  RegisterView("DelCase", BuildDelCase);
  RegisterView("Glass_types", BuildGlassTypes);
  RegisterView("AddAngle", BuildAddAngle);
  RegisterView("Gases", BuildGases);
  RegisterView("Addgas", BuildAddgas);
  RegisterView("Wind_Types", BuildWindTypes);
  RegisterView("AddGaGl", BuildAddGaGl);
  RegisterView("OpaqueMtrl", BuildOpaqueMtrl);
  RegisterView("AddOpaque", BuildAddOpaque);
  RegisterView("Walls", BuildWalls);
  RegisterView("MoveIns", BuildMoveIns);
  RegisterView("AddMoveIns", BuildAddMoveIns);
  RegisterView("MISched", BuildMISched);
  RegisterView("Out_put", BuildOut_put);
  RegisterView("HVAC", BuildHVAC);
  RegisterView("HVAC_Daily_Add", BuildDailyPeriod);
  RegisterView("HVAC_daily_edit", BuildDailyPeriod);
  RegisterView("HVAC_Monthly_Add", BuildMonthlyPeriod);
  RegisterView("HVAC_Monthly_edit", BuildMonthlyPeriod);
  RegisterView("HVAC_Schedule_Add", BuildScheduleName);
  RegisterView("Hvac_Schedule_Rename", BuildScheduleName);
  RegisterView("HVAC_Schedule_Copy", BuildScheduleCopy);
  RegisterView("Hvac_Volume_Copy", BuildVolumeCopy);
  RegisterView("ListOfBuildingElements", BuildListOfBuildingElements);
  RegisterView("Cv12TOv20", BuildCv12TOv20);
}

}  // namespace zelmo::ui
