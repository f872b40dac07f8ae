// TrvComf <case folder>/Felt: shows the comfort results in <case
// folder>/Felt.GGG that Felt wrote, until the user closes the window.
#include <QApplication>
#include <QMessageBox>
#include <filesystem>

#include "core/text_file.h"
#include "platform/qt_text.h"
#include "tools/felt/comfort_window.h"
#include "tools/results/comfort.h"

int main(int argc, char** argv) {
  using namespace zelmo;
  QApplication app(argc, argv);
  const QString title = "Comfort";
  if (argc != 2) {
    QMessageBox::warning(nullptr, title,
                         "TrvComf shows the comfort results of a case: TrvComf <case folder>/Felt");
    return 2;
  }
  std::filesystem::path argument(argv[1]);
  std::filesystem::path file = argument;
  if (file.extension() != ".GGG") file += ".GGG";
  std::string case_folder = FromFsPath(file.parent_path());
  results::ComfortResult result;
  try {
    result = results::ReadComfortResult(FromFsPath(file));
  } catch (const FileError& error) {
    QString text = platform::Q(error.line() == 0 ? results::NoComfortResultsText(case_folder)
                                                 : error.UserText());
    text.replace('\r', '\n');
    QMessageBox::warning(nullptr, title, "The comfort results cannot be shown.\n" + text);
    return 1;
  }
  felt::ComfortWindow window(case_folder, std::move(result));
  window.show();
  return app.exec();
}
