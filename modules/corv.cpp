#include "modules/corv.h"

#include <cstdio>

#include "core/text_file.h"
#include "modules/corv_fent_results.h"
#include "modules/dat2.h"

namespace zelmo::modules {

namespace {

constexpr const char* kDat2 = "DAT2.DAT";
constexpr const char* kResults = "CORV.RES";
constexpr const char* kReport = "CORV.LIS";

std::string Where(const Dat2Wall& wall, int layer, int line) {
  return "wall " + std::to_string(wall.number) + ", layer " + std::to_string(layer) + " (" + kDat2 +
         ", line " + std::to_string(line) + ")";
}

// The layers of a wall in SI units, or the failure that keeps it from
// being a construction.
std::vector<Layer> LayersOf(const Dat2& dat2, const Dat2Wall& wall) {
  if (wall.layers.empty()) {
    throw ModuleFailure(kCorvNoLayers, "wall " + std::to_string(wall.number) + " has no layers (" +
                                           kDat2 + ", line " + std::to_string(wall.line) + ")");
  }
  std::vector<Layer> layers;
  int index = 0;
  for (const Dat2Layer& layer : wall.layers) {
    ++index;
    if (!(layer.thickness_cm > 0)) {
      throw ModuleFailure(kCorvZeroLayer, Where(wall, index, layer.line) + " has no thickness");
    }
    const auto material = dat2.materials.find(layer.material);
    if (material == dat2.materials.end()) {
      throw ModuleFailure(kCorvNoMaterial, Where(wall, index, layer.line) + ": material " +
                                               std::to_string(layer.material) + " has no data");
    }
    const Dat2Material& m = material->second;
    if (!(m.conductivity > 0) || !(m.density >= 0) || !(m.specific_heat_wh >= 0)) {
      throw ModuleFailure(kCorvBadMaterial,
                          Where(wall, index, layer.line) + ": material " +
                              std::to_string(layer.material) + " (" + m.name +
                              ") needs a conductivity above 0 and no negative density or "
                              "specific heat");
    }
    layers.push_back(LayerOf(layer, m));
  }
  return layers;
}

std::string Report(const Dat2& dat2, const CorvResult& result) {
  std::string lines = "CORV: the walls of the case discretised for the conduction\r\n";
  lines += dat2.headline + "\r\n\r\n";
  lines +=
      "  Wall  Layers  Thickness [m]  U surface to surface [W/m2,K]  Heat capacity [kJ/m2,K]  "
      "Nodes\r\n";
  for (size_t w = 0; w < result.walls.size(); ++w) {
    const Construction& c = result.walls[w].construction;
    double thickness = 0, capacity = 0;
    for (const Dat2Layer& layer : dat2.walls[w].layers) thickness += layer.thickness_cm / 100;
    for (double node : c.capacity) capacity += node / 1000;
    char line[160];
    std::snprintf(line, sizeof line, "%6d  %6zu  %13.3f  %29.3f  %23.1f  %5zu\r\n",
                  result.walls[w].number, dat2.walls[w].layers.size(), thickness, c.u, capacity,
                  c.capacity.size());
    lines += line;
  }
  return lines;
}

}  // namespace

const CorvWall* CorvResult::Wall(int number) const {
  if (number < 1 || number > static_cast<int>(walls.size())) return nullptr;
  return &walls[static_cast<size_t>(number - 1)];
}

std::string CorvFingerprint(const std::string& case_folder) {
  Fingerprint fingerprint;
  const auto bytes = ReadAllBytes(CaseFile(case_folder, kDat2));
  if (bytes) fingerprint.Add(*bytes);
  return fingerprint.Text();
}

CorvResult ComputeCorv(const Dat2& dat2) {
  CorvResult result;
  for (const Dat2Wall& wall : dat2.walls) {
    result.walls.push_back({wall.number, Discretise(LayersOf(dat2, wall))});
  }
  return result;
}

std::vector<std::string> CorvLines(const CorvResult& result) {
  std::vector<std::string> lines;
  lines.push_back("Walls\t" + std::to_string(result.walls.size()));
  for (const CorvWall& wall : result.walls) {
    const Construction& c = wall.construction;
    lines.push_back("Wall\t" + std::to_string(wall.number) + "\t" +
                    std::to_string(c.capacity.size()) + "\t" + ResultNumber(c.u));
    lines.push_back("C" + ResultNumbers(c.capacity));
    lines.push_back("G" + ResultNumbers(c.conductance));
  }
  return lines;
}

void RunCorv(const std::string& case_folder) {
  const std::string path = CaseFile(case_folder, kDat2);
  const std::string bytes = ReadInput(path, kCorvDat2Missing);
  const Dat2 dat2 = ReadDat2(path);
  const CorvResult result = ComputeCorv(dat2);
  const std::string fingerprint = Fingerprint().Add(bytes).Text();
  WriteResult(CaseFile(case_folder, kResults), kCorv, fingerprint, CorvLines(result));
  WriteReport(CaseFile(case_folder, kReport), kCorv, Report(dat2, result));
}

CorvResult ParseCorvResult(const std::vector<std::string>& lines, int code) {
  ResultCursor cursor(lines, kCorv, kResults, code);
  CorvResult result;
  const int walls = cursor.Count("Walls", 0, kMaxDat2Walls);
  for (int number = 1; number <= walls; ++number) {
    auto head = cursor.Fields("Wall", 3);
    if (cursor.Whole(head[0], number, number) != number) cursor.Fail();
    const int nodes = cursor.Whole(head[1], 2, 1 << 20);
    CorvWall wall;
    wall.number = number;
    wall.construction.u = cursor.Value(head[2]);
    wall.construction.capacity = cursor.Values("C", static_cast<size_t>(nodes));
    wall.construction.conductance = cursor.Values("G", static_cast<size_t>(nodes - 1));
    for (double g : wall.construction.conductance) {
      if (!(g > 0)) cursor.Fail();
    }
    for (double c : wall.construction.capacity) {
      if (!(c >= 0)) cursor.Fail();
    }
    result.walls.push_back(std::move(wall));
  }
  cursor.End();
  return result;
}

CorvResult ReadCorvResult(const std::string& case_folder, int code) {
  return ParseCorvResult(
      ReadResult(CaseFile(case_folder, kResults), kCorv, CorvFingerprint(case_folder), code), code);
}

}  // namespace zelmo::modules
