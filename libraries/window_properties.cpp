#include "libraries/window_properties.h"

#include <algorithm>
#include <utility>

#include "core/file_system.h"
#include "core/text_file.h"
#include "core/workspace.h"
#include "libraries/window_library_export.h"
#include "libraries/window_library_reader.h"

namespace zelmo {

namespace {

template <typename Entry>
const Entry* Named(const std::vector<Entry>& entries, const std::string& name) {
  for (const Entry& entry : entries) {
    if (entry.name == name) return &entry;
  }
  return nullptr;
}

// The pane of a glass at normal incidence, as it stands in the window.
std::optional<GlazingPane> PaneOf(const LibraryGlass& glass, bool reversed) {
  GlazingPane pane;
  pane.eps_front = glass.eps_front;
  pane.eps_back = glass.eps_back;
  pane.thickness_mm = kNominalPaneMm;
  if (glass.type == "2") {
    const auto slab = FresnelSlab(glass.thickness_mm, glass.refraction, glass.extinction);
    if (!slab) return std::nullopt;
    pane.solar = *slab;
    pane.thickness_mm = glass.thickness_mm;
  } else {
    if (glass.type != "3" && glass.angle_rows < 1) return std::nullopt;
    pane.solar = {glass.tau, glass.rho_front, glass.rho_back};
  }
  // Fractions that no glass can have would pass on into the whole.
  const SolarFaces& solar = pane.solar;
  auto fraction = [](double value) { return value >= -1e-9 && value <= 1 + 1e-9; };
  if (!fraction(solar.tau) || !fraction(solar.rho_front) || !fraction(solar.rho_back) ||
      !fraction(solar.tau + solar.rho_front) || !fraction(solar.tau + solar.rho_back) ||
      !fraction(pane.eps_front) || !fraction(pane.eps_back)) {
    return std::nullopt;
  }
  if (reversed) {
    std::swap(pane.eps_front, pane.eps_back);
    std::swap(pane.solar.rho_front, pane.solar.rho_back);
  }
  return pane;
}

}  // namespace

WindowOutcome WindowPropertiesOf(const std::string& project, int window) {
  const std::string path = JoinPath(project, kWindowLibraryFile);
  try {
    return WindowPropertiesIn(ReadWindowLibrary(path), path, window);
  } catch (const FileError& error) {
    return {std::nullopt, error.UserText()};
  }
}

WindowOutcome WindowPropertiesIn(const WindowLibrary& library, const std::string& path,
                                 int window) {
  const std::string number = "window type " + std::to_string(window);
  if (window < 1 || window > static_cast<int>(library.windows.size())) {
    return {std::nullopt, number + " is not in " + path};
  }
  const LibraryWindow& type = library.windows[window - 1];
  const std::string which = number + " (" + type.name + ")";
  if (type.panes.empty()) return {std::nullopt, which + " has no panes"};
  Glazing glazing;
  for (const LibraryPane& pane : type.panes) {
    const LibraryGlass* glass = Named(library.glasses, pane.glass);
    if (!glass)
      return {std::nullopt, "glass type " + pane.glass + " of " + which + " is not in " + path};
    const auto glazing_pane = PaneOf(*glass, pane.reversed);
    if (!glazing_pane) {
      return {std::nullopt, "glass type " + pane.glass + " has no sound data at normal incidence"};
    }
    glazing.panes.push_back(*glazing_pane);
  }
  for (const LibraryGap& gap : type.gaps) {
    const LibraryGas* gas = Named(library.gases, gap.gas);
    if (!gas) return {std::nullopt, "gas type " + gap.gas + " of " + which + " is not in " + path};
    glazing.gaps.push_back({gap.width_mm, gas->properties});
  }
  const auto result = ComputeGlazing(glazing);
  if (!result) return {std::nullopt, "the panes and gaps of " + which + " give no result"};
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
