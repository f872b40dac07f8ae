#include "site/climate_import.h"

#include "core/text_file.h"
#include "modules/epw_import.h"

namespace zelmo {

ClimateImportOutcome ImportClimateFile(const std::string& epw, const std::string& cli) {
  ClimateImportOutcome outcome;
  modules::EpwImport import;
  try {
    outcome.written = modules::ImportEpw(epw, cli, &import);
  } catch (const FileError& error) {
    outcome.fault = error.UserText();
    return outcome;
  }
  if (!outcome.written) {
    outcome.fault = "The climatic data file cannot be written\r" + cli;
    return outcome;
  }
  const modules::ClimateHeader& h = import.data.header;
  outcome.report.push_back(cli + ": " + std::to_string(import.data.hours.size()) + " hours from " +
                           modules::DateText(h.first_day) + " to " + modules::DateText(h.last_day));
  outcome.report.push_back("Latitude " + modules::FormatNumber(h.latitude) + ", longitude " +
                           modules::FormatNumber(h.longitude) + ", time meridian " +
                           modules::FormatNumber(h.time_meridian) + ", elevation " +
                           modules::FormatNumber(h.elevation) + " m");
  for (const std::string& line : modules::MissingReport(import)) outcome.report.push_back(line);
  return outcome;
}

std::string ClimateFileFor(const std::string& epw, const std::string& folder) {
  std::string name = FromFsPath(ToFsPath(epw).stem());
  return JoinPath(folder, name + ".CLI");
}

}  // namespace zelmo
