#include "modules/plor.h"

#include <cmath>
#include <cstdio>
#include <numbers>

#include "core/numbers.h"
#include "core/text_file.h"
#include "modules/plor_lines.h"
#include "modules/view_factors.h"

namespace zelmo::modules {

namespace {

// The closure of a volume: the vector sum of its surfaces' outward areas
// vanishes for a closed outline; more than this share of its whole area
// left over is an opening.
constexpr double kClosureTolerance = 1e-3;
// A surface below this area (m²) is degenerate.
constexpr double kLeastArea = 1e-6;
// A floor faces down within 30 degrees.
const double kFloorCosine = std::cos(30 * std::numbers::pi / 180);

std::string Number(double value) {
  char text[40];
  std::snprintf(text, sizeof text, "%.10g", value == 0 ? 0.0 : value);
  return text;
}
std::string Fixed(double value, int decimals, int width) {
  char text[64];
  std::snprintf(text, sizeof text, "%*.*f", width, decimals, value == 0 ? 0.0 : value);
  return text;
}

std::string ElementText(const Dat1Building& building, size_t element) {
  return "Element " + std::to_string(element + 1) + " (" + building.elements[element].name + ")";
}

[[noreturn]] void Degenerate(const Dat1Building& b, size_t element, const std::string& what) {
  throw ModuleFailure(kPlorDegenerate, ElementText(b, element) + ": " + what);
}

void CheckElement(const Dat1Building& b, size_t k) {
  const Dat1Element& el = b.elements[k];
  for (double v : {el.zenith, el.azimuth, el.x, el.y, el.z}) {
    if (!std::isfinite(v) || std::fabs(v) > 1e6) Degenerate(b, k, "a position beyond 1000 km");
  }
  for (double v : el.dims) {
    if (!std::isfinite(v) || std::fabs(v) > 1e6) Degenerate(b, k, "a dimension beyond 1000 km");
  }
  if (el.front > b.volumes || el.back > b.volumes) {
    Degenerate(b, k, "it faces a volume beyond the " + std::to_string(b.volumes) + " of the case");
  }
  if (el.front == el.back && el.front != kOutdoor) {
    Degenerate(b, k, "its front and back face the same volume");
  }
  if (el.back == kGround) Degenerate(b, k, "its back faces the ground");
  if (el.shape == 3) {
    const auto [a, bb, c, d, e, f] = el.dims;
    if (!(0 <= d && d < f && f <= a && 0 <= c && c < e && e <= bb)) {
      Degenerate(b, k, "its hole does not lie inside it");
    }
  }
}

Vec3 Outward(const Surface& s, int side) { return (-side) * s.normal; }

PlaneRegion RegionFacing(const Surface& s, int side) {
  PlaneRegion r;
  r.normal = side * s.normal;
  r.outline = s.outline;
  if (!s.hole.empty()) r.holes.push_back(s.hole);
  if (side < 0) {
    std::reverse(r.outline.begin(), r.outline.end());
    for (auto& hole : r.holes) std::reverse(hole.begin(), hole.end());
  }
  return r;
}

// The side of each surface that faces a volume. An element with Outdoor or
// the Ground in front faces them with its front, as elements are meant to;
// for an element between two volumes, or one turned round with its back to
// Outdoor, the side is the one towards the middle of the volume (the mean of
// its surfaces' middles by area), whichever of its sides the element calls
// front: that only says which volume its front layers face.
PlorVolume ComputeVolume(const std::vector<Surface>& surfaces, int number) {
  PlorVolume v;
  v.number = number;
  Vec3 weighted;
  double weight = 0;
  for (size_t k = 0; k < surfaces.size(); ++k) {
    if (surfaces[k].front != number && surfaces[k].back != number) continue;
    v.surfaces.push_back(static_cast<int>(k));
    weighted = weighted + surfaces[k].area * Mean(surfaces[k].outline);
    weight += surfaces[k].area;
  }
  const Vec3 middle = weight > 0 ? (1 / weight) * weighted : weighted;
  for (int k : v.surfaces) {
    const Surface& s = surfaces[k];
    if (s.back == number && s.front <= kOutdoor) {
      v.sides.push_back(-1);
      continue;
    }
    const double towards = Dot(middle - Mean(s.outline), s.normal);
    v.sides.push_back(towards > 0 || (towards == 0 && s.front == number) ? 1 : -1);
  }
  const std::string name = "Volume " + std::to_string(number);
  if (v.surfaces.empty()) throw ModuleFailure(kPlorNotClosed, name + ": no element faces it");
  // The divergence theorem: the volume is a third of the sum over its
  // surfaces of (a point of the surface . outward normal) * area, taken
  // from the middle for accuracy.
  Vec3 open;
  double total = 0, volume = 0;
  std::vector<PlaneRegion> regions;
  std::vector<double> areas;
  for (size_t i = 0; i < v.surfaces.size(); ++i) {
    const Surface& s = surfaces[v.surfaces[i]];
    const Vec3 out = Outward(s, v.sides[i]);
    open = open + s.area * out;
    total += s.area;
    volume += Dot(s.outline[0] - middle, out) * s.area / 3;
    if (out.z <= -kFloorCosine) v.floor_area += s.area;
    regions.push_back(RegionFacing(s, v.sides[i]));
    areas.push_back(s.area);
  }
  if (Length(open) > kClosureTolerance * total) {
    double tilt = 0, azimuth = 0;
    // The opening faces the other way round from what the elements leave.
    TiltAndAzimuth((-1 / Length(open)) * open, tilt, azimuth);
    throw ModuleFailure(kPlorNotClosed, name + ": its elements leave an opening of " +
                                            Fixed(Length(open), 2, 1) + " m2 facing tilt " +
                                            Fixed(tilt, 0, 1) + ", azimuth " +
                                            Fixed(azimuth, 0, 1));
  }
  if (!(volume > kLeastArea)) {
    throw ModuleFailure(kPlorNotClosed,
                        name + ": its elements enclose no space; check their front and back");
  }
  v.air_volume = volume;
  v.view_factors = EnclosureViewFactors(regions, areas);
  return v;
}

// The outward normal of a surface from the volume it faces.
Vec3 OutwardOf(const PlorResult& r, size_t surface) {
  for (const PlorVolume& v : r.volume_data) {
    for (size_t i = 0; i < v.surfaces.size(); ++i) {
      if (v.surfaces[i] == static_cast<int>(surface))
        return (-v.sides[i]) * r.surfaces[surface].normal;
    }
  }
  return r.surfaces[surface].normal;
}

}  // namespace

std::string PlorFingerprint(const std::string& case_folder, int code) {
  return Fingerprint().Add(ReadInput(CaseFile(case_folder, kDat1File), code)).Text();
}

PlorResult ComputePlor(const Dat1Building& building) {
  PlorResult r;
  r.volumes = building.volumes;
  r.elements = static_cast<int>(building.elements.size());
  for (size_t k = 0; k < building.elements.size(); ++k) CheckElement(building, k);
  r.surfaces = BuildSurfaces(building);
  for (const Surface& s : r.surfaces) {
    if (!(s.area > kLeastArea)) {
      Degenerate(building, s.element, s.in_hole ? "its hole has no area" : "it has no area");
    }
  }
  for (int v = 1; v <= building.volumes; ++v) r.volume_data.push_back(ComputeVolume(r.surfaces, v));
  for (size_t k = 0; k < r.surfaces.size(); ++k) {
    const Surface& s = r.surfaces[k];
    if (s.front != kOutdoor && s.back != kOutdoor) continue;
    PlorOutside o;
    o.surface = static_cast<int>(k);
    o.outward = s.normal;
    // Turned round: its outdoor side is the one away from its volume.
    if (s.front != kOutdoor) o.outward = OutwardOf(r, k);
    TiltAndAzimuth(o.outward, o.tilt, o.azimuth);
    o.sky = (1 + o.outward.z) / 2;
    o.ground = (1 - o.outward.z) / 2;
    r.outside.push_back(o);
  }
  return r;
}

// PLOR.RES, after its head line, tab separated, numbers in the shortest of
// ten significant digits:
//   COUNTS volumes elements surfaces
//   per surface: S number element(from 1) in_hole kind front back area tilt
//     azimuth nx ny nz points hole_points, then the line of the outline's
//     coordinates x y z ..., and when it has a hole the line of the hole's
//   per volume: V number surfaces floor_area air_volume, then per surface of
//     it F surface_number side and the view factors to each of its surfaces
//   per surface facing outdoors: O surface_number ox oy oz tilt azimuth sky ground
std::vector<std::string> PlorResultLines(const PlorResult& r) {
  std::vector<std::string> lines;
  lines.push_back("COUNTS\t" + std::to_string(r.volumes) + "\t" + std::to_string(r.elements) +
                  "\t" + std::to_string(r.surfaces.size()));
  auto points = [](const std::vector<Vec3>& loop) {
    std::string line = "P";
    for (const Vec3& p : loop) line += "\t" + Number(p.x) + "\t" + Number(p.y) + "\t" + Number(p.z);
    return line;
  };
  for (const Surface& s : r.surfaces) {
    lines.push_back("S\t" + std::to_string(s.number) + "\t" + std::to_string(s.element + 1) + "\t" +
                    (s.in_hole ? "1" : "0") + "\t" + std::to_string(static_cast<int>(s.kind)) +
                    "\t" + std::to_string(s.front) + "\t" + std::to_string(s.back) + "\t" +
                    Number(s.area) + "\t" + Number(s.tilt) + "\t" + Number(s.azimuth) + "\t" +
                    Number(s.normal.x) + "\t" + Number(s.normal.y) + "\t" + Number(s.normal.z) +
                    "\t" + std::to_string(s.outline.size()) + "\t" + std::to_string(s.hole.size()));
    lines.push_back(points(s.outline));
    if (!s.hole.empty()) lines.push_back(points(s.hole));
  }
  for (const PlorVolume& v : r.volume_data) {
    lines.push_back("V\t" + std::to_string(v.number) + "\t" + std::to_string(v.surfaces.size()) +
                    "\t" + Number(v.floor_area) + "\t" + Number(v.air_volume));
    for (size_t i = 0; i < v.surfaces.size(); ++i) {
      std::string line =
          "F\t" + std::to_string(v.surfaces[i] + 1) + "\t" + std::to_string(v.sides[i]);
      for (double f : v.view_factors[i]) line += "\t" + Number(f);
      lines.push_back(line);
    }
  }
  for (const PlorOutside& o : r.outside) {
    lines.push_back("O\t" + std::to_string(o.surface + 1) + "\t" + Number(o.outward.x) + "\t" +
                    Number(o.outward.y) + "\t" + Number(o.outward.z) + "\t" + Number(o.tilt) +
                    "\t" + Number(o.azimuth) + "\t" + Number(o.sky) + "\t" + Number(o.ground));
  }
  return lines;
}

namespace {

const char* const kKindTexts[] = {"opening", "wall", "window", "screen"};

std::string Padded(std::string text, size_t width) {
  if (text.size() < width) text.append(width - text.size(), ' ');
  return text;
}

}  // namespace

std::vector<std::string> PlorReportLines(const PlorResult& r, const Dat1Building& building) {
  std::vector<std::string> lines = {
      "PLOR - geometry of the building",
      building.headline,
      "",
      "Volumes: " + std::to_string(r.volumes) + "   Elements: " + std::to_string(r.elements) +
          "   Surfaces: " + std::to_string(r.surfaces.size()),
      "",
      "Surface  Element     Part  Kind     Front  Back   Area [m2]   Tilt  Azimuth"};
  for (const Surface& s : r.surfaces) {
    lines.push_back(Fixed(s.number, 0, 7) + "  " + Padded(building.elements[s.element].name, 10) +
                    "  " + (s.in_hole ? "hole  " : "main  ") +
                    Padded(kKindTexts[static_cast<int>(s.kind)], 7) + Fixed(s.front, 0, 7) +
                    Fixed(s.back, 0, 6) + Fixed(s.area, 3, 12) + Fixed(s.tilt, 1, 7) +
                    Fixed(s.azimuth, 1, 9));
  }
  lines.push_back("");
  lines.push_back("Volume  Surfaces  Floor area [m2]  Air volume [m3]");
  for (const PlorVolume& v : r.volume_data) {
    lines.push_back(Fixed(v.number, 0, 6) + Fixed(static_cast<double>(v.surfaces.size()), 0, 10) +
                    Fixed(v.floor_area, 3, 17) + Fixed(v.air_volume, 3, 17));
  }
  lines.push_back("");
  lines.push_back("Surfaces facing outdoors: view factors to the sky and the ground");
  lines.push_back("Surface   Tilt  Azimuth    Sky  Ground");
  for (const PlorOutside& o : r.outside) {
    lines.push_back(Fixed(r.surfaces[o.surface].number, 0, 7) + Fixed(o.tilt, 1, 7) +
                    Fixed(o.azimuth, 1, 9) + Fixed(o.sky, 3, 7) + Fixed(o.ground, 3, 8));
  }
  return lines;
}

namespace {

// The counts of DAT1.DAT's second line beyond the limits: more than the
// modules take, not a damaged file.
void CheckLimits(const std::string& path, const std::string& bytes) {
  size_t start = bytes.find('\n');
  if (start == std::string::npos) return;
  const std::string line = bytes.substr(start + 1, 14);
  for (size_t column : {0, 7}) {
    if (line.size() < column + 7) return;
    const std::string text = TrimBlanks(line.substr(column, 7));
    if (!IsSignedNumberText(text)) return;
    const double value = Val(text);
    const int limit = column == 0 ? kMaxVolumes : kMaxElements;
    if (value > limit && value == std::floor(value)) {
      throw ModuleFailure(kPlorTooMany, path + " holds " + text +
                                            (column == 0 ? " volumes" : " elements") +
                                            "; the modules take at most " + std::to_string(limit));
    }
  }
}

}  // namespace

void RunPlor(const std::string& case_folder) {
  const std::string path = CaseFile(case_folder, kDat1File);
  const std::string bytes = ReadInput(path, kPlorDat1Missing);
  CheckLimits(path, bytes);
  const std::string fingerprint = Fingerprint().Add(bytes).Text();
  const Dat1Building building = ParseDat1(path, bytes);
  PlorResult result = ComputePlor(building);
  result.fingerprint = fingerprint;
  WriteResult(CaseFile(case_folder, kPlorResultFile), kPlor, fingerprint, PlorResultLines(result));
  WriteResult(CaseFile(case_folder, kPlorReportFile), kPlor, fingerprint,
              PlorReportLines(result, building));
}

namespace {

constexpr int kMaxSurfaces = 2 * kMaxElements;

}  // namespace

PlorResult ParsePlorResult(const std::string& path, const std::vector<std::string>& lines) {
  ResultLines in(path, lines);
  PlorResult r;
  std::vector<std::string> f = in.Next("COUNTS", 3);
  r.volumes = in.Whole(f[1], 0, kMaxVolumes);
  r.elements = in.Whole(f[2], 0, kMaxElements);
  const int count = in.Whole(f[3], 0, kMaxSurfaces);
  for (int k = 0; k < count; ++k) {
    f = in.Next("S", 14);
    Surface s;
    s.number = in.Whole(f[1], k + 1, k + 1);
    s.element = static_cast<size_t>(in.Whole(f[2], 1, r.elements) - 1);
    s.in_hole = in.Whole(f[3], 0, 1) == 1;
    s.kind = static_cast<SurfaceKind>(in.Whole(f[4], 0, 3));
    s.front = in.Whole(f[5], kGround, r.volumes);
    s.back = in.Whole(f[6], kGround, r.volumes);
    s.area = in.Real(f[7]);
    s.tilt = in.Real(f[8]);
    s.azimuth = in.Real(f[9]);
    s.normal = {in.Real(f[10]), in.Real(f[11]), in.Real(f[12])};
    const int points = in.Whole(f[13], 3, 5), hole = in.Whole(f[14], 0, 4);
    if (hole != 0 && hole != 4) in.Fail("A hole has 4 points");
    s.outline = in.Points(static_cast<size_t>(points));
    if (hole) s.hole = in.Points(4);
    r.surfaces.push_back(s);
  }
  for (int v = 1; v <= r.volumes; ++v) {
    f = in.Next("V", 4);
    PlorVolume volume;
    volume.number = in.Whole(f[1], v, v);
    const int n = in.Whole(f[2], 1, count);
    volume.floor_area = in.Real(f[3]);
    volume.air_volume = in.Real(f[4]);
    for (int i = 0; i < n; ++i) {
      f = in.Next("F", 2 + static_cast<size_t>(n));
      if (f.size() != 3 + static_cast<size_t>(n)) in.Fail("The line must hold the view factors");
      volume.surfaces.push_back(in.Whole(f[1], 1, count) - 1);
      const int side = in.Whole(f[2], -1, 1);
      if (side == 0) in.Fail("A side is 1 or -1");
      volume.sides.push_back(side);
      std::vector<double> row;
      for (int j = 0; j < n; ++j) row.push_back(in.Real(f[3 + j]));
      volume.view_factors.push_back(row);
    }
    r.volume_data.push_back(volume);
  }
  while (!in.AtEnd()) {
    f = in.Next("O", 8);
    PlorOutside o;
    o.surface = in.Whole(f[1], 1, count) - 1;
    o.outward = {in.Real(f[2]), in.Real(f[3]), in.Real(f[4])};
    o.tilt = in.Real(f[5]);
    o.azimuth = in.Real(f[6]);
    o.sky = in.Real(f[7]);
    o.ground = in.Real(f[8]);
    r.outside.push_back(o);
  }
  return r;
}

PlorResult ReadPlorResult(const std::string& case_folder, int missing_code) {
  const std::string path = CaseFile(case_folder, kPlorResultFile);
  const std::string fingerprint = PlorFingerprint(case_folder, missing_code);
  PlorResult r = ParsePlorResult(path, ReadResult(path, kPlor, fingerprint, missing_code));
  r.fingerprint = fingerprint;
  return r;
}

}  // namespace zelmo::modules
