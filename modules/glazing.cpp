#include "modules/glazing.h"

#include <algorithm>
#include <cmath>

namespace zelmo::modules {

namespace {

constexpr double kStefanBoltzmann = 5.67e-8;
constexpr double kGravity = 9.81;
// The Nusselt number of a vertical gas layer: A (Gr Pr)^n, never below 1.
constexpr double kNusseltA = 0.035, kNusseltN = 0.38;

bool Finite(double value) { return std::isfinite(value); }

// The sum of the reflections back and forth between two faces, 1 / (1 - r1
// r2). Two faces that reflect all pass nothing between them, so the sum
// multiplies only zeros then and is taken as 1.
double Between(double r1, double r2) {
  const double remaining = 1 - r1 * r2;
  return remaining > 1e-12 ? remaining : 1;
}

// Stack `b` behind stack `a`, outdoors first.
SolarFaces Behind(const SolarFaces& a, const SolarFaces& b) {
  const double between = Between(a.rho_back, b.rho_front);
  return {a.tau * b.tau / between, a.rho_front + a.tau * a.tau * b.rho_front / between,
          b.rho_back + b.tau * b.tau * a.rho_back / between};
}

// What passes through nothing.
constexpr SolarFaces kClear{1, 0, 0};

double Linear(double at_reference, double per_kelvin, double kelvin) {
  return at_reference + per_kelvin * (kelvin - kReferenceKelvin);
}

// The conductance of a gap's gas at its mean temperature and the
// temperature difference over it; nothing when the data give none.
std::optional<double> GasConductance(const GlazingGap& gap, double mean_kelvin, double difference) {
  const double width = gap.width_mm / 1000;
  const GasProperties& gas = gap.gas;
  const double k = Linear(gas.k, gas.dk, mean_kelvin);
  const double mu = Linear(gas.mu, gas.dmu, mean_kelvin);
  const double rho = Linear(gas.rho, gas.drho, mean_kelvin);
  double prandtl = Linear(gas.pr, gas.dpr, mean_kelvin);
  if (gas.pr > kSpecificHeatAbove) prandtl = mu * prandtl / k;
  if (!(width > 0 && k > 0 && mu > 0 && rho > 0 && prandtl > 0 && difference >= 0 &&
        mean_kelvin > 0)) {
    return std::nullopt;
  }
  const double grashof =
      kGravity * width * width * width * difference * rho * rho / (mean_kelvin * mu * mu);
  double nusselt = kNusseltA * std::pow(grashof * prandtl, kNusseltN);
  if (!(nusselt > 1)) nusselt = 1;
  const double conductance = nusselt * k / width;
  if (!Finite(conductance) || !(conductance > 0)) return std::nullopt;
  return conductance;
}

// The conductance of a gap, gas and radiation linearised at the mean
// temperature as EN 673 takes it; nothing when the data give none.
std::optional<double> GapConductance(const GlazingGap& gap, double eps_outer, double eps_inner,
                                     double mean_kelvin, double difference) {
  const auto gas = GasConductance(gap, mean_kelvin, difference);
  if (!gas) return std::nullopt;
  double radiation = 0;
  // A face that emits nothing passes no radiation across the gap.
  if (eps_outer > 0 && eps_inner > 0) {
    const double exchange = 1 / eps_outer + 1 / eps_inner - 1;
    if (!(exchange > 0)) return std::nullopt;
    radiation = 4 * kStefanBoltzmann * mean_kelvin * mean_kelvin * mean_kelvin / exchange;
  }
  const double conductance = *gas + radiation;
  if (!Finite(conductance) || !(conductance > 0)) return std::nullopt;
  return conductance;
}

// The resistances of the gaps under the standard conditions: the 15 K over
// the gaps is shared by their resistances, and each gap's gas is taken at its
// own mean temperature, until neither changes.
std::optional<std::vector<double>> GapResistances(const Glazing& glazing) {
  const size_t gaps = glazing.gaps.size();
  std::vector<double> resistances(gaps);
  if (gaps == 0) return resistances;
  std::vector<double> differences(gaps, kGapsDifference / static_cast<double>(gaps));
  for (int round = 0; round < 200; ++round) {
    double face = kReferenceKelvin - kGapsDifference / 2;
    double sum = 0;
    for (size_t j = 0; j < gaps; ++j) {
      const auto conductance =
          GapConductance(glazing.gaps[j], glazing.panes[j].eps_back, glazing.panes[j + 1].eps_front,
                         face + differences[j] / 2, differences[j]);
      if (!conductance) return std::nullopt;
      face += differences[j];
      resistances[j] = 1 / *conductance;
      sum += resistances[j];
    }
    double change = 0;
    for (size_t j = 0; j < gaps; ++j) {
      const double shared = kGapsDifference * resistances[j] / sum;
      change = std::max(change, std::fabs(shared - differences[j]));
      differences[j] = shared;
    }
    if (change < 1e-10) break;
  }
  return resistances;
}

}  // namespace

bool SoundFaces(const SolarFaces& faces) {
  auto fraction = [](double value) { return value >= -1e-9 && value <= 1 + 1e-9; };
  return fraction(faces.tau) && fraction(faces.rho_front) && fraction(faces.rho_back) &&
         fraction(faces.tau + faces.rho_front) && fraction(faces.tau + faces.rho_back);
}

std::optional<SolarFaces> FresnelSlab(double thickness_mm, double refraction, double extinction) {
  if (!(thickness_mm >= 0 && refraction > 0)) return std::nullopt;
  const double face = (refraction - 1) / (refraction + 1);
  const double r = face * face;
  const double inner = std::exp(-extinction * thickness_mm / 1000);
  const double between = 1 - r * r * inner * inner;
  if (!(between > 0) || !Finite(inner)) return std::nullopt;
  const double tau = (1 - r) * (1 - r) * inner / between;
  const double rho = r + (1 - r) * (1 - r) * r * inner * inner / between;
  return SolarFaces{tau, rho, rho};
}

SolarStack CombinePanes(const std::vector<SolarFaces>& panes) {
  const size_t n = panes.size();
  // outer[k]: panes 0 to k-1 together; inner[k]: panes k to n-1.
  std::vector<SolarFaces> outer(n + 1, kClear), inner(n + 1, kClear);
  for (size_t k = 1; k <= n; ++k) outer[k] = Behind(outer[k - 1], panes[k - 1]);
  for (size_t k = n; k-- > 0;) inner[k] = Behind(panes[k], inner[k + 1]);
  // What travels inwards and outwards between pane k-1 and pane k.
  std::vector<double> in(n + 1), out(n + 1);
  for (size_t k = 0; k <= n; ++k) {
    in[k] = outer[k].tau / Between(outer[k].rho_back, inner[k].rho_front);
    out[k] = k < n ? inner[k].rho_front * in[k] : 0;
  }
  SolarStack stack;
  stack.whole = outer[n];
  for (size_t j = 0; j < n; ++j) {
    const SolarFaces& p = panes[j];
    stack.absorbed.push_back(in[j] * (1 - p.tau - p.rho_front) +
                             out[j + 1] * (1 - p.tau - p.rho_back));
  }
  return stack;
}

std::optional<GlazingResult> ComputeGlazing(const Glazing& glazing) {
  const size_t n = glazing.panes.size();
  if (n == 0 || glazing.gaps.size() + 1 != n) return std::nullopt;
  for (const GlazingPane& pane : glazing.panes) {
    if (!(pane.thickness_mm >= 0)) return std::nullopt;
  }
  const auto gaps = GapResistances(glazing);
  if (!gaps) return std::nullopt;

  // U: surface resistances, gaps and glass in series.
  double series = 1 / kOutsideU + 1 / kInsideU;
  for (double r : *gaps) series += r;
  for (const GlazingPane& pane : glazing.panes) {
    series += pane.thickness_mm / 1000 / kGlassConductivity;
  }

  std::vector<SolarFaces> solar;
  for (const GlazingPane& pane : glazing.panes) solar.push_back(pane.solar);
  const SolarStack stack = CombinePanes(solar);

  // g: the heat each pane absorbs goes out and in by the resistances on
  // either side of it. The outer pane holds its heat at its outdoor face, the
  // room side pane at its room face and a middle pane at its centre, so the
  // glass of the outer and the room side panes lies between the panes.
  const double inside = 3.6 + 4.4 * glazing.panes.back().eps_back / 0.837;
  std::vector<double> to_outdoors(n, 1 / kOutsideG);
  for (size_t j = 1; j < n; ++j) {
    const double before = j == 1 ? 1.0 : 0.5;
    const double after = j == n - 1 ? 1.0 : 0.5;
    to_outdoors[j] =
        to_outdoors[j - 1] + (*gaps)[j - 1] +
        (before * glazing.panes[j - 1].thickness_mm + after * glazing.panes[j].thickness_mm) /
            1000 / kGlassConductivity;
  }
  const double total = to_outdoors[n - 1] + 1 / inside;
  double inwards = 0;
  std::vector<double> inward(n);
  for (size_t j = 0; j < n; ++j) {
    inward[j] = to_outdoors[j] / total;
    inwards += stack.absorbed[j] * inward[j];
  }

  GlazingResult result{1 / series, stack.whole.tau + inwards, stack.whole.tau, std::move(inward)};
  if (!Finite(result.u) || !Finite(result.g) || !Finite(result.tsol) || !(result.u > 0)) {
    return std::nullopt;
  }
  return result;
}

std::optional<double> CentreU(const Glazing& glazing, double h_out, double h_in, double t_out,
                              double t_in) {
  const size_t n = glazing.panes.size();
  if (n == 0 || glazing.gaps.size() + 1 != n || !(h_out > 0) || !(h_in > 0)) return std::nullopt;
  constexpr double kCelsius = 273.15;
  // Start from gaps of 5 W/m2,K; then each round the faces' temperatures
  // from the flow through the series, and the gaps again from them.
  std::vector<double> gaps(n - 1, 5.0);
  double u = 0;
  for (int round = 0; round < 200; ++round) {
    double series = 1 / h_out + 1 / h_in;
    for (const GlazingPane& pane : glazing.panes)
      series += pane.thickness_mm / 1000 / kGlassConductivity;
    for (double g : gaps) series += 1 / g;
    const double next = 1 / series;
    const double flow = next * (t_in - t_out);
    double face = t_out + flow / h_out;  // the outdoor face of pane 1
    double change = std::fabs(next - u);
    u = next;
    for (size_t j = 0; j + 1 < n; ++j) {
      const double outer = face + flow * glazing.panes[j].thickness_mm / 1000 / kGlassConductivity;
      const double inner = outer + flow / gaps[j];
      const auto gas = GapGasConductance(glazing.gaps[j], outer + kCelsius, inner + kCelsius);
      if (!gas) return std::nullopt;
      const double conductance =
          *gas + GapRadiativeConductance(glazing.panes[j].eps_back, glazing.panes[j + 1].eps_front,
                                         outer + kCelsius, inner + kCelsius);
      change = std::max(change, std::fabs(conductance - gaps[j]));
      gaps[j] = conductance;
      face = inner;
    }
    if (change < 1e-12) break;
  }
  if (!Finite(u) || !(u > 0)) return std::nullopt;
  return u;
}

std::optional<double> GapGasConductance(const GlazingGap& gap, double t1_kelvin, double t2_kelvin) {
  return GasConductance(gap, (t1_kelvin + t2_kelvin) / 2, std::fabs(t1_kelvin - t2_kelvin));
}

double GapRadiativeConductance(double eps1, double eps2, double t1_kelvin, double t2_kelvin) {
  if (!(eps1 > 0 && eps2 > 0)) return 0;
  return kStefanBoltzmann * (t1_kelvin * t1_kelvin + t2_kelvin * t2_kelvin) *
         (t1_kelvin + t2_kelvin) / (1 / eps1 + 1 / eps2 - 1);
}

}  // namespace zelmo::modules
