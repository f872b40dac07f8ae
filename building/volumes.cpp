#include "building/volumes.h"

#include <cmath>

#include "core/fields.h"
#include "core/numbers.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

// A volume code as the 16-bit integer the tables count with; an empty code is
// Outdoor.
int16_t CodeNumber(const std::string& code) {
  double value = std::nearbyint(Val(TrimBlanks(code)));
  if (value < -32768 || value > 32767) return 0;
  return static_cast<int16_t>(value);
}

}  // namespace

std::vector<std::string> BuildVolumeList(const SurfaceVolumes& volumes) {
  bool flagged[9] = {};
  int16_t highest = 0;
  auto take = [&](const std::string& code) {
    int16_t number = CodeNumber(code);
    // Ground faces no volume; a code outside 0 to 8 names none either.
    if (number == -1 || number < 0 || number > 8) return;
    flagged[number] = true;
    highest = MaxInt(highest, number);
  };
  for (int i = 0; i < volumes.count(); ++i) {
    take(volumes.front[i]);
    take(volumes.back[i]);
  }
  std::vector<std::string> list;
  for (int number = 1; number <= highest; ++number) {
    if (flagged[number]) list.push_back(std::to_string(number));
  }
  return list;
}

std::vector<std::string> BuildVolumePairs(const std::vector<std::string>& volume_list,
                                          bool with_outdoor) {
  std::vector<std::string> pairs;
  const size_t count = volume_list.size();
  for (size_t i = 0; i < count; ++i) {
    for (size_t j = i + 1; j < count; ++j) {
      pairs.push_back(volume_list[i] + " -> " + volume_list[j]);
    }
    if (with_outdoor) pairs.push_back("0 -> " + volume_list[i]);
  }
  return pairs;
}

Facings CountFacings(const SurfaceTable& table) {
  Facings facings;
  for (int slot = 1; slot <= table.SurfCount && slot <= kMaxElements; ++slot) {
    if (TrimBlanks(table.SurfName[slot]).empty()) continue;
    int16_t front = CodeNumber(table.SurfData[slot][7]);
    int16_t back = CodeNumber(table.SurfData[slot][8]);
    facings.FacingMax = MaxInt(facings.FacingMax, MaxInt(front, back));
    if (front == 0 && back == 0) continue;
    // Codes outside Ground to Volume 8 have no position to count in.
    if (front >= -1 && front <= 8) ++facings.FacingCount[front + 2];
    if (back >= -1 && back <= 8) ++facings.FacingCount[back + 2];
  }
  return facings;
}

}  // namespace zelmo
