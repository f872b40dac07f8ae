#include "libraries/window_properties.h"

#include "core/file_system.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

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
