#include "libraries/window_properties.h"

#include <algorithm>

#include "core/file_system.h"
#include "core/text_file.h"
#include "core/workspace.h"
#include "libraries/window_library_export.h"
#include "modules/glazing_library.h"

namespace zelmo {

WindowOutcome WindowPropertiesOf(const std::string& project, int window) {
  const std::string path = JoinPath(project, kWindowLibraryFile);
  try {
    return WindowPropertiesIn(modules::ReadWindowLibrary(path), path, window);
  } catch (const FileError& error) {
    return {std::nullopt, error.UserText()};
  }
}

WindowOutcome WindowPropertiesIn(const WindowLibrary& library, const std::string& path,
                                 int window) {
  const modules::WindowGlazing found = modules::GlazingOfWindow(library, path, window);
  if (!found.glazing) return {std::nullopt, found.text};
  const auto result = modules::ComputeGlazing(*found.glazing);
  if (!result) return {std::nullopt, modules::NoResultText(library, window)};
  return {WindowResults{static_cast<float>(result->u), static_cast<float>(result->g),
                        static_cast<float>(result->tsol)},
          ""};
}

bool GlazingWindowProperties::GETWINDOWPROPERTIES(int32_t&, int16_t& window, float& u, float& g,
                                                  float& tsol, int32_t&, const std::string& file,
                                                  int32_t length) {
  const size_t size = std::clamp<int64_t>(length, 0, static_cast<int64_t>(file.size()));
  const auto exchange = ReadAllLines(file.substr(0, size));
  if (!exchange || exchange->empty()) return false;
  const WindowOutcome outcome = WindowPropertiesOf(TrimBlanks(exchange->front()), window);
  if (!outcome.results) return false;
  u = outcome.results->u;
  g = outcome.results->g;
  tsol = outcome.results->tsol;
  return true;
}

std::optional<WindowResults> RequestWindowProperties(const Workspace& ws,
                                                     WindowProperties& properties, int window) {
  const std::string exchange = JoinPath(ws.MainDirectory, kExchangeFile);
  if (!WriteAllLines(exchange, {JoinPath(ws.ProjectPath, "")})) {
    FailWrite(exchange);
  }
  // No file of the program is open while the routine runs.
  int32_t unit = 1;
  auto number = static_cast<int16_t>(window);
  WindowResults results;
  int32_t status = 0;
  const bool given =
      properties.GETWINDOWPROPERTIES(unit, number, results.u, results.g, results.tsol, status,
                                     exchange, static_cast<int32_t>(exchange.size()));
  if (FileCanOpen(exchange)) DeleteFile(exchange);
  if (!given) return std::nullopt;
  return results;
}

}  // namespace zelmo
