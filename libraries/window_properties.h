// The window properties of a window type (U-value, g-value and solar
// transmittance) come from the calculation code of the modules, not from
// this program. The routine reads Wndw.Lib in the project folder, which it
// finds through the exchange file UGFile.txt in the program folder.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zelmo {

struct Workspace;

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

// Until this program has the calculation of its own, no result: the three
// fields of the window type screen stay empty.
class NoWindowProperties : public WindowProperties {
 public:
  bool GETWINDOWPROPERTIES(int32_t&, int16_t&, float&, float&, float&, int32_t&, const std::string&,
                           int32_t) override {
    return false;
  }
};

struct WindowResults {
  float u = 0, g = 0, tsol = 0;
};

// Writes UGFile.txt (the project folder with its separator behind it), asks
// the routine for window type `window`, and deletes the exchange file again.
// Wndw.Lib must have been written just before.
std::optional<WindowResults> RequestWindowProperties(const Workspace& ws,
                                                     WindowProperties& properties, int window);

}  // namespace zelmo
