// The program's start: real ports, the main window, the event loop.
#pragma once

class QApplication;

namespace zelmo::ui {

int RunProgram(QApplication& app);

}  // namespace zelmo::ui
