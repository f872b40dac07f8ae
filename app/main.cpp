// Tgzelmo: wires the real ports together and shows the main window.
#include <QApplication>

#include "ui/app_main.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  return zelmo::ui::RunProgram(app);
}
