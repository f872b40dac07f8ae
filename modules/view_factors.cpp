#include "modules/view_factors.h"

#include <cmath>
#include <numbers>

namespace zelmo::modules {

namespace {

// Gauss-Legendre nodes and weights on [-1, 1], 10 points.
constexpr double kNodes[] = {-0.9739065285171717, -0.8650633666889845, -0.6794095682990244,
                             -0.4333953941292472, -0.1488743389816312, 0.1488743389816312,
                             0.4333953941292472,  0.6794095682990244,  0.8650633666889845,
                             0.9739065285171717};
constexpr double kWeights[] = {0.0666713443086881, 0.1494513491505806, 0.2190863625159820,
                               0.2692667143993092, 0.2955242247147529, 0.2955242247147529,
                               0.2692667143993092, 0.2190863625159820, 0.1494513491505806,
                               0.0666713443086881};

// The integral of ln sqrt(u^2 + h^2) du from 0 to u (h >= 0), less its value
// at 0: u ln sqrt(u^2 + h^2) - u + h atan(u / h).
double LogPrimitive(double u, double h) {
  const double r2 = u * u + h * h;
  double value = r2 > 0 ? 0.5 * u * std::log(r2) - u : 0;
  if (h > 0) value += h * std::atan(u / h);
  return value;
}

// The integral of ln |P - Q(t)| along the segment from q0 to q1.
double LineLogIntegral(Vec3 p, Vec3 q0, Vec3 dir, double length) {
  const Vec3 d = p - q0;
  const double t0 = Dot(d, dir);
  const double h = std::sqrt(std::fmax(0.0, Dot(d, d) - t0 * t0));
  return LogPrimitive(length - t0, h) - LogPrimitive(-t0, h);
}

struct Edge {
  Vec3 start, dir;
  double length;
};

// The edges of a loop, `sign` +1 for an outline and -1 for a hole; edges
// of no length are left out.
void AddEdges(const std::vector<Vec3>& loop, double sign, std::vector<Edge>& edges,
              std::vector<double>& signs) {
  for (size_t k = 0; k < loop.size(); ++k) {
    const Vec3 a = loop[k], b = loop[(k + 1) % loop.size()];
    const double length = Length(b - a);
    if (length < 1e-12) continue;
    edges.push_back({a, (1 / length) * (b - a), length});
    signs.push_back(sign);
  }
}

// The largest distance of a region's points in front of a plane.
double Reach(const PlaneRegion& r, Vec3 point, Vec3 normal) {
  double most = -1e300;
  for (const Vec3& p : r.outline) most = std::fmax(most, Dot(p - point, normal));
  return most;
}

void EdgesInFront(const PlaneRegion& r, Vec3 point, Vec3 normal, std::vector<Edge>& edges,
                  std::vector<double>& signs) {
  AddEdges(ClipToFront(r.outline, point, normal), 1, edges, signs);
  for (const auto& hole : r.holes) AddEdges(ClipToFront(hole, point, normal), -1, edges, signs);
}

}  // namespace

double ExchangeArea(const PlaneRegion& a, const PlaneRegion& b) {
  if (a.outline.empty() || b.outline.empty()) return 0;
  // Each must stand in front of the other by more than rounding.
  const double scale = 1e-9 * (1 + Length(a.outline[0]) + Length(b.outline[0]));
  if (Reach(b, a.outline[0], a.normal) <= scale || Reach(a, b.outline[0], b.normal) <= scale) {
    return 0;
  }
  std::vector<Edge> ea, eb;
  std::vector<double> sa, sb;
  EdgesInFront(a, b.outline[0], b.normal, ea, sa);
  EdgesInFront(b, a.outline[0], a.normal, eb, sb);
  double sum = 0;
  for (size_t i = 0; i < ea.size(); ++i) {
    for (size_t j = 0; j < eb.size(); ++j) {
      const double cosine = Dot(ea[i].dir, eb[j].dir);
      if (std::fabs(cosine) < 1e-15) continue;
      double line = 0;
      for (size_t k = 0; k < std::size(kNodes); ++k) {
        const Vec3 p = ea[i].start + (0.5 * ea[i].length * (kNodes[k] + 1)) * ea[i].dir;
        line += kWeights[k] * LineLogIntegral(p, eb[j].start, eb[j].dir, eb[j].length);
      }
      sum += sa[i] * sb[j] * cosine * 0.5 * ea[i].length * line;
    }
  }
  // Rounding may leave a pair that barely sees each other just below zero.
  return std::fmax(0.0, sum / (2 * std::numbers::pi));
}

void SmoothExchangeAreas(std::vector<std::vector<double>>& s, const std::vector<double>& areas) {
  const size_t n = areas.size();
  // Lawson: s_ij += w_ij (l_i + l_j), w_ij = s_ij^2, with the multipliers l
  // solving sum_j w_ij (l_i + l_j) = area_i - sum_j s_ij.
  std::vector<std::vector<double>> m(n, std::vector<double>(n + 1, 0));
  for (size_t i = 0; i < n; ++i) {
    double row = 0;
    for (size_t j = 0; j < n; ++j) {
      const double w = s[i][j] * s[i][j];
      m[i][j] += w;
      m[i][i] += w;
      row += s[i][j];
    }
    m[i][n] = areas[i] - row;
  }
  // Gaussian elimination with partial pivoting.
  for (size_t c = 0; c < n; ++c) {
    size_t pivot = c;
    for (size_t r = c + 1; r < n; ++r) {
      if (std::fabs(m[r][c]) > std::fabs(m[pivot][c])) pivot = r;
    }
    if (!(std::fabs(m[pivot][c]) > 1e-300)) return;
    std::swap(m[c], m[pivot]);
    for (size_t r = c + 1; r < n; ++r) {
      const double f = m[r][c] / m[c][c];
      if (f == 0) continue;
      for (size_t k = c; k <= n; ++k) m[r][k] -= f * m[c][k];
    }
  }
  std::vector<double> l(n, 0);
  for (size_t c = n; c-- > 0;) {
    double v = m[c][n];
    for (size_t k = c + 1; k < n; ++k) v -= m[c][k] * l[k];
    l[c] = v / m[c][c];
  }
  for (double v : l) {
    if (!std::isfinite(v)) return;
  }
  for (size_t i = 0; i < n; ++i) {
    for (size_t j = 0; j < n; ++j) s[i][j] += s[i][j] * s[i][j] * (l[i] + l[j]);
  }
}

std::vector<std::vector<double>> EnclosureViewFactors(const std::vector<PlaneRegion>& regions,
                                                      const std::vector<double>& areas) {
  const size_t n = regions.size();
  std::vector<std::vector<double>> s(n, std::vector<double>(n, 0));
  for (size_t i = 0; i < n; ++i) {
    for (size_t j = i + 1; j < n; ++j) s[i][j] = s[j][i] = ExchangeArea(regions[i], regions[j]);
  }
  SmoothExchangeAreas(s, areas);
  for (size_t i = 0; i < n; ++i) {
    for (size_t j = 0; j < n; ++j) s[i][j] = areas[i] > 0 ? s[i][j] / areas[i] : 0;
  }
  return s;
}

}  // namespace zelmo::modules
