// Help, the browser, printing and the programs registered for files, on Qt.
#pragma once

#include "core/ports.h"

namespace zelmo::ui {

class QtDesktop : public Desktop {
 public:
  // Opens the program's manual, in the folder of the help file, at the page
  // of the context number in a help window; a missing page or manual is
  // said in a message.
  void ShowHelp(const std::string& help_file, int context) override;
  bool OpenWithRegistered(const std::string& path) override;
  // The program the platform opens the file with, or empty. On a desktop
  // that keeps its associations in .desktop entries the entry's program.
  std::string FindExecutable(const std::string& path) override;
  // Asks for the printer and the copies, then prints in a small fixed font.
  void PrintText(const std::string& text) override;
  void OpenUrl(const std::string& url) override;
};

}  // namespace zelmo::ui
