// RSDiagram <case folder> [--export <file.png> [--from d.m --to d.m]]: the
// line diagram of the case's HOURLY.TXT. With --export the chart of the
// period (the year when no dates are given) is written as a PNG picture and
// no window opens; an error then goes to the standard error output.
#include <QApplication>
#include <QMessageBox>
#include <cstdio>
#include <optional>

#include "core/text_file.h"
#include "platform/qt_text.h"
#include "tools/results/diagram.h"
#include "tools/rsdiagram/diagram_window.h"

namespace {

struct Arguments {
  std::string case_folder;
  QString export_file, from, to;
  bool valid = false;
};

Arguments Parse(int argc, char** argv) {
  Arguments args;
  for (int i = 1; i < argc; ++i) {
    std::string word = argv[i];
    auto next = [&](QString& into) {
      if (i + 1 >= argc) return false;
      into = QString::fromLocal8Bit(argv[++i]);
      return true;
    };
    if (word == "--export") {
      if (!next(args.export_file)) return args;
    } else if (word == "--from") {
      if (!next(args.from)) return args;
    } else if (word == "--to") {
      if (!next(args.to)) return args;
    } else if (args.case_folder.empty()) {
      args.case_folder = zelmo::FromFsPath(std::filesystem::path(argv[i]));
    } else {
      return args;
    }
  }
  args.valid = !args.case_folder.empty();
  return args;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace zelmo;
  Arguments args = Parse(argc, argv);
  const bool batch = !args.export_file.isEmpty();
  if (batch && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  QApplication app(argc, argv);
  const QString title = "Line diagram";
  auto fail = [&](const QString& text, int code) {
    if (batch) {
      std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    } else {
      QMessageBox::warning(nullptr, title, text);
    }
    return code;
  };
  if (!args.valid) {
    return fail(
        "RSDiagram draws a case's hourly results: RSDiagram <case folder> "
        "[--export <file.png> [--from d.m --to d.m]]",
        2);
  }
  std::string file = JoinPath(args.case_folder, results::kHourlyFile);
  if (!FileCanOpen(file)) {
    return fail(platform::Q(results::NoHourlyResultsText(args.case_folder)), 1);
  }
  results::HourlyTable table;
  try {
    table = results::ReadHourlyTable(file);
  } catch (const FileError& error) {
    return fail(rsdiagram::LoadFailureText(error.UserText()), 1);
  }
  rsdiagram::DiagramWindow window(std::move(table), args.case_folder);
  if (!args.from.isEmpty() || !args.to.isEmpty()) {
    QString from = args.from.isEmpty() ? QString("1.1") : args.from;
    QString to = args.to.isEmpty() ? QString("31.12") : args.to;
    if (!results::ParseDate(platform::S(from)) || !results::ParseDate(platform::S(to))) {
      return fail("The dates must be written day.month, for example --from 15.1 --to 21.1.", 2);
    }
    window.SetPeriod(rsdiagram::DiagramWindow::kDates, from, to);
  }
  if (batch) {
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
    app.processEvents();
    return window.ExportPng(args.export_file) ? 0 : 1;
  }
  window.show();
  return app.exec();
}
