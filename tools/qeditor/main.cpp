// QEDITOR <file>: shows a text file, read-only until the user allows editing.
#include <QApplication>
#include <QMessageBox>
#include <filesystem>

#include "core/text_file.h"
#include "tools/qeditor/editor_window.h"

int main(int argc, char** argv) {
  using namespace zelmo;
  QApplication app(argc, argv);
  qeditor::EditorWindow window;
  if (argc >= 2) {
    std::string path = FromFsPath(std::filesystem::path(argv[1]));
    if (!window.Open(path)) {
      QMessageBox::warning(nullptr, "Text viewer",
                           "The file " + QString::fromLocal8Bit(argv[1]) + " cannot be read.");
      return 1;
    }
  }
  window.show();
  return app.exec();
}
