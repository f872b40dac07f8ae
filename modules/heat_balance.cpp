#include "modules/heat_balance.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <stdexcept>
#include <utility>

namespace zelmo::modules {

namespace {

constexpr double kSigma = 5.670374419e-8;  // W/(m2 K4), Stefan-Boltzmann
constexpr double kKelvin = 273.15;
constexpr double kDegree = std::numbers::pi / 180;
constexpr double kCpAir = 1006;           // J/(kg K), dry air
constexpr double kGasConstant = 287.055;  // J/(kg K), dry air
constexpr double kGravity = 9.80665;
constexpr double kOpeningCd = 0.61;  // discharge coefficient of a sharp-edged opening
constexpr double kMinFilm = 0.1;     // W/(m2 K), floor of the natural-convection correlation

// Dense LU decomposition with partial pivoting (Golub & Van Loan, Matrix
// Computations, alg. 3.4.1), for the small systems of faces and air nodes.
class DenseLu {
 public:
  void Factor(const std::vector<double>& a, int n) {
    a_.assign(a.begin(), a.begin() + static_cast<size_t>(n) * n);
    n_ = n;
    pivot_.assign(n, 0);
    lower_.assign(n, 0);
    upper_.assign(n, 0);
    for (int k = 0; k < n; ++k) {
      int p = k;
      for (int i = k + 1; i < n; ++i) {
        if (std::fabs(a_[i * n + k]) > std::fabs(a_[p * n + k])) p = i;
      }
      pivot_[k] = p;
      if (p != k) {
        for (int j = 0; j < n; ++j) std::swap(a_[k * n + j], a_[p * n + j]);
      }
      double diag = a_[k * n + k];
      if (diag == 0) throw std::runtime_error("singular heat balance");
      // The row's last entry that is not zero bounds the work: the faces of
      // one volume and its air lie together, so the matrix is near banded.
      int last = n - 1;
      while (last > k && a_[k * n + last] == 0) --last;
      upper_[k] = last;
      for (int i = k + 1; i < n; ++i) {
        if (a_[i * n + k] == 0) continue;
        double f = a_[i * n + k] / diag;
        a_[i * n + k] = f;
        for (int j = k + 1; j <= last; ++j) a_[i * n + j] -= f * a_[k * n + j];
      }
    }
    // Row interchanges after a column was done move its multipliers.
    for (int k = 0; k < n; ++k) {
      int i = n - 1;
      while (i > k && a_[i * n + k] == 0) --i;
      lower_[k] = i;
    }
  }
  void Solve(std::vector<double>& b) const {
    const int n = n_;
    for (int k = 0; k < n; ++k) {
      if (pivot_[k] != k) std::swap(b[k], b[pivot_[k]]);
    }
    for (int k = 0; k < n; ++k) {
      if (b[k] == 0) continue;
      for (int i = k + 1; i <= lower_[k]; ++i) b[i] -= a_[i * n + k] * b[k];
    }
    for (int i = n - 1; i >= 0; --i) {
      double s = b[i];
      for (int j = i + 1; j <= upper_[i]; ++j) s -= a_[i * n + j] * b[j];
      b[i] = s / a_[i * n + i];
    }
  }

 private:
  std::vector<double> a_;
  std::vector<int> pivot_;
  std::vector<int> lower_, upper_;  // the last row (column) of each column (row) not zero
  int n_ = 0;
};

// Walton's natural-convection coefficient of a face whose normal has the
// vertical component nz (1 facing up) and which is dt warmer than the air.
double WaltonFilm(double dt, double nz) {
  double cube = std::cbrt(std::fabs(dt));
  double c = std::min(1.0, std::fabs(nz));
  if (c < 1e-6) return std::max(1.31 * cube, kMinFilm);  // vertical, both ways
  bool enhanced = (dt > 0 && nz > 0) || (dt < 0 && nz < 0);
  double h = enhanced ? 9.482 * cube / (7.238 - c) : 1.810 * cube / (1.382 + c);
  return std::max(h, kMinFilm);
}

// The linearised radiative coefficient between two grey surfaces at ta and
// tb (C) with the effective emittance eps.
double RadiativeCoefficient(double eps, double ta, double tb) {
  double a = ta + kKelvin, b = tb + kKelvin;
  return eps * kSigma * (a * a + b * b) * (a + b);
}

struct FaceInfo {
  int surface = 0;
  bool front = false;
  int node = 0;
  int port = 0;  // index in the solved system
  double area = 0;
  double nz = 0;  // vertical component of the normal into the volume
  double emittance = 0.9;
  double absorptance = 0.6;
  bool window = false;
};

// A chain condensed onto its ports: T_interior = x_b + sum_p x_p T_p.
struct Chain {
  int lo = 0, hi = -1;  // interior nodes
  std::vector<int> port_nodes;
  std::vector<double> xb;
  std::vector<std::vector<double>> xp;
};

// The coefficients of a step, from the temperatures of the estimate.
struct Coefficients {
  std::vector<std::vector<double>> film;     // per volume, per face
  std::vector<std::vector<double>> curtain;  // per volume, per face: factor on its couplings
  std::vector<double> lw;                    // per volume: 4 sigma Tm^3
  std::vector<std::vector<double>> links;    // per surface: W/K between nodes
  std::vector<double> front_conv, front_sky, front_ground;  // per surface, W/(m2 K)
  std::vector<double> outdoor_air;                          // per volume: W/K to outdoor air
  std::vector<double> opening_out;            // per volume: W/K through openings to outdoors
  std::vector<std::vector<double>> exchange;  // per volume pair: W/K both ways
};

}  // namespace

struct HeatBalance::State {
  HbModel model;
  std::vector<std::vector<FaceInfo>> faces;  // per volume
  std::vector<std::vector<double>>
      exchange;  // per volume: pairwise long-wave factors (W/K per 4 sigma Tm^3)
  std::vector<std::vector<double>> temps;  // per surface, per node
  std::vector<double> air;
  std::vector<int> front_port, back_port;  // per surface
  int ports = 0;
  bool started = false;
  double previous_outdoor = 0, previous_sky = 0;
  double air_density = 1.2;  // at 20 C and the site's pressure
  double pressure = 101325;
  std::vector<int> air_port;  // per volume
  // Work of a step, kept so that a step allocates nothing.
  std::vector<std::vector<double>> old_temps, est_temps;
  std::vector<double> old_air, est_air, heat;
  Coefficients co;
  std::vector<Chain> chains;
  std::vector<double> d, b, cprime, denom;
  std::vector<std::vector<double>> rhs, unit;
  std::vector<double> k, r, x0, x;
  std::vector<int> controlled, mode, held, ready;
  DenseLu lu, small;
  std::vector<double> small_a, small_rhs;
  std::vector<std::vector<double>> source;
  std::vector<double> beta;  // per surface: the part of its sky at the sky's temperature
};

std::vector<HbFace> FacesOf(const HbModel& model, int volume) {
  std::vector<HbFace> faces;
  for (int s = 0; s < static_cast<int>(model.surfaces.size()); ++s) {
    const auto& surface = model.surfaces[s];
    if (surface.volume == volume) faces.push_back({s, false});
    if (surface.outside == OutsideKind::kVolume && surface.other_volume == volume) {
      faces.push_back({s, true});
    }
  }
  return faces;
}

double SiteAirPressure(double elevation) {
  // International Standard Atmosphere, troposphere (ISO 2533:1975).
  return 101325.0 * std::pow(1.0 - 2.25577e-5 * elevation, 5.25588);
}

double AirDensity(double pressure, double temperature) {
  return pressure / (kGasConstant * (temperature + kKelvin));
}

std::vector<double> LongWaveExchange(const std::vector<double>& area,
                                     const std::vector<double>& emittance,
                                     const std::vector<std::vector<double>>& given) {
  const int n = static_cast<int>(area.size());
  std::vector<double> pair(static_cast<size_t>(n) * n, 0.0);
  if (n < 2) return pair;
  double total = 0;
  for (double a : area) total += a;
  auto view = [&](int i, int j) {
    if (static_cast<int>(given.size()) == n && static_cast<int>(given[i].size()) == n) {
      return given[i][j];
    }
    return area[j] / total;
  };
  // (I - diag(rho) F) X = diag(eps): column j of X is the radiosity of every
  // face per unit emissive power of face j.
  std::vector<double> a(static_cast<size_t>(n) * n);
  for (int i = 0; i < n; ++i) {
    double rho = 1 - emittance[i];
    for (int j = 0; j < n; ++j) a[i * n + j] = (i == j ? 1.0 : 0.0) - rho * view(i, j);
  }
  DenseLu lu;
  lu.Factor(a, n);
  std::vector<double> x(static_cast<size_t>(n) * n);
  for (int j = 0; j < n; ++j) {
    std::vector<double> col(n, 0.0);
    col[j] = emittance[j];
    lu.Solve(col);
    for (int i = 0; i < n; ++i) x[i * n + j] = col[i];
  }
  // M = diag(A) (I - F) X; the net flow out of i is sum_j M_ij Eb_j. The
  // off-diagonal entries are negative; a pair's conductance is the mean of
  // its two, which reciprocity makes equal.
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      if (i == j) continue;
      double mij = 0;
      for (int k = 0; k < n; ++k) mij += ((i == k ? 1.0 : 0.0) - view(i, k)) * x[k * n + j];
      mij *= area[i];
      pair[std::min(i, j) * n + std::max(i, j)] -= 0.5 * mij;
    }
  }
  return pair;
}

namespace {

std::vector<double> ExchangeFactors(const std::vector<FaceInfo>& faces,
                                    const std::vector<std::vector<double>>& given) {
  std::vector<double> area, emittance;
  for (const auto& f : faces) {
    area.push_back(f.area);
    emittance.push_back(f.emittance);
  }
  return LongWaveExchange(area, emittance, given);
}

}  // namespace

HeatBalance::HeatBalance(HbModel model) : state_(std::make_unique<State>()) {
  State& st = *state_;
  st.model = std::move(model);
  const auto& m = st.model;
  const int nv = static_cast<int>(m.volumes.size());
  const int ns = static_cast<int>(m.surfaces.size());
  st.front_port.assign(ns, -1);
  st.back_port.assign(ns, -1);
  for (int s = 0; s < ns; ++s) {
    const auto& surface = m.surfaces[s];
    int nodes = static_cast<int>(surface.capacity.size());
    bool other_ok = surface.outside != OutsideKind::kVolume ||
                    (surface.other_volume >= 0 && surface.other_volume < nv);
    if (nodes < 1 || surface.volume < 0 || surface.volume >= nv || !other_ok ||
        (!surface.window && static_cast<int>(surface.conductance.size()) < nodes - 1)) {
      throw std::invalid_argument("surface without nodes or volume");
    }
    st.temps.emplace_back(nodes, m.settings.initial_temperature);
  }
  // The unknowns volume by volume: its faces, then its air, so that the
  // matrix of the step is near banded.
  st.faces.resize(nv);
  st.air_port.assign(nv, -1);
  for (const auto& surface : m.surfaces) {
    st.beta.push_back(std::sqrt(std::max(0.0, 0.5 * (1 + std::cos(surface.tilt * kDegree)))));
  }
  int index = 0;
  for (int v = 0; v < nv; ++v) {
    for (const auto& face : FacesOf(m, v)) {
      const auto& surface = m.surfaces[face.surface];
      const int s = face.surface;
      const bool single = surface.capacity.size() == 1;
      if (face.front || single) {
        if (st.front_port[s] < 0) {
          st.front_port[s] = single && st.back_port[s] >= 0 ? st.back_port[s] : index++;
        }
      }
      if (!face.front || single) {
        if (st.back_port[s] < 0) {
          st.back_port[s] = single && st.front_port[s] >= 0 ? st.front_port[s] : index++;
        }
      }
      if (surface.outside != OutsideKind::kVolume) st.front_port[s] = -1;
      FaceInfo info;
      info.surface = face.surface;
      info.front = face.front;
      info.node = face.front ? 0 : static_cast<int>(surface.capacity.size()) - 1;
      info.port = face.front ? st.front_port[face.surface] : st.back_port[face.surface];
      info.area = surface.area;
      double nz = std::cos(surface.tilt * kDegree);
      info.nz = face.front ? nz : -nz;
      info.emittance = face.front ? surface.emittance_front : surface.emittance_back;
      info.absorptance = face.front ? surface.absorptance_front : surface.absorptance_back;
      info.window = surface.window;
      st.faces[v].push_back(info);
    }
    st.exchange.push_back(ExchangeFactors(st.faces[v], m.volumes[v].view_factors));
    st.air_port[v] = index++;
  }
  st.ports = index - nv;
  st.air.assign(nv, m.settings.initial_temperature);
  st.pressure = SiteAirPressure(m.settings.elevation);
  st.air_density = AirDensity(st.pressure, 20);
}

HeatBalance::~HeatBalance() = default;

HbResult HeatBalance::Hour(const HbHour& hour) {
  State& st = *state_;
  const HbModel& m = st.model;
  const HbSettings& set = m.settings;
  const int nv = static_cast<int>(m.volumes.size());
  const int ns = static_cast<int>(m.surfaces.size());
  const int steps = std::max(1, set.steps_per_hour);
  const double dt = 3600.0 / steps;
  if (static_cast<int>(hour.surfaces.size()) != ns || static_cast<int>(hour.volumes.size()) != nv) {
    throw std::invalid_argument("hour does not match the model");
  }
  if (!st.started) {
    st.previous_outdoor = hour.outdoor;
    st.previous_sky = hour.sky;
    st.started = true;
  }

  // Sources of the hour, W per node: solar absorbed from outside, the
  // transmitted solar spread inside, the radiant part of the internal loads.
  auto& source = st.source;
  source.resize(ns);
  std::vector<double> convective(nv, 0.0);
  HbResult result;
  result.volumes.assign(nv, {});
  for (int s = 0; s < ns; ++s) {
    const auto& surface = m.surfaces[s];
    const auto& sh = hour.surfaces[s];
    source[s].assign(surface.capacity.size(), 0.0);
    for (size_t k = 0; k < sh.absorbed.size() && k < source[s].size(); ++k) {
      source[s][k] = sh.absorbed[k] * surface.area;
    }
  }
  for (int v = 0; v < nv; ++v) {
    const auto& faces = st.faces[v];
    auto& out = result.volumes[v];
    double beam = 0, diffuse = 0;
    for (int s = 0; s < ns; ++s) {
      const auto& surface = m.surfaces[s];
      if (surface.volume != v || !surface.window) continue;
      const auto& sh = hour.surfaces[s];
      out.solar_out += sh.incident * surface.area;
      double b = sh.transmitted_beam * surface.area, d = sh.transmitted_diffuse * surface.area;
      if (surface.has_curtain && sh.curtain_drawn) {
        // The drawn curtain passes its transmittance as diffuse light, keeps
        // its absorbed part in the room air and sends the rest back out.
        convective[v] += (b + d) * surface.curtain.absorptance;
        out.solar_in += (b + d) * (surface.curtain.transmittance + surface.curtain.absorptance);
        diffuse += (b + d) * surface.curtain.transmittance;
        out.solar_abs += (b + d) * surface.curtain.absorptance;
      } else {
        out.solar_in += b + d;
        beam += b;
        diffuse += d;
      }
    }
    double floor_area = 0;
    for (const auto& f : faces) {
      if (f.nz > 0.7 && !f.window) floor_area += f.area;
    }
    if (floor_area > 0 && beam > 0) {
      for (const auto& f : faces) {
        if (f.nz > 0.7 && !f.window) {
          double share = beam * f.area / floor_area;
          source[f.surface][f.node] += share * f.absorptance;
          out.solar_abs += share * f.absorptance;
          diffuse += share * (1 - f.absorptance);
        }
      }
    } else {
      diffuse += beam;
    }
    // Diffuse: by area times absorptance; a window face absorbs in its panes
    // and lets the rest out.
    auto weight = [&](const FaceInfo& f) {
      if (!f.window || f.front) return f.area * f.absorptance;
      const auto& surface = m.surfaces[f.surface];
      double a = surface.back_transmittance;
      for (double p : surface.back_pane_absorptance) a += p;
      return f.area * a;
    };
    double total_weight = 0;
    for (const auto& f : faces) total_weight += weight(f);
    if (diffuse > 0 && total_weight > 0) {
      for (const auto& f : faces) {
        double share = diffuse * weight(f) / total_weight;
        if (!f.window || f.front) {
          source[f.surface][f.node] += share;
          out.solar_abs += share;
          continue;
        }
        const auto& surface = m.surfaces[f.surface];
        double sum = surface.back_transmittance;
        for (double p : surface.back_pane_absorptance) sum += p;
        for (size_t k = 0; k < surface.back_pane_absorptance.size() && k < source[f.surface].size();
             ++k) {
          double part = share * surface.back_pane_absorptance[k] / sum;
          source[f.surface][k] += part;
          out.solar_abs += part;
        }
      }
    }
    // Internal loads: the radiant part over the faces by area and emittance.
    const auto& vh = hour.volumes[v];
    double load = vh.internal_load;
    out.internal = load;
    double radiant = faces.empty() ? 0 : load * set.radiative_fraction;
    convective[v] += load - radiant;
    double ae = 0;
    for (const auto& f : faces) ae += f.area * f.emittance;
    for (const auto& f : faces) {
      if (ae > 0) source[f.surface][f.node] += radiant * f.area * f.emittance / ae;
    }
  }

  std::vector<double> back_sum(ns, 0.0), front_sum(ns, 0.0);
  const int size = st.ports + nv;
  auto air_index = [&](int v) { return st.air_port[v]; };

  for (int step = 0; step < steps; ++step) {
    double frac = static_cast<double>(step + 1) / steps;
    double t_out = st.previous_outdoor + (hour.outdoor - st.previous_outdoor) * frac;
    double t_sky = st.previous_sky + (hour.sky - st.previous_sky) * frac;
    st.old_temps = st.temps;
    st.old_air = st.air;
    st.est_temps = st.temps;
    st.est_air = st.air;
    const auto& old_temps = st.old_temps;
    const auto& old_air = st.old_air;
    auto& est_temps = st.est_temps;
    auto& est_air = st.est_air;
    Coefficients& co = st.co;
    auto& chains = st.chains;
    chains.resize(ns);
    auto& heat = st.heat;
    heat.assign(nv, 0.0);
    for (int iteration = 0; iteration < std::max(1, set.iterations); ++iteration) {
      // Coefficients from the estimate.
      co.film.resize(nv);
      co.curtain.resize(nv);
      for (auto& x : co.film) x.clear();
      for (auto& x : co.curtain) x.clear();
      co.lw.assign(nv, 0.0);
      for (int v = 0; v < nv; ++v) {
        double sum_at = 0, sum_a = 0;
        for (const auto& f : st.faces[v]) {
          double t = est_temps[f.surface][f.node];
          double h = set.interior_film > 0 ? set.interior_film : WaltonFilm(t - est_air[v], f.nz);
          co.film[v].push_back(h);
          sum_at += f.area * (t + kKelvin);
          sum_a += f.area;
        }
        double tm = sum_a > 0 ? sum_at / sum_a : est_air[v] + kKelvin;
        co.lw[v] = 4 * kSigma * tm * tm * tm;
        for (size_t i = 0; i < st.faces[v].size(); ++i) {
          const auto& f = st.faces[v][i];
          const auto& surface = m.surfaces[f.surface];
          double factor = 1;
          if (!f.front && surface.has_curtain && hour.surfaces[f.surface].curtain_drawn) {
            // The curtain's resistance in series with the face's film and
            // radiation.
            double h = co.film[v][i] + co.lw[v] * f.emittance;
            factor = 1 / (1 + surface.curtain.resistance * h);
          }
          co.curtain[v].push_back(factor);
        }
      }
      co.links.resize(ns);
      for (auto& x : co.links) x.clear();
      co.front_conv.assign(ns, 0.0);
      co.front_sky.assign(ns, 0.0);
      co.front_ground.assign(ns, 0.0);
      for (int s = 0; s < ns; ++s) {
        const auto& surface = m.surfaces[s];
        const auto& t = est_temps[s];
        int nodes = static_cast<int>(t.size());
        for (int k = 0; k + 1 < nodes; ++k) {
          double u;
          if (surface.window && k < static_cast<int>(surface.gaps.size())) {
            const auto& gap = surface.gaps[k];
            double eps = 1 / (1 / gap.emittance_front + 1 / gap.emittance_back - 1);
            double h = gap.convective + RadiativeCoefficient(eps, t[k], t[k + 1]);
            u = 1 / (gap.glass_resistance + 1 / h);
          } else {
            u = k < static_cast<int>(surface.conductance.size()) ? surface.conductance[k] : 0;
          }
          co.links[s].push_back(u * surface.area);
        }
        if (surface.outside == OutsideKind::kOutdoor) {
          co.front_conv[s] = set.exterior_film;
          if (set.external_ir) {
            // The sky near the horizon radiates at about the air's
            // temperature: of the sky seen, the part beta at the sky's
            // temperature (Walton 1983).
            const double beta = st.beta[s];
            co.front_sky[s] = surface.sky_view * beta *
                              RadiativeCoefficient(surface.emittance_front, t[0], t_sky);
            co.front_ground[s] = (surface.ground_view + surface.sky_view * (1 - beta)) *
                                 RadiativeCoefficient(surface.emittance_front, t[0], t_out);
          }
        }
      }
      co.outdoor_air.assign(nv, 0.0);
      co.opening_out.assign(nv, 0.0);
      co.exchange.resize(nv);
      for (auto& x : co.exchange) x.assign(nv, 0.0);
      double rho_out = AirDensity(st.pressure, t_out);
      for (int v = 0; v < nv; ++v) {
        const auto& vh = hour.volumes[v];
        double balanced = std::min(vh.supply, vh.exhaust);
        double flow = std::max(vh.supply, vh.exhaust) - balanced + vh.leakage +
                      balanced * (1 - set.heat_exchanger);
        co.outdoor_air[v] = rho_out * kCpAir * flow;
      }
      for (const auto& fl : hour.flows) {
        if (fl.from < 0 || fl.to < 0 || fl.from >= nv || fl.to >= nv || fl.from == fl.to) continue;
        co.exchange[fl.from][fl.to] += AirDensity(st.pressure, est_air[fl.from]) * kCpAir * fl.flow;
      }
      for (const auto& op : hour.openings) {
        if (op.a < 0 || op.a >= nv || op.b >= nv || op.a == op.b || op.area <= 0) continue;
        double ta = est_air[op.a], tb = op.b < 0 ? t_out : est_air[op.b];
        double tm = 0.5 * (ta + tb) + kKelvin;
        double q =
            kOpeningCd * op.area / 3 * std::sqrt(kGravity * op.height * std::fabs(ta - tb) / tm);
        double w = AirDensity(st.pressure, 0.5 * (ta + tb)) * kCpAir * q;
        if (op.b < 0) {
          co.opening_out[op.a] += w;
        } else {
          co.exchange[op.a][op.b] += w;
          co.exchange[op.b][op.a] += w;
        }
      }

      // Assemble: each chain condensed onto its ports.
      auto& k = st.k;
      auto& r = st.r;
      k.assign(static_cast<size_t>(size) * size, 0.0);
      r.assign(size, 0.0);
      auto K = [&](int i, int j) -> double& { return k[static_cast<size_t>(i) * size + j]; };
      for (int s = 0; s < ns; ++s) {
        const auto& surface = m.surfaces[s];
        const auto& links = co.links[s];
        int nodes = static_cast<int>(old_temps[s].size());
        auto& d = st.d;
        auto& b = st.b;
        d.assign(nodes, 0.0);
        b.assign(nodes, 0.0);
        for (int n = 0; n < nodes; ++n) {
          double c = surface.capacity[n] * surface.area / dt;
          d[n] = c + (n > 0 ? links[n - 1] : 0) + (n + 1 < nodes ? links[n] : 0);
          b[n] = c * old_temps[s][n] + source[s][n];
        }
        switch (surface.outside) {
          case OutsideKind::kOutdoor: {
            double a = surface.area;
            d[0] += a * (co.front_conv[s] + co.front_sky[s] + co.front_ground[s]);
            b[0] += a * ((co.front_conv[s] + co.front_ground[s]) * t_out + co.front_sky[s] * t_sky);
            break;
          }
          case OutsideKind::kGround: {
            double g = surface.area / std::max(1e-6, set.soil_resistance);
            d[0] += g;
            b[0] += g * hour.ground;
            break;
          }
          default:
            break;
        }
        Chain& ch = chains[s];
        ch.port_nodes.clear();
        bool front = st.front_port[s] >= 0 && nodes > 1;
        if (front) ch.port_nodes.push_back(0);
        ch.port_nodes.push_back(nodes - 1);
        ch.lo = front ? 1 : 0;
        ch.hi = nodes - 2;
        int ni = ch.hi - ch.lo + 1;
        int np = static_cast<int>(ch.port_nodes.size());
        ch.xb.assign(std::max(0, ni), 0.0);
        ch.xp.assign(np, std::vector<double>(std::max(0, ni), 0.0));
        if (ni > 0) {
          // Thomas algorithm over the interior, several right-hand sides.
          auto& cprime = st.cprime;
          auto& denom = st.denom;
          auto& rhs = st.rhs;
          cprime.assign(ni, 0.0);
          denom.assign(ni, 0.0);
          rhs.resize(1 + np);
          for (auto& rr : rhs) rr.assign(ni, 0.0);
          for (int i = 0; i < ni; ++i) rhs[0][i] = b[ch.lo + i];
          for (int p = 0; p < np; ++p) {
            int node = ch.port_nodes[p];
            if (node == ch.lo - 1) rhs[1 + p][0] += links[node];
            if (node == ch.hi + 1) rhs[1 + p][ni - 1] += links[ch.hi];
          }
          for (int i = 0; i < ni; ++i) {
            int n = ch.lo + i;
            double lower = i > 0 ? links[n - 1] : 0;
            denom[i] = d[n] + (i > 0 ? lower * cprime[i - 1] : 0);
            cprime[i] = i + 1 < ni ? -links[n] / denom[i] : 0;
            for (auto& rr : rhs) rr[i] = (rr[i] + (i > 0 ? lower * rr[i - 1] : 0)) / denom[i];
          }
          for (int i = ni - 2; i >= 0; --i) {
            for (auto& rr : rhs) rr[i] -= cprime[i] * rr[i + 1];
          }
          ch.xb = rhs[0];
          for (int p = 0; p < np; ++p) ch.xp[p] = rhs[1 + p];
        }
        auto port_index = [&](int p) {
          return ch.port_nodes[p] == nodes - 1 ? st.back_port[s] : st.front_port[s];
        };
        for (int p = 0; p < np; ++p) {
          int node = ch.port_nodes[p];
          int gi = port_index(p);
          K(gi, gi) += d[node];
          r[gi] += b[node];
          // Neighbours of the port.
          for (int nb : {node - 1, node + 1}) {
            if (nb < 0 || nb >= nodes) continue;
            double g = links[std::min(node, nb)];
            if (nb >= ch.lo && nb <= ch.hi) {
              int i = nb - ch.lo;
              r[gi] += g * ch.xb[i];
              for (int q = 0; q < np; ++q) K(gi, port_index(q)) -= g * ch.xp[q][i];
            } else {
              for (int q = 0; q < np; ++q) {
                if (ch.port_nodes[q] == nb) K(gi, port_index(q)) -= g;
              }
            }
          }
        }
      }
      for (int v = 0; v < nv; ++v) {
        const auto& faces = st.faces[v];
        int a = air_index(v);
        const int nf = static_cast<int>(faces.size());
        for (int i = 0; i < nf; ++i) {
          double h = co.film[v][i] * faces[i].area * co.curtain[v][i];
          int p = faces[i].port;
          K(p, p) += h;
          K(p, a) -= h;
          K(a, a) += h;
          K(a, p) -= h;
          for (int j = i + 1; j < nf; ++j) {
            double g = st.exchange[v][i * nf + j] * co.lw[v] * co.curtain[v][i] * co.curtain[v][j];
            int q = faces[j].port;
            K(p, p) += g;
            K(p, q) -= g;
            K(q, q) += g;
            K(q, p) -= g;
          }
        }
        double cair = st.air_density * m.volumes[v].air_volume * kCpAir / dt;
        K(a, a) += cair + co.outdoor_air[v] + co.opening_out[v];
        r[a] += cair * old_air[v] + (co.outdoor_air[v] + co.opening_out[v]) * t_out + convective[v];
        for (int u = 0; u < nv; ++u) {
          if (co.exchange[u][v] <= 0) continue;
          K(a, a) += co.exchange[u][v];
          K(a, air_index(u)) -= co.exchange[u][v];
        }
      }
      DenseLu& lu = st.lu;
      lu.Factor(k, size);
      auto& x0 = st.x0;
      x0 = r;
      lu.Solve(x0);
      // Responses of every node to a unit heating power in a volume with a
      // set point, solved when the volume is first held.
      auto& unit = st.unit;
      unit.resize(nv);
      auto& controlled = st.controlled;
      controlled.clear();
      auto& ready = st.ready;
      ready.assign(nv, 0);
      for (int v = 0; v < nv; ++v) {
        const auto& vh = hour.volumes[v];
        if (vh.heating_setpoint < -1e19 && vh.cooling_setpoint > 1e19) continue;
        controlled.push_back(v);
      }
      auto response = [&](int v) -> const std::vector<double>& {
        if (!ready[v]) {
          unit[v].assign(size, 0.0);
          unit[v][air_index(v)] = 1;
          lu.Solve(unit[v]);
          ready[v] = 1;
        }
        return unit[v];
      };
      // Active set: 0 free, 1 held at the heating, 2 at the cooling set
      // point, 3 at the maximum power.
      auto& mode = st.mode;
      mode.assign(nv, 0);
      std::fill(heat.begin(), heat.end(), 0.0);
      auto air_of = [&](int v) {
        double t = x0[air_index(v)];
        for (int u : controlled) {
          if (heat[u] != 0) t += response(u)[air_index(v)] * heat[u];
        }
        return t;
      };
      for (int round = 0; round < 4 * nv + 4; ++round) {
        bool changed = false;
        for (int v : controlled) {
          const auto& vh = hour.volumes[v];
          if (mode[v] == 0) {
            double t = air_of(v);
            if (t < vh.heating_setpoint - 1e-9 && vh.heating_max > 0) {
              mode[v] = 1;
              changed = true;
            } else if (t > vh.cooling_setpoint + 1e-9 && vh.cooling_max > 0) {
              mode[v] = 2;
              changed = true;
            }
          }
        }
        // Powers of the held volumes: a small linear system.
        auto& held = st.held;
        held.clear();
        for (int v : controlled) {
          if (mode[v] == 1 || mode[v] == 2) held.push_back(v);
        }
        if (!held.empty()) {
          const int nh = static_cast<int>(held.size());
          auto& a = st.small_a;
          auto& rhs = st.small_rhs;
          a.assign(static_cast<size_t>(nh) * nh, 0.0);
          rhs.assign(nh, 0.0);
          for (int i = 0; i < nh; ++i) {
            int v = held[i];
            const auto& vh = hour.volumes[v];
            double target = mode[v] == 1 ? vh.heating_setpoint : vh.cooling_setpoint;
            double t = x0[air_index(v)];
            for (int u : controlled) {
              if (mode[u] == 3 && heat[u] != 0) t += response(u)[air_index(v)] * heat[u];
            }
            rhs[i] = target - t;
            for (int j = 0; j < nh; ++j) a[i * nh + j] = response(held[j])[air_index(v)];
          }
          DenseLu& small = st.small;
          small.Factor(a, nh);
          small.Solve(rhs);
          for (int i = 0; i < nh; ++i) heat[held[i]] = rhs[i];
        }
        for (int v : held) {
          const auto& vh = hour.volumes[v];
          if (mode[v] == 1 && heat[v] > vh.heating_max) {
            heat[v] = vh.heating_max;
            mode[v] = 3;
            changed = true;
          } else if (mode[v] == 2 && -heat[v] > vh.cooling_max) {
            heat[v] = -vh.cooling_max;
            mode[v] = 3;
            changed = true;
          } else if ((mode[v] == 1 && heat[v] < 0) || (mode[v] == 2 && heat[v] > 0)) {
            heat[v] = 0;
            mode[v] = 0;
            changed = true;
          }
        }
        if (!changed) break;
      }
      auto& x = st.x;
      x = x0;
      for (int u : controlled) {
        if (heat[u] == 0) continue;
        const auto& du = response(u);
        for (int i = 0; i < size; ++i) x[i] += du[i] * heat[u];
      }
      // Back to every node.
      for (int s = 0; s < ns; ++s) {
        const Chain& ch = chains[s];
        auto& t = est_temps[s];
        int nodes = static_cast<int>(t.size());
        double port_t[2] = {0, 0};
        const size_t np = ch.port_nodes.size();
        for (size_t p = 0; p < np; ++p) {
          int node = ch.port_nodes[p];
          port_t[p] = x[node == nodes - 1 ? st.back_port[s] : st.front_port[s]];
          t[node] = port_t[p];
        }
        for (int n = ch.lo; n <= ch.hi; ++n) {
          int i = n - ch.lo;
          double v = ch.xb[i];
          for (size_t p = 0; p < np; ++p) v += ch.xp[p][i] * port_t[p];
          t[n] = v;
        }
      }
      for (int v = 0; v < nv; ++v) est_air[v] = x[air_index(v)];
    }
    st.temps = est_temps;
    st.air = est_air;

    // Energy of the step, from the new temperatures and the step's coefficients.
    HbBalance& bal = result.balance;
    for (int s = 0; s < ns; ++s) {
      const auto& surface = m.surfaces[s];
      const auto& t = st.temps[s];
      for (size_t n = 0; n < t.size(); ++n) {
        bal.stored += surface.capacity[n] * surface.area * (t[n] - old_temps[s][n]);
        bal.gains += source[s][n] * dt;
      }
      if (surface.outside == OutsideKind::kOutdoor) {
        bal.losses += surface.area * dt *
                      ((co.front_conv[s] + co.front_ground[s]) * (t[0] - t_out) +
                       co.front_sky[s] * (t[0] - t_sky));
      } else if (surface.outside == OutsideKind::kGround) {
        bal.losses +=
            surface.area / std::max(1e-6, set.soil_resistance) * (t[0] - hour.ground) * dt;
      }
      back_sum[s] += t.back();
      front_sum[s] += t.front();
    }
    for (int v = 0; v < nv; ++v) {
      auto& out = result.volumes[v];
      double cair = st.air_density * m.volumes[v].air_volume * kCpAir;
      bal.stored += cair * (st.air[v] - old_air[v]);
      bal.gains += (convective[v] + heat[v]) * dt;
      double lost = (co.outdoor_air[v] + co.opening_out[v]) * (st.air[v] - t_out);
      bal.losses += lost * dt;
      for (int u = 0; u < nv; ++u) lost += co.exchange[u][v] * (st.air[v] - st.air[u]);
      out.air_exchange += lost / steps;
      out.air += st.air[v] / steps;
      if (heat[v] > 0) out.heating += heat[v] / steps;
      if (heat[v] < 0) out.cooling -= heat[v] / steps;
      double at = 0, a = 0, conv = 0;
      for (size_t i = 0; i < st.faces[v].size(); ++i) {
        const auto& f = st.faces[v][i];
        double tf = st.temps[f.surface][f.node];
        at += f.area * tf;
        a += f.area;
        conv += co.film[v][i] * f.area * co.curtain[v][i] * (st.air[v] - tf);
      }
      out.mrt += (a > 0 ? at / a : st.air[v]) / steps;
      out.conduction += conv / steps;
    }
  }
  st.previous_outdoor = hour.outdoor;
  st.previous_sky = hour.sky;
  result.back_face.resize(ns);
  result.front_face.resize(ns);
  for (int s = 0; s < ns; ++s) {
    result.back_face[s] = back_sum[s] / steps;
    result.front_face[s] = front_sum[s] / steps;
  }
  return result;
}

}  // namespace zelmo::modules
