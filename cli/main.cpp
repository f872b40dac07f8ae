// zelmo: the command line of ZELMO-QRN. It needs no display and links no
// widget library.
#include <QCoreApplication>
#include <iostream>

#include "cli/commands.h"
#include "platform/qt_process.h"
#include "platform/qt_settings.h"
#include "platform/qt_text.h"

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  std::vector<std::string> args;
  const QStringList arguments = QCoreApplication::arguments();
  for (qsizetype i = 1; i < arguments.size(); ++i) args.push_back(zelmo::platform::S(arguments[i]));
  zelmo::platform::QtSettings settings;
  zelmo::platform::QtProcessRunner processes;
  return zelmo::cli::RunCommandLine(args,
                                    zelmo::platform::S(QCoreApplication::applicationFilePath()),
                                    settings, processes, std::cout, std::cerr);
}
