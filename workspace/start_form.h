// StartForm: the main window. Its menus and the labels of its panel; which
// commands are usable follows from three facts: whether PROJECTS.LIB exists,
// whether a project is current and whether a case is current.
#pragma once

#include <string>
#include <vector>

#include "core/controls.h"
#include "core/session.h"

namespace zelmo {

class StartForm : public Form {
 public:
  explicit StartForm(Session& session);
  Session& session() { return session_; }

  // Sets a panel label's enabled state; enabling also paints it blue.
  void SetButtonsForMenu(Control& label, bool enabled);
  // At start and after Delete Project.
  void RefreshCommandState();
  // The window's title.
  void SetTitle(const std::string& title) { caption = title; }

  // The commands of the main window itself: File / Settings, Exit, About,
  // Support and the help topics.
  void OpenSettings();
  void ExitProgram();
  void ShowAbout();
  void ShowSupport();
  void ShowHelpTopic(int context);
  // File / Climatic data files / Download: the browser on the page of
  // climate data.
  void DownloadClimateFiles();
  // The layout with menus: the top menus shown.
  void ShowMenuLayout();

  // The menu tree in the order of the menu bar: each entry with the menu it
  // belongs to (none for a menu of the bar).
  struct MenuNode {
    MenuItem* item;
    MenuItem* parent;
  };
  std::vector<MenuNode> MenuTree();

  // The command state set by each operation on projects and cases.
  void StateAfterNewProject();
  void StateAfterOpenProject(bool cases_exist);
  void StateAfterCopyProject();
  void StateAfterDeleteProject(bool current_deleted, bool list_empty);
  void StateAfterNewCase();
  void StateAfterOpenCase();
  void StateAfterDeleteCase(bool current_deleted, bool list_empty);

  // File
  MenuItem M_File{this, "M_File"};
  MenuItem M_EditSystemFile{this, "M_EditSystemFile"};
  MenuItem M_ClimaticDataFiles{this, "M_ClimaticDataFiles"};
  MenuItem M_Downloadclimaticdatafiles{this, "M_Downloadclimaticdatafiles"};
  MenuItem M_Copyclimaticdatafiles{this, "M_Copyclimaticdatafiles"};
  MenuItem M_ConvertV20{this, "M_ConvertV20"};
  MenuItem M_ActivetaDemo{this, "M_ActivetaDemo"};
  MenuItem M_CloseZelmo{this, "M_CloseZelmo"};
  // Project
  MenuItem M_Project{this, "M_Project"};
  MenuItem M_NewProject{this, "M_NewProject"};
  MenuItem M_OpenProject{this, "M_OpenProject"};
  MenuItem M_CopyProject{this, "M_CopyProject"};
  MenuItem M_DeleteProject{this, "M_DeleteProject"};
  MenuItem M_RenameProject{this, "M_RenameProject"};
  // Case
  MenuItem M_Case{this, "M_Case"};
  MenuItem M_NewCase{this, "M_NewCase"};
  MenuItem M_OpenCase{this, "M_OpenCase"};
  MenuItem M_CopyCase{this, "M_CopyCase"};
  MenuItem M_DeleteCase{this, "M_DeleteCase"};
  MenuItem M_RenameCase{this, "M_RenameCase"};
  // Library
  MenuItem M_Library{this, "M_Library"};
  MenuItem M_OpaqueMaterial{this, "M_OpaqueMaterial"};
  MenuItem M_Wall{this, "M_Wall"};
  MenuItem M_Windows_9701{this, "M_Windows_9701"};
  MenuItem M_MovableInsulation{this, "M_MovableInsulation"};
  MenuItem M_Glass_Types{this, "M_Glass_Types"};
  MenuItem M_Gases{this, "M_Gases"};
  MenuItem M_Window_types{this, "M_Window_types"};
  // Model
  MenuItem M_Model{this, "M_Model"};
  MenuItem M_Site{this, "M_Site"};
  MenuItem M_GeneralParameters{this, "M_GeneralParameters"};
  MenuItem M_Building{this, "M_Building"};
  MenuItem M_Surface{this, "M_Surface"};
  MenuItem M_HVAC{this, "M_HVAC"};
  MenuItem M_IHCI{this, "M_IHCI"};
  MenuItem M_MISchedule{this, "M_MISchedule"};
  MenuItem M_ForcedVent{this, "M_ForcedVent"};
  MenuItem M_FluidAdvConn{this, "M_FluidAdvConn"};
  // Simulation
  MenuItem M_Outsp_Calc{this, "M_Outsp_Calc"};
  MenuItem M_Output{this, "M_Output"};
  MenuItem M_ThermalLoads{this, "M_ThermalLoads"};
  // Results
  MenuItem M_Result{this, "M_Result"};
  MenuItem M_Textfiles{this, "M_Textfiles"};
  MenuItem M_Diagram{this, "M_Diagram"};
  MenuItem M_Line{this, "M_Line"};
  MenuItem M_TV_C{this, "M_TV_C"};
  MenuItem M_Comfort{this, "M_Comfort"};
  MenuItem M_VComfort{this, "M_VComfort"};
  // View of building
  MenuItem M_view{this, "M_view"};
  MenuItem M_ViewOfBuilding{this, "M_ViewOfBuilding"};
  MenuItem M_LIstOfBuildíngElements{this, "M_LIstOfBuild\xEDngElements"};
  // Info
  MenuItem M_HelpMain{this, "M_HelpMain"};
  MenuItem M_AboutZelmo{this, "M_AboutZelmo"};
  MenuItem M_Support{this, "M_Support"};
  // Help
  MenuItem M_Help{this, "M_Help"};
  MenuItem M_MainForm{this, "M_MainForm"};
  MenuItem M_HelpInfo{this, "M_HelpInfo"};

  // The panel's labels, each a short cut for its menu command.
  Label LPN{this, "LPN"};
  Label LPO{this, "LPO"};
  Label LPC{this, "LPC"};
  Label LPD{this, "LPD"};
  Label LCN{this, "LCN"};
  Label LCO{this, "LCO"};
  Label LCC{this, "LCC"};
  Label LCD{this, "LCD"};
  Label LCR{this, "LCR"};
  Label Om{this, "Om"};
  Label LW{this, "LW"};
  Label LWi{this, "LWi"};
  Label LCu{this, "LCu"};
  Label MBS{this, "MBS"};
  Label MBG{this, "MBG"};
  Label MBB{this, "MBB"};
  Label MBF{this, "MBF"};
  Label MBC{this, "MBC"};
  Label MHS{this, "MHS"};
  Label MHF{this, "MHF"};
  Label MV{this, "MV"};
  Label LoBe{this, "LoBe"};
  Label OUtput{this, "OUtput"};
  Label ss{this, "ss"};
  Label RT{this, "RT"};
  Label RDL{this, "RDL"};
  Label RC{this, "RC"};

  // The frames of the panel and their headings.
  Frame FrameLibrary{this, "FrameLibrary"};
  Frame FrameModel{this, "FrameModel"};
  Frame FrameOutputSpec{this, "FrameOutputSpec"};
  Frame FrameCalculation{this, "FrameCalculation"};
  Frame FrameResult{this, "FrameResult"};
  Label LblProjects{this, "LblProjects"};
  Label LblCases{this, "LblCases"};
  Label LblLibraries{this, "LblLibraries"};
  Label LblBuilding{this, "LblBuilding"};
  Label LblHVAC{this, "LblHVAC"};
  Label LblDiagram{this, "LblDiagram"};
  // The version, shown only while the window loads.
  Label LblVersion{this, "LblVersion"};
  // Opens the help at the main window's topic.
  Button MoreAbout{this, "MoreAbout"};

 private:
  Session& session_;
};

}  // namespace zelmo
