// Volumes: zones of air that exist only because elements name them on their
// front or back side.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "building/surface_file.h"

namespace zelmo {

// The volume numbers in use ("1" to "8"), ascending, trimmed.
std::vector<std::string> BuildVolumeList(const SurfaceVolumes& volumes);
// Pair names "1 -> 2", "0 -> 1", ... in the system's order.
std::vector<std::string> BuildVolumePairs(const std::vector<std::string>& volume_list,
                                          bool with_outdoor);

struct Facings {
  std::array<int16_t, 11> FacingCount{};  // positions 1 to 10: code + 2
  int16_t FacingMax = -2;
};
Facings CountFacings(const SurfaceTable& table);

}  // namespace zelmo
