// zelmo-validate: the report of the validation cases. Reads the yearly
// results of each case of a bestest project that has been run and the
// reference programs' example results, and writes into the out folder
// validation.md (the table beside the settings of the project),
// validation.csv and validation.png (the chart).
//
//   zelmo-validate <bestest project folder> <reference.csv> <out folder>
//
// Exit status: 0 written, 1 the reference table is damaged or a file could
// not be written, 2 the command line was wrong.
#include <QDir>
#include <QGuiApplication>
#include <cstdlib>
#include <iostream>

#include "core/file_system.h"
#include "core/text_file.h"
#include "tools/validation_report/chart.h"

int main(int argc, char** argv) {
  using namespace zelmo;
  if (argc != 4) {
    std::cerr << "usage: zelmo-validate <bestest project folder> <reference.csv> <out folder>\n";
    return 2;
  }
  const std::string project = argv[1], reference_file = argv[2], out = argv[3];
  if (!FolderExists(project)) {
    std::cerr << "zelmo-validate: no project folder " << project << "\n";
    return 2;
  }
  // Text needs a font, and a font the platform: drawn offscreen.
  if (!std::getenv("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  try {
    const auto bytes = ReadAllBytes(reference_file);
    if (!bytes) {
      std::cerr << "zelmo-validate: cannot read " << reference_file << "\n";
      return 1;
    }
    const ReferenceTable table = ParseReference(reference_file, *bytes);
    const std::vector<Comparison> comparisons = CompareWithReference(table, project);
    if (!QDir().mkpath(QString::fromStdString(out)) ||
        !WriteAllBytes(JoinPath(out, "validation.md"),
                       ValidationReport(table, comparisons, "validation.png")) ||
        !WriteAllBytes(JoinPath(out, "validation.csv"), ComparisonCsv(table, comparisons)) ||
        !validation::ValidationChart(table, comparisons)
             .save(QString::fromStdString(JoinPath(out, "validation.png")), "PNG")) {
      std::cerr << "zelmo-validate: cannot write into " << out << "\n";
      return 1;
    }
    int inside = 0;
    for (const Comparison& c : comparisons) inside += c.Inside();
    std::cout << inside << " of " << comparisons.size() << " inside the reference range; "
              << JoinPath(out, "validation.md") << "\n";
    return 0;
  } catch (const FileError& error) {
    std::cerr << "zelmo-validate: " << error.UserText() << "\n";
    return 1;
  }
}
