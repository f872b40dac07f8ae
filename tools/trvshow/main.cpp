// TRVSHOW <case folder>: shows the building of the case from its DAT1.DAT,
// until the user closes the window. The program that started it waits.
#include <QApplication>
#include <QMessageBox>
#include <filesystem>

#include "core/text_file.h"
#include "modules/dat1.h"
#include "tools/trvshow/viewer_window.h"

int main(int argc, char** argv) {
  using namespace zelmo;
  QApplication app(argc, argv);
  const QString title = "View of building";
  if (argc < 2) {
    QMessageBox::critical(nullptr, title, "TRVSHOW shows a case's building: TRVSHOW <case folder>");
    return 2;
  }
  trvshow::Dat1Building building;
  try {
    building = trvshow::ReadCaseDat1(FromFsPath(std::filesystem::path(argv[1])));
  } catch (const FileError& error) {
    QMessageBox::critical(nullptr, title, trvshow::LoadFailureText(error.UserText()));
    return 1;
  }
  trvshow::ViewerWindow window(std::move(building));
  window.show();
  return app.exec();
}
