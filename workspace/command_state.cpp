// The commands each operation on projects and cases leaves usable. Every
// screen of the two stores sets them itself after its operation; menu
// entries are switched directly, the panel's labels through
// SetButtonsForMenu.
#include <initializer_list>

#include "workspace/start_form.h"

namespace zelmo {

namespace {

void Set(StartForm& main, std::initializer_list<Control*> controls, bool enabled) {
  for (Control* control : controls) {
    if (control->kind() == ControlKind::kLabel) {
      main.SetButtonsForMenu(*control, enabled);
    } else {
      control->enabled = enabled;
    }
  }
}

}  // namespace

void StartForm::StateAfterNewProject() {
  Set(*this, {&M_OpenProject, &M_CopyProject, &M_DeleteProject, &M_RenameProject, &LPO, &LPC, &LPD},
      true);
  Set(*this, {&M_Case, &M_NewCase, &LCN, &LCO, &LCC, &LCD, &LCR}, true);
  Set(*this, {&M_OpenCase, &M_CopyCase, &M_DeleteCase, &M_RenameCase}, false);
  Set(*this, {&M_Library, &Om, &LW, &LWi, &LCu}, true);
  Set(*this, {&M_ThermalLoads, &M_Outsp_Calc, &M_Result}, true);
  // The panel's Simulate stays off until a case is opened; the menu's is on.
  Set(*this, {&ss, &RT, &RDL, &RC}, false);
  Set(*this,
      {&M_Comfort, &M_VComfort, &M_ViewOfBuilding, &M_LIstOfBuildíngElements, &MV, &LoBe,
       &M_Diagram},
      false);
  Set(*this, {&M_Model, &MBS, &MBG, &MBB, &MBF, &MBC, &MHS, &MHF}, false);
  Set(*this, {&M_Output, &OUtput}, false);
}

void StartForm::StateAfterOpenProject(bool cases_exist) {
  Set(*this, {&M_Case, &M_NewCase, &LCN, &LCO, &LCC, &LCD, &LCR}, true);
  Set(*this, {&M_Library, &Om, &LW, &LWi, &LCu}, true);
  Set(*this, {&M_Outsp_Calc, &M_ThermalLoads, &ss, &M_Result, &RT}, true);
  Set(*this,
      {&RDL, &RC, &M_Comfort, &M_VComfort, &M_ViewOfBuilding, &M_LIstOfBuildíngElements, &MV, &LoBe,
       &M_Diagram},
      false);
  Set(*this, {&M_Model, &MBS, &MBG, &MBB, &MBF, &MBC, &MHS, &MHF}, false);
  Set(*this, {&M_Output, &OUtput}, false);
  // Without CASES.LIB only New Case works in the Case menu.
  Set(*this, {&M_OpenCase, &M_CopyCase, &M_DeleteCase, &M_RenameCase}, cases_exist);
}

void StartForm::StateAfterCopyProject() {
  Set(*this, {&M_Case, &M_NewCase, &LCN, &LCO, &LCC, &LCD, &LCR}, true);
  Set(*this, {&M_Library, &Om, &LW, &LWi, &LCu}, true);
  Set(*this, {&M_Outsp_Calc, &M_ThermalLoads, &ss, &M_Result, &RT, &RDL, &RC}, true);
  Set(*this,
      {&M_Comfort, &M_VComfort, &M_ViewOfBuilding, &M_LIstOfBuildíngElements, &MV, &LoBe,
       &M_Diagram},
      false);
  Set(*this, {&M_Model, &MBS, &MBG, &MBB, &MBF, &MBC, &MHS, &MHF}, false);
  Set(*this, {&M_Output, &OUtput}, false);
}

void StartForm::StateAfterDeleteProject(bool current_deleted, bool list_empty) {
  if (current_deleted) {
    // The labels of these groups are left as they are.
    Set(*this, {&M_Case, &M_Library, &M_Model, &M_Output, &M_Result}, false);
    Set(*this, {&M_ThermalLoads}, true);
  }
  if (list_empty) {
    // Only New Project stays.
    Set(*this,
        {&M_OpenProject, &M_CopyProject, &M_DeleteProject, &M_RenameProject, &LPO, &LPC, &LPD},
        false);
    Set(*this,
        {&M_Case, &M_NewCase, &M_OpenCase, &M_CopyCase, &M_DeleteCase, &M_RenameCase, &LCN, &LCO,
         &LCC, &LCD, &LCR},
        false);
    Set(*this, {&M_Library, &Om, &LW, &LWi, &LCu}, false);
    Set(*this, {&M_Model, &MBS, &MBG, &MBB, &MBF, &MBC, &MHS, &MHF}, false);
    Set(*this, {&M_Output, &OUtput}, false);
    Set(*this, {&M_Outsp_Calc, &M_ThermalLoads, &ss}, false);
    Set(*this, {&M_Result, &RT, &RDL, &RC, &M_Comfort, &M_VComfort, &M_Diagram}, false);
    Set(*this, {&M_ViewOfBuilding, &M_LIstOfBuildíngElements, &MV, &LoBe}, false);
  }
}

void StartForm::StateAfterNewCase() {
  Set(*this,
      {&M_Case, &M_NewCase, &M_OpenCase, &M_CopyCase, &M_DeleteCase, &M_RenameCase, &LCN, &LCO,
       &LCC, &LCD, &LCR},
      true);
  Set(*this, {&M_Library, &Om, &LW, &LWi, &LCu}, true);
  Set(*this, {&M_Model, &MBS, &MBG, &MBB, &MBF, &MBC, &MHS, &MHF}, true);
  Set(*this, {&M_Output, &OUtput}, true);
  Set(*this, {&M_Outsp_Calc, &M_ThermalLoads, &ss}, true);
  Set(*this, {&M_Result, &RT, &RDL, &RC, &M_Comfort, &M_VComfort, &M_Diagram}, true);
  Set(*this, {&M_ViewOfBuilding, &M_LIstOfBuildíngElements, &MV, &LoBe}, true);
}

void StartForm::StateAfterOpenCase() {
  // As New Case, but Open Case and Rename Case are left as they are.
  Set(*this, {&M_Case, &M_NewCase, &M_CopyCase, &M_DeleteCase, &LCN, &LCO, &LCC, &LCD, &LCR}, true);
  Set(*this, {&M_Library, &Om, &LW, &LWi, &LCu}, true);
  Set(*this, {&M_Model, &MBS, &MBG, &MBB, &MBF, &MBC, &MHS, &MHF}, true);
  Set(*this, {&M_Output, &OUtput}, true);
  Set(*this, {&M_Outsp_Calc, &M_ThermalLoads, &ss}, true);
  Set(*this, {&M_Result, &RT, &RDL, &RC, &M_Comfort, &M_VComfort, &M_Diagram}, true);
  Set(*this, {&M_ViewOfBuilding, &M_LIstOfBuildíngElements, &MV, &LoBe}, true);
}

void StartForm::StateAfterDeleteCase(bool current_deleted, bool list_empty) {
  if (list_empty) {
    Set(*this, {&M_Model, &MBS, &MBG, &MBB, &MBF, &MBC, &MHS, &MHF}, false);
    Set(*this, {&M_Output, &OUtput}, false);
    // New Case stays.
    Set(*this, {&M_OpenCase, &M_CopyCase, &M_DeleteCase, &M_RenameCase}, false);
    Set(*this, {&MV, &LoBe, &RDL, &RC, &ss}, false);
    Set(*this, {&LCN, &LCO, &LCC, &LCD, &LCR, &RT}, true);
  }
  if (current_deleted) {
    Set(*this, {&M_Model, &MBS, &MBG, &MBB, &MBF, &MBC, &MHS, &MHF}, false);
    Set(*this, {&M_Output, &OUtput}, false);
  }
}

}  // namespace zelmo
