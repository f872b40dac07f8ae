// The views of the screens: each builds the widgets of one screen model into
// a dialog, naming every widget after its control. The binder does the rest.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "core/controls.h"

namespace zelmo {
struct Session;
}

namespace zelmo::ui {

// Builds the widgets of `form` into `dialog`.
using ViewBuilder = std::function<void(Form& form, QDialog& dialog, Session& session)>;

void RegisterView(const std::string& form_name, ViewBuilder builder);
const ViewBuilder* FindView(const std::string& form_name);
// Registers every screen's view once.
void RegisterAllViews();

// The views, one per screen.
void BuildInpBox(Form& form, QDialog& dialog, Session& session);
void BuildResults(Form& form, QDialog& dialog, Session& session);
void BuildThermLoad(Form& form, QDialog& dialog, Session& session);
void BuildErrform(Form& form, QDialog& dialog, Session& session);
void BuildFluidAdv(Form& form, QDialog& dialog, Session& session);
void BuildForceVent(Form& form, QDialog& dialog, Session& session);
void BuildSurface(Form& form, QDialog& dialog, Session& session);
void BuildShapesPicture(Form& form, QDialog& dialog, Session& session);
void BuildVolumeSurfaces(Form& form, QDialog& dialog, Session& session);
void BuildSysInit(Form& form, QDialog& dialog, Session& session);
void BuildAbout(Form& form, QDialog& dialog, Session& session);
void BuildSupport(Form& form, QDialog& dialog, Session& session);
void BuildSite(Form& form, QDialog& dialog, Session& session);
void BuildGenPars(Form& form, QDialog& dialog, Session& session);
void BuildMoveClimaticFiles(Form& form, QDialog& dialog, Session& session);
void BuildNewProject(Form& form, QDialog& dialog, Session& session);
void BuildOpenProject(Form& form, QDialog& dialog, Session& session);
void BuildCopyProject(Form& form, QDialog& dialog, Session& session);
void BuildRenProject(Form& form, QDialog& dialog, Session& session);
void BuildDelProject(Form& form, QDialog& dialog, Session& session);
void BuildNewCase(Form& form, QDialog& dialog, Session& session);
void BuildOpenCase(Form& form, QDialog& dialog, Session& session);
void BuildCopyCase(Form& form, QDialog& dialog, Session& session);
void BuildRenCase(Form& form, QDialog& dialog, Session& session);
void BuildDelCase(Form& form, QDialog& dialog, Session& session);
void BuildGlassTypes(Form& form, QDialog& dialog, Session& session);
void BuildAddAngle(Form& form, QDialog& dialog, Session& session);
void BuildGases(Form& form, QDialog& dialog, Session& session);
void BuildAddgas(Form& form, QDialog& dialog, Session& session);
void BuildWindTypes(Form& form, QDialog& dialog, Session& session);
void BuildAddGaGl(Form& form, QDialog& dialog, Session& session);
void BuildOpaqueMtrl(Form& form, QDialog& dialog, Session& session);
void BuildAddOpaque(Form& form, QDialog& dialog, Session& session);
void BuildWalls(Form& form, QDialog& dialog, Session& session);
void BuildMoveIns(Form& form, QDialog& dialog, Session& session);
void BuildAddMoveIns(Form& form, QDialog& dialog, Session& session);
void BuildMISched(Form& form, QDialog& dialog, Session& session);
void BuildOut_put(Form& form, QDialog& dialog, Session& session);
void BuildHVAC(Form& form, QDialog& dialog, Session& session);
void BuildDailyPeriod(Form& form, QDialog& dialog, Session& session);
void BuildMonthlyPeriod(Form& form, QDialog& dialog, Session& session);
void BuildScheduleName(Form& form, QDialog& dialog, Session& session);
void BuildScheduleCopy(Form& form, QDialog& dialog, Session& session);
void BuildVolumeCopy(Form& form, QDialog& dialog, Session& session);
void BuildListOfBuildingElements(Form& form, QDialog& dialog, Session& session);
void BuildCv12TOv20(Form& form, QDialog& dialog, Session& session);

}  // namespace zelmo::ui
