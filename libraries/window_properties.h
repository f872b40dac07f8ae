// The window properties of a window type (U-value, g-value and solar
// transmittance). The routine reads Wndw.Lib in the project folder, which it
// finds through the exchange file UGFile.txt in the program folder, and
// computes the centre of the glazing by EN 673 and EN 410.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zelmo {

struct Workspace;
namespace modules {
struct WindowLibrary;
}
using modules::WindowLibrary;

inline constexpr const char* kExchangeFile = "UGFile.txt";

// The port to the calculation code's GETWINDOWPROPERTIES. Arguments as the
// routine takes them: a free file number for its own use, the window type's
// number, the three results, a status set to 0 that nobody reads, the path of
// the exchange file and its length. True when it gave the three results.
class WindowProperties {
 public:
  virtual ~WindowProperties() = default;
  virtual bool GETWINDOWPROPERTIES(int32_t& unit, int16_t& window, float& u, float& g, float& tsol,
                                   int32_t& status, const std::string& file, int32_t length) = 0;
};

struct WindowResults {
  float u = 0, g = 0, tsol = 0;
};

// The properties of window type `window` (its record in Wndw.Lib, from 1) in
// the project folder `project`, or why there are none: the text names the
// window type and what is missing, or the file and line that are damaged.
struct WindowOutcome {
  std::optional<WindowResults> results;
  std::string fault;
};
WindowOutcome WindowPropertiesOf(const std::string& project, int window);
// The same from the library read already from `path`.
WindowOutcome WindowPropertiesIn(const WindowLibrary& library, const std::string& path, int window);

// The routine of this program: the project folder from the first line of the
// exchange file, the rest from WindowPropertiesOf. No result when the
// exchange file cannot be read or the type cannot be computed.
class GlazingWindowProperties : public WindowProperties {
 public:
  bool GETWINDOWPROPERTIES(int32_t& unit, int16_t& window, float& u, float& g, float& tsol,
                           int32_t& status, const std::string& file, int32_t length) override;
};

// Writes UGFile.txt (the project folder with its separator behind it), asks
// the routine for window type `window`, and deletes the exchange file again.
// Wndw.Lib must have been written just before.
std::optional<WindowResults> RequestWindowProperties(const Workspace& ws,
                                                     WindowProperties& properties, int window);

}  // namespace zelmo
