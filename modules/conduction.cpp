#include "modules/conduction.h"

#include <algorithm>
#include <cmath>

namespace zelmo::modules {

namespace {

// Solves the tridiagonal system of `diagonal` and the couplings -coupling[i]
// between unknowns i and i + 1 (Thomas algorithm); `rhs` becomes the answer.
// The system is diagonally dominant for conductances above 0, so no pivot
// is needed.
void SolveTridiagonal(const std::vector<double>& diagonal, const std::vector<double>& coupling,
                      std::vector<double>& rhs) {
  const size_t n = diagonal.size();
  if (n == 0) return;
  std::vector<double> upper(n);
  double pivot = diagonal[0];
  upper[0] = n > 1 ? -coupling[0] / pivot : 0;
  rhs[0] /= pivot;
  for (size_t i = 1; i < n; ++i) {
    pivot = diagonal[i] + coupling[i - 1] * upper[i - 1];
    upper[i] = i + 1 < n ? -coupling[i] / pivot : 0;
    rhs[i] = (rhs[i] + coupling[i - 1] * rhs[i - 1]) / pivot;
  }
  for (size_t i = n - 1; i-- > 0;) rhs[i] -= upper[i] * rhs[i + 1];
}

}  // namespace

void ConductionStep::SolveInner(std::vector<double>& rhs) const {
  const size_t n = inner_pivot_.size();
  if (n == 0) return;
  rhs[0] /= inner_pivot_[0];
  for (size_t i = 1; i < n; ++i) {
    rhs[i] = (rhs[i] + inner_coupling_[i - 1] * rhs[i - 1]) / inner_pivot_[i];
  }
  for (size_t i = n - 1; i-- > 0;) rhs[i] -= inner_upper_[i] * rhs[i + 1];
}

int CellsFor(const Layer& layer) {
  const double volumetric = layer.density * layer.specific_heat;
  if (!(volumetric > 0) || !(layer.conductivity > 0) || !(layer.thickness > 0)) return 1;
  const double diffusivity = layer.conductivity / volumetric;
  const double spacing = std::sqrt(kSpaceConstant * diffusivity * kReferenceStep);
  const double cells = std::ceil(layer.thickness / spacing);
  if (!(cells >= 1)) return 1;
  return cells > kMaxCellsPerLayer ? kMaxCellsPerLayer : static_cast<int>(cells);
}

Construction Discretise(const std::vector<Layer>& layers, int refine) {
  Construction c;
  c.capacity.push_back(0);
  double resistance = 0;
  for (const Layer& layer : layers) {
    const int cells = CellsFor(layer) * std::max(refine, 1);
    const double width = layer.thickness / cells;
    const double half = std::max(layer.density * layer.specific_heat, 0.0) * width / 2;
    for (int cell = 0; cell < cells; ++cell) {
      c.capacity.back() += half;
      c.capacity.push_back(half);
      c.conductance.push_back(layer.conductivity / width);
    }
    resistance += layer.thickness / layer.conductivity;
  }
  c.u = resistance > 0 ? 1 / resistance : 0;
  return c;
}

ConductionStep::ConductionStep(const Construction& construction, double step_seconds)
    : conductance_(construction.conductance), step_(step_seconds) {
  // A step of no length is the steady state: no node stores heat.
  for (double capacity : construction.capacity) {
    capacity_.push_back(step_seconds > 0 ? capacity / step_seconds : 0);
  }
  const size_t n = capacity_.size();
  if (n < 2 || conductance_.size() + 1 != n) {
    capacity_.clear();
    conductance_.clear();
    return;
  }
  // The inner nodes 1 to n-2 with both faces held.
  const size_t inner = n - 2;
  inner_diagonal_.resize(inner);
  if (inner > 1) inner_coupling_.assign(conductance_.begin() + 1, conductance_.end() - 1);
  for (size_t i = 0; i < inner; ++i) {
    inner_diagonal_[i] = capacity_[i + 1] + conductance_[i] + conductance_[i + 1];
  }
  // The inner system factorised once (Thomas algorithm).
  inner_pivot_.resize(inner);
  inner_upper_.resize(inner);
  for (size_t i = 0; i < inner; ++i) {
    inner_pivot_[i] =
        inner_diagonal_[i] + (i > 0 ? inner_coupling_[i - 1] * inner_upper_[i - 1] : 0);
    inner_upper_[i] = i + 1 < inner ? -inner_coupling_[i] / inner_pivot_[i] : 0;
  }
  by_out_.assign(inner, 0);
  by_in_.assign(inner, 0);
  scratch_.assign(inner, 0);
  if (inner > 0) {
    by_out_.front() = conductance_.front();
    by_in_.back() = conductance_.back();
    SolveInner(by_out_);
    SolveInner(by_in_);
  }
}

void ConductionStep::Advance(std::vector<double>& temperatures, const FaceCondition& outside,
                             const FaceCondition& inside) const {
  const size_t n = capacity_.size();
  if (n < 2 || temperatures.size() != n) return;
  std::vector<double> diagonal(n), rhs(n);
  for (size_t i = 0; i < n; ++i) {
    diagonal[i] =
        capacity_[i] + (i > 0 ? conductance_[i - 1] : 0) + (i + 1 < n ? conductance_[i] : 0);
    rhs[i] = capacity_[i] * temperatures[i];
  }
  diagonal.front() += outside.film;
  rhs.front() += outside.film * outside.air + outside.source;
  diagonal.back() += inside.film;
  rhs.back() += inside.film * inside.air + inside.source;
  SolveTridiagonal(diagonal, conductance_, rhs);
  temperatures = std::move(rhs);
}

FaceResponse ConductionStep::Response(const std::vector<double>& temperatures) const {
  FaceResponse r;
  const size_t n = capacity_.size();
  if (n < 2 || temperatures.size() != n) return r;
  const double g_out = conductance_.front(), g_in = conductance_.back();
  // The node next to each face: T = base + by_out T_out + by_in T_in.
  double out_base = 0, out_by_out = 0, out_by_in = 1;
  double in_base = 0, in_by_out = 1, in_by_in = 0;
  if (n > 2) {
    std::vector<double>& base = scratch_;
    for (size_t i = 0; i < base.size(); ++i) base[i] = capacity_[i + 1] * temperatures[i + 1];
    SolveInner(base);
    out_base = base.front();
    out_by_out = by_out_.front();
    out_by_in = by_in_.front();
    in_base = base.back();
    in_by_out = by_out_.back();
    in_by_in = by_in_.back();
  }
  r.out0 = -capacity_.front() * temperatures.front() - g_out * out_base;
  r.out_by_out = capacity_.front() + g_out - g_out * out_by_out;
  r.out_by_in = -g_out * out_by_in;
  r.in0 = -capacity_.back() * temperatures.back() - g_in * in_base;
  r.in_by_out = -g_in * in_by_out;
  r.in_by_in = capacity_.back() + g_in - g_in * in_by_in;
  return r;
}

void ConductionStep::AdvanceWithFaces(std::vector<double>& temperatures, double outside_face,
                                      double inside_face) const {
  const size_t n = capacity_.size();
  if (n < 2 || temperatures.size() != n) return;
  std::vector<double>& base = scratch_;
  for (size_t i = 0; i < base.size(); ++i) base[i] = capacity_[i + 1] * temperatures[i + 1];
  SolveInner(base);
  for (size_t i = 0; i < base.size(); ++i) {
    temperatures[i + 1] = base[i] + by_out_[i] * outside_face + by_in_[i] * inside_face;
  }
  temperatures.front() = outside_face;
  temperatures.back() = inside_face;
}

void ConductionStep::FaceFlows(const std::vector<double>& before, const std::vector<double>& after,
                               double& outside, double& inside) const {
  const size_t n = capacity_.size();
  outside = inside = 0;
  if (n < 2 || before.size() != n || after.size() != n) return;
  outside = capacity_.front() * (after.front() - before.front()) +
            conductance_.front() * (after.front() - after[1]);
  inside = capacity_.back() * (after.back() - before.back()) +
           conductance_.back() * (after.back() - after[n - 2]);
}

std::vector<double> SteadyTemperatures(const Construction& construction, double outside_face,
                                       double inside_face) {
  const size_t n = construction.capacity.size();
  std::vector<double> t(n, outside_face);
  if (n < 2 || construction.conductance.size() + 1 != n) return t;
  double total = 0;
  for (double g : construction.conductance) total += 1 / g;
  double passed = 0;
  for (size_t i = 1; i < n; ++i) {
    passed += 1 / construction.conductance[i - 1];
    t[i] = outside_face + (inside_face - outside_face) * passed / total;
  }
  return t;
}

}  // namespace zelmo::modules
