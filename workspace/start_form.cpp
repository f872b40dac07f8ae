#include "workspace/start_form.h"

#include "core/text_file.h"
#include "workspace/about.h"
#include "workspace/startup.h"
#include "workspace/sysinit.h"

namespace zelmo {

namespace {

inline constexpr int kEnabledBlue = Rgb(0, 0, 200);

// Where the climate files of the calculation are offered for download.
inline constexpr char kClimateDataPage[] = "https://climate.onebuilding.org/";

void Menu(MenuItem& item, const char* caption, bool enabled = true) {
  item.caption = caption;
  item.enabled = enabled;
}

void PanelLabel(Label& label, const char* caption, const char* tool_tip) {
  label.caption = caption;
  label.tool_tip = tool_tip;
  label.enabled = false;
}

// A label of the panel is a short cut for its menu entry: while the label is
// enabled it runs whatever the entry does at the moment of the click.
void Forward(Label& label, MenuItem& entry) {
  label.on_click = [&label, &entry] {
    if (label.enabled && entry.on_click) entry.on_click();
  };
}

}  // namespace

StartForm::StartForm(Session& session) : Form("StartForm"), session_(session) {
  // The window as it stands before the start: only File, New Project, Info
  // and Help are usable until the command state is refreshed.
  width = 11400;
  height = 8400;

  Menu(M_File, "&File");
  Menu(M_EditSystemFile, "&Settings");
  Menu(M_ClimaticDataFiles, "&Climatic data files");
  Menu(M_Downloadclimaticdatafiles, "&Download climatic data files (.zip format)");
  Menu(M_Copyclimaticdatafiles, "&Move climatic data files to ZELMO-QRN (.Cli format)");
  Menu(M_ConvertV20, "&Conversion v1.2 to V2.0");
  Menu(M_ActivetaDemo, "&Activate the demo project");
  Menu(M_CloseZelmo, "&Exit ZELMO-QRN");

  Menu(M_Project, "&Project");
  Menu(M_NewProject, "&New Project");
  Menu(M_OpenProject, "&Open Project", false);
  Menu(M_CopyProject, "&Copy Project", false);
  Menu(M_DeleteProject, "&Delete Project", false);
  Menu(M_RenameProject, "&Rename Project", false);

  Menu(M_Case, "&Case", false);
  Menu(M_NewCase, "&New Case");
  Menu(M_OpenCase, "&Open Case", false);
  Menu(M_CopyCase, "&Copy Case", false);
  Menu(M_DeleteCase, "&Delete Case", false);
  Menu(M_RenameCase, "&Rename Case", false);

  Menu(M_Library, "&Library", false);
  Menu(M_OpaqueMaterial, "&Opaque Materials");
  Menu(M_Wall, "&Walls / Floors / Roofs / Doors");
  Menu(M_Windows_9701, "Wi&ndows");
  Menu(M_MovableInsulation, "&Interior curtains");
  Menu(M_Glass_Types, "&Glass types");
  Menu(M_Gases, "G&as types");
  Menu(M_Window_types, "&Window types");

  Menu(M_Model, "&Model", false);
  Menu(M_Site, "&Site / Period / Climate");
  Menu(M_GeneralParameters, "&General Parameters");
  Menu(M_Building, "&Building");
  Menu(M_Surface, "B&uilding elements");
  Menu(M_HVAC, "&Schedules");
  Menu(M_IHCI, "&HVAC");
  Menu(M_MISchedule, "&Interior curtains ");
  Menu(M_ForcedVent, "&Forced Ventilation");
  Menu(M_FluidAdvConn, "&Fluid / Advection Connection");

  Menu(M_Outsp_Calc, "&Simulation", false);
  Menu(M_Output, "&Output specification", false);
  Menu(M_ThermalLoads, "&Simulate", false);

  Menu(M_Result, "&Results", false);
  Menu(M_Textfiles, "&TextFiles");
  Menu(M_Diagram, "&Diagram", false);
  Menu(M_Line, "&Line");
  Menu(M_TV_C, "&Comfort");
  Menu(M_Comfort, "&Thermal", false);
  Menu(M_VComfort, "&Visual", false);

  Menu(M_view, "&View of building");
  Menu(M_ViewOfBuilding, "&3D view", false);
  Menu(M_LIstOfBuildíngElements, "List of building elements", false);

  Menu(M_HelpMain, "&Info");
  Menu(M_AboutZelmo, "&About Zelmo-QRN");
  Menu(M_Support, "&Support");

  Menu(M_Help, "&Help");
  Menu(M_MainForm, "&Main form");
  Menu(M_HelpInfo, "&User's manual");

  PanelLabel(LPN, "New", "Make a new project");
  PanelLabel(LPO, "Open", "Open an existing project");
  PanelLabel(LPC, "Copy", "Copy an existing project");
  PanelLabel(LPD, "Delete", "Delete an existing project");
  PanelLabel(LCN, "New", "Make a new case for the present project");
  PanelLabel(LCO, "Open", "Open a case for the present project");
  PanelLabel(LCC, "Copy", "Copy a case for the present project");
  PanelLabel(LCD, "Delete", "Delete a case for the present project");
  PanelLabel(LCR, "Rename", "Rename a case for the present project");
  PanelLabel(Om, "Opaque materials", "Library of opaque materials");
  PanelLabel(LW, "Walls / Floors / Roofs", "Library of walls / floors / roofs ");
  PanelLabel(LWi, "Windows", "Library of windows");
  PanelLabel(LCu, "Curtains", "Library of curtains");
  PanelLabel(MBS, "Site / Period / Climate",
             "Climatic data; period of simulation; rotation of the building");
  PanelLabel(MBG, "General parameters",
             "IR radiation; convective film coefficients; ground reflectivity; soil resistance; "
             "number of times to simulate the first day.");
  PanelLabel(MBB, "Building elements",
             "Shape; orientation; dimensions; constructions for building elements");
  PanelLabel(MBF, "Fluids and  Advection. connection",
             "Enter fluid and advection connection for present volumes of the building");
  PanelLabel(MBC, "Curtain schedule", "Time schedule for curtains");
  PanelLabel(MHS, "Schedules", "Time schedule for HVAC parameters for present volumes");
  PanelLabel(MHF, "Forced ventilation", "Forced ventilation for present volumes");
  PanelLabel(MV, "View of building", "View building for present case");
  PanelLabel(LoBe, "List of building elements", "");
  PanelLabel(OUtput, "Output specification",
             "Specification of the type of output from a simulation");
  PanelLabel(ss, "Simulate", "Make simulations");
  PanelLabel(RT, "Text files", "View text files of types LST and TXT");
  PanelLabel(RDL, "Line",
             "View diagrams for temperatures; heating and cooling loads; solar radiation");
  PanelLabel(RC, "Comfort", "View diagrams for comfort indices PMV and PPD; Operating temperature");

  Forward(LPN, M_NewProject);
  Forward(LPO, M_OpenProject);
  Forward(LPC, M_CopyProject);
  Forward(LPD, M_DeleteProject);
  Forward(LCN, M_NewCase);
  Forward(LCO, M_OpenCase);
  Forward(LCC, M_CopyCase);
  Forward(LCD, M_DeleteCase);
  Forward(LCR, M_RenameCase);
  Forward(Om, M_OpaqueMaterial);
  Forward(LW, M_Wall);
  Forward(LWi, M_Windows_9701);
  Forward(LCu, M_MovableInsulation);
  Forward(MBS, M_Site);
  Forward(MBG, M_GeneralParameters);
  Forward(MBB, M_Surface);
  Forward(MBF, M_FluidAdvConn);
  Forward(MBC, M_MISchedule);
  Forward(MHS, M_IHCI);
  Forward(MHF, M_ForcedVent);
  Forward(MV, M_ViewOfBuilding);
  Forward(LoBe, M_LIstOfBuildíngElements);
  Forward(OUtput, M_Output);
  Forward(ss, M_ThermalLoads);
  Forward(RT, M_Textfiles);
  Forward(RDL, M_Line);
  Forward(RC, M_Comfort);

  FrameLibrary.caption = "Library";
  FrameModel.caption = "Model";
  FrameOutputSpec.caption = "Output_spec ";
  FrameCalculation.caption = "Calculation";
  FrameResult.caption = "Result ";
  LblProjects.caption = "Projects";
  LblCases.caption = "Cases";
  LblLibraries.caption = "Libraries";
  LblBuilding.caption = "Building";
  LblHVAC.caption = "HVAC";
  LblDiagram.caption = "Diagram";
  LblVersion.caption = kVersionText;
  LblVersion.visible = false;
  MoreAbout.caption = "More about ZELMO-QRN";
  MoreAbout.on_click = [this] { ShowHelpTopic(12000); };
  M_Downloadclimaticdatafiles.on_click = [this] { DownloadClimateFiles(); };
}

void StartForm::SetButtonsForMenu(Control& label, bool enabled) {
  label.enabled = enabled;
  if (enabled) label.fore_color = kEnabledBlue;
}

void StartForm::RefreshCommandState() {
  Workspace& ws = session_.ws;
  LblVersion.visible = false;
  if (!CanChangeToFolder(ws.LocalPath)) {
    session_.dialogs->MsgBox(
        " The data path is not accessible or does not exist !\r"
        "  A new data path can be set in the Edit / File menu ",
        mb::kExclamation, "Zelmo-QRN 4W");
    for (MenuItem* menu :
         {&M_Project, &M_Case, &M_Library, &M_Model, &M_Output, &M_ThermalLoads, &M_Result}) {
      menu->enabled = false;
    }
    // Without a data path a new project has nowhere to go.
    SetButtonsForMenu(LPN, false);
    return;
  }

  bool projects_exist = FileCanOpen(JoinPath(ws.LocalPath, "PROJECTS.LIB"));
  for (MenuItem* menu : {&M_OpenProject, &M_CopyProject, &M_DeleteProject, &M_RenameProject}) {
    menu->enabled = projects_exist;
  }
  for (Label* label : {&LPO, &LPC, &LPD}) SetButtonsForMenu(*label, projects_exist);

  bool project_open = !ws.ProjectName.empty();
  M_Outsp_Calc.enabled = project_open;
  M_ThermalLoads.enabled = project_open;
  M_Result.enabled = project_open;
  if (project_open) {
    for (Label* label : {&RT, &RDL, &RC}) SetButtonsForMenu(*label, true);
  } else {
    for (Label* label : {&ss, &RT, &RDL, &RC, &MV, &LoBe}) SetButtonsForMenu(*label, false);
  }

  bool case_open = !ws.CaseName.empty();
  M_Case.enabled = case_open;
  for (Label* label : {&LCN, &LCO, &LCC, &LCD, &LCR}) SetButtonsForMenu(*label, case_open);
  M_Library.enabled = false;
  M_Model.enabled = false;
  M_Output.enabled = false;
  for (Label* label : {&Om, &LW, &LWi, &LCu, &MBS, &MBG, &MBB, &MBF, &MBC, &MHS, &MHF, &OUtput}) {
    SetButtonsForMenu(*label, false);
  }
}

void StartForm::OpenSettings() {
  SysInit screen(session_, *this);
  session_.dialogs->ShowModal(screen);
}

void StartForm::ExitProgram() { Unload(); }

void StartForm::ShowAbout() {
  About screen(session_);
  session_.dialogs->ShowModal(screen);
}

void StartForm::ShowSupport() {
  Support screen(session_);
  session_.dialogs->ShowModal(screen);
}

void StartForm::ShowHelpTopic(int context) {
  if (!session_.desktop) return;
  const Workspace& ws = session_.ws;
  session_.desktop->ShowHelp(ws.HelpFile.empty() ? MainHelpFile(ws) : ws.HelpFile, context);
}

void StartForm::DownloadClimateFiles() {
  if (session_.desktop) session_.desktop->OpenUrl(kClimateDataPage);
}

void StartForm::ShowMenuLayout() {
  for (MenuItem* menu : {&M_File, &M_Project, &M_Case, &M_Library, &M_Model, &M_HVAC, &M_Output,
                         &M_Outsp_Calc, &M_Result, &M_Help}) {
    menu->visible = true;
  }
}

std::vector<StartForm::MenuNode> StartForm::MenuTree() {
  return {
      {&M_File, nullptr},
      {&M_EditSystemFile, &M_File},
      {&M_ClimaticDataFiles, &M_File},
      {&M_Downloadclimaticdatafiles, &M_ClimaticDataFiles},
      {&M_Copyclimaticdatafiles, &M_ClimaticDataFiles},
      {&M_ConvertV20, &M_File},
      {&M_ActivetaDemo, &M_File},
      {&M_CloseZelmo, &M_File},
      {&M_Project, nullptr},
      {&M_NewProject, &M_Project},
      {&M_OpenProject, &M_Project},
      {&M_CopyProject, &M_Project},
      {&M_DeleteProject, &M_Project},
      {&M_RenameProject, &M_Project},
      {&M_Case, nullptr},
      {&M_NewCase, &M_Case},
      {&M_OpenCase, &M_Case},
      {&M_CopyCase, &M_Case},
      {&M_DeleteCase, &M_Case},
      {&M_RenameCase, &M_Case},
      {&M_Library, nullptr},
      {&M_OpaqueMaterial, &M_Library},
      {&M_Wall, &M_Library},
      {&M_Windows_9701, &M_Library},
      {&M_MovableInsulation, &M_Library},
      {&M_Glass_Types, &M_Library},
      {&M_Gases, &M_Library},
      {&M_Window_types, &M_Library},
      {&M_Model, nullptr},
      {&M_Site, &M_Model},
      {&M_GeneralParameters, &M_Model},
      {&M_Building, &M_Model},
      {&M_Surface, &M_Building},
      {&M_HVAC, &M_Model},
      {&M_IHCI, &M_HVAC},
      {&M_MISchedule, &M_HVAC},
      {&M_ForcedVent, &M_HVAC},
      {&M_FluidAdvConn, &M_HVAC},
      {&M_Outsp_Calc, nullptr},
      {&M_Output, &M_Outsp_Calc},
      {&M_ThermalLoads, &M_Outsp_Calc},
      {&M_Result, nullptr},
      {&M_Textfiles, &M_Result},
      {&M_Diagram, &M_Result},
      {&M_Line, &M_Diagram},
      {&M_TV_C, &M_Diagram},
      {&M_Comfort, &M_TV_C},
      {&M_VComfort, &M_TV_C},
      {&M_view, nullptr},
      {&M_ViewOfBuilding, &M_view},
      {&M_LIstOfBuildíngElements, &M_view},
      {&M_HelpMain, nullptr},
      {&M_AboutZelmo, &M_HelpMain},
      {&M_Support, &M_HelpMain},
      {&M_Help, nullptr},
      {&M_MainForm, &M_Help},
      {&M_HelpInfo, &M_Help},
  };
}

}  // namespace zelmo
