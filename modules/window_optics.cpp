#include "modules/window_optics.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zelmo::modules {

namespace {

constexpr double kDegree = std::numbers::pi / 180;
// Intervals of the hemispherical integration (Simpson's rule, 1 degree).
constexpr int kHemisphereIntervals = 90;

// A slab's faces for one face reflectance r and the internal transmittance
// a along the slanted path: the reflections between the faces summed.
SolarFaces SlabFaces(double r, double a) {
  const double between = 1 - r * r * a * a;
  const double tau = a * (1 - r) * (1 - r) / between;
  const double rho = r + r * (1 - r) * (1 - r) * a * a / between;
  return {tau, rho, rho};
}

SolarFaces Reverse(SolarFaces faces) {
  std::swap(faces.rho_front, faces.rho_back);
  return faces;
}

WindowOptics Average(const WindowOptics& a, const WindowOptics& b) {
  WindowOptics mean{(a.tau + b.tau) / 2, (a.rho + b.rho) / 2, a.absorbed};
  for (size_t j = 0; j < mean.absorbed.size(); ++j) {
    mean.absorbed[j] = (a.absorbed[j] + b.absorbed[j]) / 2;
  }
  return mean;
}

// One polarisation through the panes, from outdoors.
WindowOptics Through(const std::vector<SolarFaces>& panes) {
  const SolarStack stack = CombinePanes(panes);
  return {stack.whole.tau, stack.whole.rho_front, stack.absorbed};
}

// From the room: the panes in the other order, each turned round.
WindowOptics Back(std::vector<SolarFaces> panes) {
  std::reverse(panes.begin(), panes.end());
  for (SolarFaces& pane : panes) pane = Reverse(pane);
  WindowOptics optics = Through(panes);
  std::reverse(optics.absorbed.begin(), optics.absorbed.end());
  return optics;
}

WindowOptics Optics(const std::vector<PaneOptics>& panes, double degrees, bool front) {
  std::vector<SolarFaces> s, p;
  for (const PaneOptics& pane : panes) {
    const PolarisedFaces faces = pane.At(degrees);
    s.push_back(faces.s);
    p.push_back(faces.p);
  }
  if (front) return Average(Through(s), Through(p));
  return Average(Back(s), Back(p));
}

WindowOptics Diffuse(const std::vector<PaneOptics>& panes, bool front) {
  // 2 x integral over 0 to 90 degrees of X sin cos; nothing passes at 90.
  WindowOptics sum{0, 0, std::vector<double>(panes.size(), 0.0)};
  const double h = 90.0 / kHemisphereIntervals;
  for (int i = 0; i <= kHemisphereIntervals; ++i) {
    const double degrees = i * h;
    const double weight = (i == 0 || i == kHemisphereIntervals ? 1 : (i % 2 ? 4 : 2)) *
                          std::sin(degrees * kDegree) * std::cos(degrees * kDegree);
    if (!(weight > 0)) continue;
    const WindowOptics at = Optics(panes, degrees, front);
    sum.tau += weight * at.tau;
    sum.rho += weight * at.rho;
    for (size_t j = 0; j < panes.size(); ++j) sum.absorbed[j] += weight * at.absorbed[j];
  }
  const double scale = 2 * h * kDegree / 3;
  sum.tau *= scale;
  sum.rho *= scale;
  for (double& a : sum.absorbed) a *= scale;
  // What the rule leaves over in the sum of the parts goes to reflection,
  // so the parts sum to 1 as every angle's do.
  double parts = sum.tau;
  for (double a : sum.absorbed) parts += a;
  sum.rho = 1 - parts;
  return sum;
}

}  // namespace

std::optional<GlassSlab> SlabOfFresnel(double thickness_mm, double refraction, double extinction) {
  if (!(thickness_mm >= 0 && refraction >= 1 && extinction >= 0)) return std::nullopt;
  const double face = (refraction - 1) / (refraction + 1);
  const double internal = std::exp(-extinction * thickness_mm / 1000);
  if (!std::isfinite(face) || !std::isfinite(internal)) return std::nullopt;
  return GlassSlab{face * face, internal, refraction};
}

std::optional<GlassSlab> SlabOfNormal(double tau, double rho) {
  if (!(tau > 0 && rho >= 0 && tau + rho < 1)) return std::nullopt;
  // rho = r (1 + a tau) and tau = a (1 - r)^2 / (1 - r^2 a^2): for a given
  // r the second is a quadratic in a; r and a in turn until both stand.
  double r = rho / (1 + tau), a = 1;
  for (int round = 0; round < 200; ++round) {
    const double q = (1 - r) * (1 - r);
    const double next =
        r > 1e-12 ? (std::sqrt(q * q + 4 * tau * tau * r * r) - q) / (2 * tau * r * r) : tau / q;
    const double next_r = rho / (1 + next * tau);
    const bool settled = std::fabs(next - a) < 1e-14 && std::fabs(next_r - r) < 1e-14;
    a = next;
    r = next_r;
    if (settled) break;
  }
  if (!(r >= 0 && r < 1 && a > 0 && a <= 1 + 1e-12)) return std::nullopt;
  const double root = std::sqrt(r);
  return GlassSlab{r, std::min(a, 1.0), (1 + root) / (1 - root)};
}

PaneOptics PaneOptics::Slab(const GlassSlab& slab) {
  PaneOptics pane;
  pane.slab_ = slab;
  return pane;
}

PaneOptics PaneOptics::Table(std::vector<SolarFaces> rows) {
  PaneOptics pane;
  pane.table_ = std::move(rows);
  return pane;
}

PaneOptics PaneOptics::Reversed() const {
  PaneOptics pane = *this;
  pane.reversed_ = !reversed_;
  return pane;
}

PolarisedFaces PaneOptics::At(double degrees) const {
  PolarisedFaces faces;
  if (slab_) {
    const GlassSlab& g = *slab_;
    const double theta = std::clamp(degrees, 0.0, 90.0) * kDegree;
    if (theta >= std::numbers::pi / 2 - 1e-9) {
      faces.s = faces.p = {0, 1, 1};
    } else if (theta < 1e-9 || g.refraction <= 1) {
      faces.s = faces.p = SlabFaces(g.face, g.internal);
    } else {
      const double inside = std::asin(std::sin(theta) / g.refraction);
      const double rs = std::pow(std::sin(inside - theta) / std::sin(inside + theta), 2);
      const double rp = std::pow(std::tan(inside - theta) / std::tan(inside + theta), 2);
      const double path = std::pow(g.internal, 1 / std::cos(inside));
      faces.s = SlabFaces(rs, path);
      faces.p = SlabFaces(rp, path);
    }
  } else if (table_.size() == 1) {
    faces.s = faces.p = degrees >= 90 ? SolarFaces{0, 1, 1} : table_[0];
  } else if (!table_.empty()) {
    const double step = 90.0 / static_cast<double>(table_.size() - 1);
    const double at = std::clamp(degrees, 0.0, 90.0) / step;
    const size_t row = std::min(static_cast<size_t>(at), table_.size() - 2);
    const double w = at - static_cast<double>(row);
    const SolarFaces& a = table_[row];
    const SolarFaces& b = table_[row + 1];
    faces.s = faces.p = {a.tau + w * (b.tau - a.tau), a.rho_front + w * (b.rho_front - a.rho_front),
                         a.rho_back + w * (b.rho_back - a.rho_back)};
  }
  if (reversed_) {
    faces.s = Reverse(faces.s);
    faces.p = Reverse(faces.p);
  }
  return faces;
}

std::optional<PaneOptics> PaneOpticsOf(const LibraryGlass& glass, bool reversed) {
  std::optional<PaneOptics> pane;
  if (glass.type == "2") {
    if (const auto slab = SlabOfFresnel(glass.thickness_mm, glass.refraction, glass.extinction)) {
      pane = PaneOptics::Slab(*slab);
    }
  } else if (glass.type == "3") {
    if (const auto slab = SlabOfNormal(glass.tau, glass.rho_front)) pane = PaneOptics::Slab(*slab);
  } else if (!glass.table.empty()) {
    for (const SolarFaces& row : glass.table) {
      if (!SoundFaces(row)) return std::nullopt;
    }
    pane = PaneOptics::Table(glass.table);
  }
  if (pane && reversed) pane = pane->Reversed();
  return pane;
}

WindowOptics FrontOptics(const std::vector<PaneOptics>& panes, double degrees) {
  return Optics(panes, degrees, true);
}

WindowOptics BackOptics(const std::vector<PaneOptics>& panes, double degrees) {
  return Optics(panes, degrees, false);
}

WindowOptics FrontDiffuse(const std::vector<PaneOptics>& panes) { return Diffuse(panes, true); }

WindowOptics BackDiffuse(const std::vector<PaneOptics>& panes) { return Diffuse(panes, false); }

}  // namespace zelmo::modules
