#include "modules/neb.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "core/text_file.h"
#include "modules/plor_lines.h"
#include "modules/shading.h"

namespace zelmo::modules {

namespace {

constexpr double kDegree = std::numbers::pi / 180;

std::string Number(double value, const char* format = "%.10g") {
  char text[40];
  std::snprintf(text, sizeof text, format, value == 0 ? 0.0 : value);
  return text;
}

Loops LoopsOf(const Surface& s) {
  Loops loops = {s.outline};
  if (!s.hole.empty()) loops.push_back(s.hole);
  return loops;
}

// The scene of a surface facing outdoors: every other surface that stands
// in front of it may shade it; an open hole lets the sun through.
ShadingScene SceneFor(const PlorResult& plor, size_t outside) {
  const PlorOutside& o = plor.outside[outside];
  const Surface& receiver = plor.surfaces[o.surface];
  ShadingScene scene;
  scene.receiver = LoopsOf(receiver);
  scene.normal = o.outward;
  const Vec3 origin = receiver.outline[0];
  const double reach = 1e-6 * (1 + Length(origin));
  for (size_t k = 0; k < plor.surfaces.size(); ++k) {
    const Surface& s = plor.surfaces[k];
    if (k == static_cast<size_t>(o.surface) || s.kind == SurfaceKind::kOpening) continue;
    const bool in_front = std::any_of(s.outline.begin(), s.outline.end(), [&](const Vec3& p) {
      return Dot(p - origin, o.outward) > reach;
    });
    if (in_front) scene.shaders.push_back(LoopsOf(s));
  }
  return scene;
}

}  // namespace

Vec3 SunDirection(double altitude, double azimuth) {
  const double a = altitude * kDegree, g = azimuth * kDegree;
  return {std::cos(a) * std::sin(g), std::cos(a) * std::cos(g), std::sin(a)};
}

double SunlitFractionFor(const PlorResult& plor, size_t outside, Vec3 sun) {
  return SunlitFraction(SceneFor(plor, outside), sun);
}

std::string NebFingerprint(const std::string& case_folder, int code) {
  return PlorFingerprint(case_folder, code);
}

NebResult ComputeNeb(const PlorResult& plor) {
  NebResult result;
  result.fingerprint = plor.fingerprint;
  for (size_t k = 0; k < plor.outside.size(); ++k) {
    const PlorOutside& o = plor.outside[k];
    NebSurface n;
    n.surface = o.surface;
    n.outward = o.outward;
    n.sky_view = o.sky;
    const ShadingScene scene = SceneFor(plor, k);
    ShadowCaster caster(scene);
    n.open = scene.shaders.empty();
    if (!n.open) {
      // The sky seen: the sunlit fraction of each direction of the grid
      // weighted by its cosine on the surface and its solid angle (cos of
      // the altitude, the trapezoidal rule in altitude), as a share of the
      // same sum unshaded, times the unshaded view factor to the sky.
      double seen = 0, whole = 0;
      n.table.assign(kNebAltitudes, std::vector<double>(kNebAzimuths, 0));
      for (int a = 0; a < kNebAltitudes; ++a) {
        const double edge = a == 0 || a == kNebAltitudes - 1 ? 0.5 : 1;
        for (int g = 0; g < kNebAzimuths; ++g) {
          const Vec3 sun = SunDirection(a * kNebStep, g * kNebStep);
          const double fraction = caster.SunlitFraction(sun);
          n.table[a][g] = fraction;
          const double weight =
              std::max(0.0, Dot(sun, o.outward)) * std::cos(a * kNebStep * kDegree) * edge;
          seen += weight * fraction;
          whole += weight;
        }
      }
      n.sky_view = whole > 0 ? o.sky * seen / whole : 0;
    }
    result.surfaces.push_back(std::move(n));
  }
  return result;
}

double SunlitFraction(const NebResult& neb, size_t surface, Vec3 sun) {
  if (surface >= neb.surfaces.size()) return 0;
  const NebSurface& n = neb.surfaces[surface];
  if (!(Dot(sun, n.outward) > 0) || !(sun.z >= 0)) return 0;
  if (n.open) return 1;
  const double altitude = std::asin(std::clamp(sun.z / Length(sun), -1.0, 1.0)) / kDegree;
  double azimuth = std::atan2(sun.x, sun.y) / kDegree;
  if (azimuth < 0) azimuth += 360;
  const double fa = std::clamp(altitude / kNebStep, 0.0, kNebAltitudes - 1.0);
  const double fg = azimuth / kNebStep;
  const int a0 = std::min(static_cast<int>(fa), kNebAltitudes - 2);
  const int g0 = static_cast<int>(fg) % kNebAzimuths, g1 = (g0 + 1) % kNebAzimuths;
  const double ta = fa - a0, tg = fg - std::floor(fg);
  const auto& t = n.table;
  return (1 - ta) * ((1 - tg) * t[a0][g0] + tg * t[a0][g1]) +
         ta * ((1 - tg) * t[a0 + 1][g0] + tg * t[a0 + 1][g1]);
}

// NEB.RES, after its head line, tab separated:
//   GRID altitudes azimuths step
//   SURFACES count
//   per surface facing outdoors: N surface_number ox oy oz sky_view open(1/0),
//     and when not open the lines T of its table, one per altitude from 0 up,
//     each with the sunlit fraction at every azimuth from 0 (four decimals)
std::vector<std::string> NebResultLines(const NebResult& r) {
  std::vector<std::string> lines = {"GRID\t" + std::to_string(kNebAltitudes) + "\t" +
                                        std::to_string(kNebAzimuths) + "\t" + Number(kNebStep),
                                    "SURFACES\t" + std::to_string(r.surfaces.size())};
  for (const NebSurface& n : r.surfaces) {
    lines.push_back("N\t" + std::to_string(n.surface + 1) + "\t" + Number(n.outward.x) + "\t" +
                    Number(n.outward.y) + "\t" + Number(n.outward.z) + "\t" + Number(n.sky_view) +
                    "\t" + (n.open ? "1" : "0"));
    for (const auto& row : n.table) {
      std::string line = "T";
      for (double f : row) line += "\t" + Number(f, "%.4f");
      lines.push_back(line);
    }
  }
  return lines;
}

std::vector<std::string> NebReportLines(const NebResult& r, const PlorResult& plor) {
  std::vector<std::string> lines = {
      "NEB - shading of the surfaces facing outdoors", "",
      "Sun directions: altitude 0 to 90 and azimuth 0 to 355 degrees in steps of " +
          Number(kNebStep, "%.0f") + " (building frame)",
      "", "Surface  Element   Tilt  Azimuth  Sky view  Sky seen  Shading"};
  for (const NebSurface& n : r.surfaces) {
    const Surface& s = plor.surfaces[n.surface];
    double tilt = 0, azimuth = 0;
    TiltAndAzimuth(n.outward, tilt, azimuth);
    const double unshaded = (1 + n.outward.z) / 2;
    lines.push_back(Number(s.number, "%7.0f") +
                    Number(static_cast<double>(s.element + 1), "%9.0f") + Number(tilt, "%7.1f") +
                    Number(azimuth, "%9.1f") + Number(unshaded, "%10.3f") +
                    Number(n.sky_view, "%10.3f") + (n.open ? "  none" : "  shaded"));
  }
  return lines;
}

void RunNeb(const std::string& case_folder) {
  NebFingerprint(case_folder, kNebDat1Missing);
  const PlorResult plor = ReadPlorResult(case_folder, kNebPlorMissing);
  const NebResult result = ComputeNeb(plor);
  WriteResult(CaseFile(case_folder, kNebResultFile), kNeb, plor.fingerprint,
              NebResultLines(result));
  WriteResult(CaseFile(case_folder, kNebReportFile), kNeb, plor.fingerprint,
              NebReportLines(result, plor));
}

}  // namespace zelmo::modules

namespace zelmo::modules {

NebResult ParseNebResult(const std::string& path, const std::vector<std::string>& lines) {
  ResultLines in(path, lines);
  std::vector<std::string> f = in.Next("GRID", 3);
  if (in.Whole(f[1], 0, 1000) != kNebAltitudes || in.Whole(f[2], 0, 1000) != kNebAzimuths ||
      in.Real(f[3]) != kNebStep) {
    in.Fail("The grid of sun directions must be " + std::to_string(kNebAltitudes) + " by " +
            std::to_string(kNebAzimuths));
  }
  f = in.Next("SURFACES", 1);
  const int count = in.Whole(f[1], 0, 2 * kMaxElements);
  NebResult r;
  for (int k = 0; k < count; ++k) {
    f = in.Next("N", 6);
    NebSurface n;
    n.surface = in.Whole(f[1], 1, 2 * kMaxElements) - 1;
    n.outward = {in.Real(f[2]), in.Real(f[3]), in.Real(f[4])};
    n.sky_view = in.Real(f[5]);
    n.open = in.Whole(f[6], 0, 1) == 1;
    if (!n.open) {
      for (int a = 0; a < kNebAltitudes; ++a) {
        f = in.Next("T", kNebAzimuths);
        if (f.size() != kNebAzimuths + 1) in.Fail("The line must hold a value for each azimuth");
        std::vector<double> row;
        for (int g = 0; g < kNebAzimuths; ++g) {
          const double value = in.Real(f[1 + g]);
          if (value < 0 || value > 1) in.Fail("A sunlit fraction lies from 0 to 1");
          row.push_back(value);
        }
        n.table.push_back(row);
      }
    }
    r.surfaces.push_back(std::move(n));
  }
  in.ExpectEnd("Text follows the last surface");
  return r;
}

NebResult ReadNebResult(const std::string& case_folder, int missing_code) {
  const std::string path = CaseFile(case_folder, kNebResultFile);
  const std::string fingerprint = NebFingerprint(case_folder, missing_code);
  NebResult r = ParseNebResult(path, ReadResult(path, kNeb, fingerprint, missing_code));
  r.fingerprint = fingerprint;
  return r;
}

}  // namespace zelmo::modules
