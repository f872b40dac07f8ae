// Felt <case folder>: the comfort volume's PMV and PPD, hour by hour, from
// the case's COMFORT.TXT and FELT.INP into Felt.GGG. It opens no window; a
// case it cannot compute gets a message that says why, and no Felt.GGG.
#include <QApplication>
#include <QMessageBox>
#include <filesystem>

#include "core/text_file.h"
#include "platform/qt_text.h"
#include "tools/results/comfort.h"

int main(int argc, char** argv) {
  using namespace zelmo;
  std::string problem;
  if (argc != 2) {
    problem = "Felt computes the thermal comfort of a case: Felt <case folder>";
  } else {
    problem = results::WriteComfortResult(FromFsPath(std::filesystem::path(argv[1])));
  }
  if (problem.empty()) return 0;
  QApplication app(argc, argv);
  QString text = platform::Q(problem);
  text.replace('\r', '\n');
  QMessageBox::warning(nullptr, "Comfort", text);
  return 1;
}
