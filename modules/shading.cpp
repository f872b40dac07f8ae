#include "modules/shading.h"

#include <algorithm>
#include <cmath>

namespace zelmo::modules {

namespace {

using P2 = ShadowCaster::P2;
using Poly2 = ShadowCaster::Poly2;
using Box2 = ShadowCaster::Box2;

Box2 BoxOf(const Poly2& poly) {
  Box2 box;
  for (const auto& loop : poly) {
    for (P2 p : loop) box.Add(p);
  }
  return box;
}

// The crossings of the line v = const with a polygon's edges, sorted; taken
// in pairs they are the inside intervals (even-odd).
void Crossings(const Poly2& poly, double v, std::vector<double>& out) {
  out.clear();
  for (const auto& loop : poly) {
    for (size_t k = 0; k < loop.size(); ++k) {
      const P2 a = loop[k], b = loop[(k + 1) % loop.size()];
      if ((a.v <= v) == (b.v <= v)) continue;
      out.push_back(a.u + (v - a.v) / (b.v - a.v) * (b.u - a.u));
    }
  }
  std::sort(out.begin(), out.end());
  if (out.size() % 2) out.pop_back();
}

// The v of crossings of two polygons' edges, where the covered length may
// bend.
void EdgeCrossings(const Poly2& p, const Poly2& q, std::vector<double>& vs) {
  for (const auto& lp : p) {
    for (size_t i = 0; i < lp.size(); ++i) {
      const P2 a = lp[i], b = lp[(i + 1) % lp.size()];
      for (const auto& lq : q) {
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

}  // namespace

void ShadowCaster::Box2::Add(P2 p) {
  u0 = std::min(u0, p.u);
  u1 = std::max(u1, p.u);
  v0 = std::min(v0, p.v);
  v1 = std::max(v1, p.v);
}

bool ShadowCaster::Box2::Overlaps(const Box2& o) const {
  return u0 < o.u1 && o.u0 < u1 && v0 < o.v1 && o.v0 < v1;
}

ShadowCaster::ShadowCaster(const ShadingScene& scene) : normal_(scene.normal) {
  if (scene.receiver.empty() || scene.receiver[0].size() < 3) return;
  const Vec3 origin = scene.receiver[0][0];
  u_ = scene.receiver[0][1] - origin;
  u_ = (1 / Length(u_)) * u_;
  w_ = Cross(normal_, u_);
  for (const auto& loop : scene.receiver) {
    std::vector<P2> l;
    for (const Vec3& p : loop) l.push_back({Dot(p - origin, u_), Dot(p - origin, w_)});
    receiver_.push_back(l);
  }
  box_ = BoxOf(receiver_);
  for (const Loops& shader : scene.shaders) {
    std::vector<std::vector<P3>> loops;
    for (const auto& loop : shader) {
      std::vector<P3> l;
      for (const Vec3& p : ClipToFront(loop, origin, normal_)) {
        l.push_back({Dot(p - origin, u_), Dot(p - origin, w_), Dot(p - origin, normal_)});
      }
      if (l.size() >= 3) loops.push_back(l);
    }
    if (!loops.empty()) shaders_.push_back(loops);
  }
}

// The receiver's length and the part of it the first `shadows` shadows
// cover along the line v = const.
void ShadowCaster::LengthsAt(size_t shadows, double v, double& length, double& covered) {
  Crossings(receiver_, v, cut_);
  inside_.clear();
  for (size_t k = 0; k + 1 < cut_.size(); k += 2) inside_.push_back({cut_[k], cut_[k + 1]});
  shade_.clear();
  for (size_t s = 0; s < shadows; ++s) {
    Crossings(shadows_[s], v, cut_);
    for (size_t k = 0; k + 1 < cut_.size(); k += 2) shade_.push_back({cut_[k], cut_[k + 1]});
  }
  std::sort(shade_.begin(), shade_.end(), [](Interval x, Interval y) { return x.a < y.a; });
  // The union of the shadows' intervals.
  merged_.clear();
  for (Interval i : shade_) {
    if (!merged_.empty() && i.a <= merged_.back().b) {
      merged_.back().b = std::max(merged_.back().b, i.b);
    } else {
      merged_.push_back(i);
    }
  }
  length = covered = 0;
  for (Interval r : inside_) {
    length += r.b - r.a;
    for (Interval m : merged_) covered += std::max(0.0, std::min(r.b, m.b) - std::max(r.a, m.a));
  }
}

double ShadowCaster::SunlitFraction(Vec3 sun) {
  const double facing = Dot(sun, normal_);
  if (receiver_.empty() || !(facing > 1e-9)) return 0;
  // A corner at height h in front of the plane casts its shadow h / facing
  // along the sun's ray back onto it.
  const double su = Dot(sun, u_) / facing, sv = Dot(sun, w_) / facing;
  size_t count = 0;
  for (const auto& shader : shaders_) {
    if (shadows_.size() <= count) shadows_.emplace_back();
    Poly2& shadow = shadows_[count];
    shadow.resize(shader.size());
    Box2 box;
    for (size_t k = 0; k < shader.size(); ++k) {
      shadow[k].clear();
      for (const P3& p : shader[k]) {
        const P2 q{p.u - p.h * su, p.v - p.h * sv};
        shadow[k].push_back(q);
        box.Add(q);
      }
    }
    if (!box.Overlaps(box_)) continue;
    if (boxes_.size() <= count) boxes_.emplace_back();
    boxes_[count++] = box;
  }
  if (count == 0) return 1;
  // The bands: between the corners of every outline and the crossings of
  // their edges, inside the receiver's extent.
  vs_.clear();
  for (const auto& loop : receiver_) {
    for (P2 p : loop) vs_.push_back(p.v);
  }
  for (size_t i = 0; i < count; ++i) {
    for (const auto& loop : shadows_[i]) {
      for (P2 p : loop) vs_.push_back(p.v);
    }
    if (boxes_[i].Overlaps(box_)) EdgeCrossings(receiver_, shadows_[i], vs_);
    for (size_t j = i + 1; j < count; ++j) {
      if (boxes_[i].Overlaps(boxes_[j])) EdgeCrossings(shadows_[i], shadows_[j], vs_);
    }
  }
  std::sort(vs_.begin(), vs_.end());
  double area = 0, covered = 0;
  for (size_t k = 0; k + 1 < vs_.size(); ++k) {
    const double v0 = std::max(vs_[k], box_.v0), v1 = std::min(vs_[k + 1], box_.v1);
    if (!(v1 > v0)) continue;
    double length = 0, shaded = 0;
    LengthsAt(count, 0.5 * (v0 + v1), length, shaded);
    area += length * (v1 - v0);
    covered += shaded * (v1 - v0);
  }
  if (!(area > 0)) return 1;
  return std::clamp(1 - covered / area, 0.0, 1.0);
}

double SunlitFraction(const ShadingScene& scene, Vec3 sun) {
  return ShadowCaster(scene).SunlitFraction(sun);
}

}  // namespace zelmo::modules
