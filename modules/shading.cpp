#include "modules/shading.h"

#include <algorithm>
#include <cmath>

namespace zelmo::modules {

namespace {

struct P2 {
  double u, v;
};
using Loop2 = std::vector<P2>;
using Poly2 = std::vector<Loop2>;

struct Box2 {
  double u0 = 1e300, u1 = -1e300, v0 = 1e300, v1 = -1e300;
  void Add(P2 p) {
    u0 = std::min(u0, p.u);
    u1 = std::max(u1, p.u);
    v0 = std::min(v0, p.v);
    v1 = std::max(v1, p.v);
  }
  bool Overlaps(const Box2& o) const { return u0 < o.u1 && o.u0 < u1 && v0 < o.v1 && o.v0 < v1; }
};

Box2 BoxOf(const Poly2& poly) {
  Box2 box;
  for (const Loop2& loop : poly) {
    for (P2 p : loop) box.Add(p);
  }
  return box;
}

// The crossings of the line v = const with a polygon's edges, sorted; taken
// in pairs they are the inside intervals (even-odd).
void Crossings(const Poly2& poly, double v, std::vector<double>& out) {
  out.clear();
  for (const Loop2& loop : poly) {
    for (size_t k = 0; k < loop.size(); ++k) {
      const P2 a = loop[k], b = loop[(k + 1) % loop.size()];
      if ((a.v <= v) == (b.v <= v)) continue;
      out.push_back(a.u + (v - a.v) / (b.v - a.v) * (b.u - a.u));
    }
  }
  std::sort(out.begin(), out.end());
  if (out.size() % 2) out.pop_back();
}

struct Interval {
  double a, b;
};

// The v of crossings of two edges, where the covered length may bend.
void EdgeCrossings(const Poly2& p, const Poly2& q, std::vector<double>& vs) {
  for (const Loop2& lp : p) {
    for (size_t i = 0; i < lp.size(); ++i) {
      const P2 a = lp[i], b = lp[(i + 1) % lp.size()];
      for (const Loop2& lq : q) {
        for (size_t j = 0; j < lq.size(); ++j) {
          const P2 c = lq[j], d = lq[(j + 1) % lq.size()];
          const double den = (b.u - a.u) * (d.v - c.v) - (b.v - a.v) * (d.u - c.u);
          if (std::fabs(den) < 1e-300) continue;
          const double t = ((c.u - a.u) * (d.v - c.v) - (c.v - a.v) * (d.u - c.u)) / den;
          const double s = ((c.u - a.u) * (b.v - a.v) - (c.v - a.v) * (b.u - a.u)) / den;
          if (t > 0 && t < 1 && s > 0 && s < 1) vs.push_back(a.v + t * (b.v - a.v));
        }
      }
    }
  }
}

// The receiver's length and the part of it covered by the shadows along
// the line v = const.
void LengthsAt(const Poly2& receiver, const std::vector<const Poly2*>& shadows, double v,
               double& length, double& covered) {
  static thread_local std::vector<double> cut;
  static thread_local std::vector<Interval> shade;
  Crossings(receiver, v, cut);
  std::vector<Interval> inside;
  for (size_t k = 0; k + 1 < cut.size(); k += 2) inside.push_back({cut[k], cut[k + 1]});
  shade.clear();
  for (const Poly2* shadow : shadows) {
    Crossings(*shadow, v, cut);
    for (size_t k = 0; k + 1 < cut.size(); k += 2) shade.push_back({cut[k], cut[k + 1]});
  }
  std::sort(shade.begin(), shade.end(), [](Interval x, Interval y) { return x.a < y.a; });
  // The union of the shadows' intervals.
  std::vector<Interval> merged;
  for (Interval i : shade) {
    if (!merged.empty() && i.a <= merged.back().b) {
      merged.back().b = std::max(merged.back().b, i.b);
    } else {
      merged.push_back(i);
    }
  }
  length = covered = 0;
  for (Interval r : inside) {
    length += r.b - r.a;
    for (Interval m : merged) covered += std::max(0.0, std::min(r.b, m.b) - std::max(r.a, m.a));
  }
}

}  // namespace

double SunlitFraction(const ShadingScene& scene, Vec3 sun) {
  const double facing = Dot(sun, scene.normal);
  if (scene.receiver.empty() || scene.receiver[0].size() < 3 || !(facing > 1e-9)) return 0;
  // The receiver's own plane coordinates.
  const Vec3 origin = scene.receiver[0][0];
  Vec3 u = scene.receiver[0][1] - origin;
  u = (1 / Length(u)) * u;
  const Vec3 w = Cross(scene.normal, u);
  auto flat = [&](Vec3 p) { return P2{Dot(p - origin, u), Dot(p - origin, w)}; };
  Poly2 receiver;
  for (const auto& loop : scene.receiver) {
    Loop2 l;
    for (const Vec3& p : loop) l.push_back(flat(p));
    receiver.push_back(l);
  }
  const Box2 box = BoxOf(receiver);
  std::vector<Poly2> shadows;
  for (const Loops& shader : scene.shaders) {
    Poly2 shadow;
    for (const auto& loop : shader) {
      Loop2 l;
      for (const Vec3& p : ClipToFront(loop, origin, scene.normal)) {
        const double height = Dot(p - origin, scene.normal);
        l.push_back(flat(p - (height / facing) * sun));
      }
      if (l.size() >= 3) shadow.push_back(l);
    }
    if (!shadow.empty() && BoxOf(shadow).Overlaps(box)) shadows.push_back(std::move(shadow));
  }
  if (shadows.empty()) return 1;
  // The bands: between the corners of every outline and the crossings of
  // their edges, inside the receiver's extent.
  std::vector<double> vs;
  std::vector<const Poly2*> all = {&receiver};
  for (const Poly2& s : shadows) all.push_back(&s);
  for (const Poly2* poly : all) {
    for (const Loop2& loop : *poly) {
      for (P2 p : loop) vs.push_back(p.v);
    }
  }
  for (size_t i = 0; i < all.size(); ++i) {
    for (size_t j = i + 1; j < all.size(); ++j) {
      if (BoxOf(*all[i]).Overlaps(BoxOf(*all[j]))) EdgeCrossings(*all[i], *all[j], vs);
    }
  }
  std::sort(vs.begin(), vs.end());
  std::vector<const Poly2*> shadow_list(all.begin() + 1, all.end());
  double area = 0, covered = 0;
  for (size_t k = 0; k + 1 < vs.size(); ++k) {
    const double v0 = std::max(vs[k], box.v0), v1 = std::min(vs[k + 1], box.v1);
    if (!(v1 > v0)) continue;
    double length = 0, shaded = 0;
    LengthsAt(receiver, shadow_list, 0.5 * (v0 + v1), length, shaded);
    area += length * (v1 - v0);
    covered += shaded * (v1 - v0);
  }
  if (!(area > 0)) return 1;
  return std::clamp(1 - covered / area, 0.0, 1.0);
}

}  // namespace zelmo::modules
