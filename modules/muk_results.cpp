#include <cstdio>

#include "modules/muk.h"

namespace zelmo::modules {

namespace {

std::string Three(double v) {
  char text[48];
  std::snprintf(text, sizeof text, "%.3f", v);
  return text;
}

}  // namespace

std::vector<std::string> MukSummaryLines(const std::vector<MukSummary>& volumes) {
  std::vector<std::string> lines = {
      "Volume\tHeating [kWh]\tCooling [kWh]\tPeak heating [W]\tPeak cooling [W]\tT_min [C]\t"
      "T_mean [C]\tT_max [C]"};
  for (const auto& v : volumes) {
    std::string line = std::to_string(v.volume);
    for (double x : {v.heating_kwh, v.cooling_kwh, v.peak_heating, v.peak_cooling, v.t_min,
                     v.t_mean, v.t_max}) {
      line += "\t" + Three(x);
    }
    lines.push_back(line);
  }
  return lines;
}

}  // namespace zelmo::modules
