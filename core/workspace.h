// The workspace state: where the program, the data, the current project and
// the current case are. Text, empty when not set.
#pragma once

#include <cstdint>
#include <string>

namespace zelmo {

struct Workspace {
  std::string LocalPath;
  std::string MainDirectory;
  std::string ThermalDirectory;
  std::string ComfortDirectory;
  std::string DiagramDirectory;
  std::string AccuracyLevelTL;
  std::string ProjectName;
  std::string ProjectPath;
  std::string CaseName;
  std::string CaseHeadline;
  std::string CasePath;
  bool DecimalComma = false;
  int16_t LeakageMode = 0;

  // The settings as stored, and the folder of the running program.
  std::string SystemPath;
  std::string ProgramDirectory;
  // The help file of the main window.
  std::string HelpFile;

  // The input box's question and answer.
  int16_t InpBoxCheckKind = 0;
  float InpBoxMinValue = 0;
  float InpBoxMaxValue = 0;
  std::string InpBoxResult;

  // The screen, in twips, for centring forms.
  int ScreenWidth = 1920 * 15;
  int ScreenHeight = 1080 * 15;
};

}  // namespace zelmo
