#include "modules/heat_balance.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zelmo::modules {
namespace {

// A wall of one layer split into `parts` slices, lumped: half a slice's
// capacity on each of its two nodes.
HbSurface Slab(int volume, double area, double tilt, double thickness, double k, double rho_c,
               int parts) {
  HbSurface s;
  s.volume = volume;
  s.area = area;
  s.tilt = tilt;
  double dx = thickness / parts;
  s.capacity.assign(parts + 1, 0.0);
  for (int i = 0; i < parts; ++i) {
    s.capacity[i] += rho_c * dx / 2;
    s.capacity[i + 1] += rho_c * dx / 2;
    s.conductance.push_back(k / dx);
  }
  return s;
}

// A closed box of six equal walls around one volume, 4 x 5 x 2.5 m.
HbModel Box() {
  HbModel m;
  m.volumes.push_back({50, {}});
  const double areas[6] = {20, 20, 10, 10, 12.5, 12.5};
  const double tilts[6] = {0, 180, 90, 90, 90, 90};
  for (int i = 0; i < 6; ++i) m.surfaces.push_back(Slab(0, areas[i], tilts[i], 0.1, 0.05, 5e4, 4));
  m.settings.external_ir = false;
  m.settings.exterior_film = 20;
  m.settings.interior_film = 4;
  return m;
}

HbHour Calm(const HbModel& m, double outdoor) {
  HbHour h;
  h.outdoor = outdoor;
  h.sky = outdoor;
  h.ground = outdoor;
  h.surfaces.resize(m.surfaces.size());
  h.volumes.resize(m.volumes.size());
  return h;
}

TEST(HeatBalance, ClosedBoxSettlesToTheSteadyLossOfItsWallsAndVentilation) {
  HbModel m = Box();
  HeatBalance hb(m);
  HbHour h = Calm(m, 0);
  h.volumes[0].heating_setpoint = 20;
  h.volumes[0].leakage = 0.01;
  HbResult r;
  for (int i = 0; i < 200; ++i) r = hb.Hour(h);
  // By hand: U = 1 / (1/20 + 0.1/0.05 + 1/4) = 1/2.3 W/(m2 K) over 85 m2;
  // outdoor air at 0 C and 101325 Pa: 101325 / (287.055 * 273.15) kg/m3.
  double ua = 85 / 2.3;
  double vent = 0.01 * 101325 / (287.055 * 273.15) * 1006;
  EXPECT_NEAR(r.volumes[0].heating, (ua + vent) * 20, 1e-3);
  EXPECT_NEAR(r.volumes[0].air, 20, 1e-9);
  EXPECT_EQ(r.volumes[0].cooling, 0);
}

TEST(HeatBalance, IdealHeatingHoldsTheSetPointWithinItsMaximumPower) {
  struct Row {
    double max;
    bool held;
  };
  // The steady loss at 20 C is about 1150 W (see above, without ventilation:
  // 85/2.3 * 20 + the air's fall from 20 C).
  for (Row row : {Row{1e20, true}, Row{2000, true}, Row{300, false}, Row{0, false}}) {
    HbModel m = Box();
    HeatBalance hb(m);
    HbHour h = Calm(m, -10);
    h.volumes[0].heating_setpoint = 20;
    h.volumes[0].heating_max = row.max;
    for (int i = 0; i < 100; ++i) {
      HbResult r = hb.Hour(h);
      EXPECT_LE(r.volumes[0].heating, row.max + 1e-9) << row.max;
      if (row.held) {
        EXPECT_GE(r.volumes[0].air, 20 - 1e-9) << row.max;
      } else if (i > 50) {
        EXPECT_LT(r.volumes[0].air, 20) << row.max;
        EXPECT_NEAR(r.volumes[0].heating, row.max, 1e-9) << row.max;
      }
    }
  }
}

TEST(HeatBalance, IdealCoolingHoldsTheSetPointWithinItsMaximumPower) {
  for (double max : {1e20, 500.0}) {
    HbModel m = Box();
    HeatBalance hb(m);
    HbHour h = Calm(m, 30);
    h.volumes[0].cooling_setpoint = 26;
    h.volumes[0].cooling_max = max;
    h.volumes[0].internal_load = 1500;
    HbResult r;
    for (int i = 0; i < 100; ++i) r = hb.Hour(h);
    EXPECT_LE(r.volumes[0].cooling, max + 1e-9);
    if (max > 1e19) {
      EXPECT_NEAR(r.volumes[0].air, 26, 1e-9);
      // The radiant 60 % warms every face alike: q_r + 4 (26 - Ts) + (30 -
      // Ts) / 2.05 = 0 per m2; the walls then bring (30 - Ts) / 2.05 in.
      double qr = 0.6 * 1500 / 85;
      double ts = (qr + 4 * 26 + 30 / 2.05) / (4 + 1 / 2.05);
      EXPECT_NEAR(r.volumes[0].cooling, 1500 + (30 - ts) / 2.05 * 85, 1e-3);
    } else {
      EXPECT_GT(r.volumes[0].air, 26);
      EXPECT_NEAR(r.volumes[0].cooling, 500, 1e-9);
    }
  }
}

// A box with a window, sun, long-wave exchange outside and inside, Walton's
// convection, ventilation, internal loads and a thermostat with a dead band.
HbModel SunnyBox() {
  HbModel m = Box();
  m.settings.external_ir = true;
  m.settings.exterior_film = 11;
  m.settings.interior_film = -1;
  m.settings.elevation = 1650;
  m.surfaces[4].area = 6.5;
  HbSurface w;
  w.volume = 0;
  w.area = 6;
  w.tilt = 90;
  w.window = true;
  w.capacity = {7000, 7000};
  w.gaps = {WindowGap{1.6, 0.84, 0.84, 0.003}};
  w.emittance_front = w.emittance_back = 0.84;
  w.back_transmittance = 0.6;
  w.back_pane_absorptance = {0.05, 0.06};
  w.has_curtain = true;
  w.curtain = {0.1, 0.3, 0.2};
  m.surfaces.push_back(w);
  return m;
}

HbHour SunnyHour(const HbModel& m, int i) {
  HbHour h = Calm(m, 5 + 10 * std::sin(i * 0.26));
  h.sky = h.outdoor - 15;
  double sun = std::max(0.0, 600 * std::sin((i % 24 - 6) * 0.26));
  for (size_t s = 0; s < m.surfaces.size(); ++s) {
    h.surfaces[s].absorbed.assign(m.surfaces[s].capacity.size(), 0.0);
    h.surfaces[s].absorbed[0] = 0.6 * sun * 0.5;
  }
  auto& w = h.surfaces.back();
  w.absorbed = {0.07 * sun, 0.05 * sun};
  w.transmitted_beam = 0.5 * sun;
  w.transmitted_diffuse = 0.2 * sun;
  w.incident = sun;
  w.curtain_drawn = i % 24 < 7;
  auto& v = h.volumes[0];
  v.heating_setpoint = 20;
  v.cooling_setpoint = 25;
  v.internal_load = 200;
  v.supply = 0.02;
  v.exhaust = 0.015;
  v.leakage = 0.005;
  return h;
}

TEST(HeatBalance, TheEnergyOfTheBuildingClosesEveryHour) {
  for (int iterations : {1, 3}) {
    HbModel m = SunnyBox();
    m.settings.iterations = iterations;
    m.settings.heat_exchanger = 0.7;
    HeatBalance hb(m);
    for (int i = 0; i < 24 * 10; ++i) {
      HbResult r = hb.Hour(SunnyHour(m, i));
      const auto& b = r.balance;
      double scale = std::max({std::fabs(b.gains), std::fabs(b.losses), 1e3});
      EXPECT_LT(std::fabs(b.gains - b.losses - b.stored), 1e-3 * scale) << "hour " << i;
    }
  }
}

TEST(HeatBalance, TwoIdenticalVolumesSideBySideGiveIdenticalResults) {
  // Two boxes sharing a symmetric wall; the wall's back face is in volume 0.
  HbModel m;
  m.volumes = {{50, {}}, {50, {}}};
  m.settings.interior_film = -1;
  for (int v = 0; v < 2; ++v) {
    const double areas[5] = {20, 20, 10, 12.5, 12.5};
    const double tilts[5] = {0, 180, 90, 90, 90};
    for (int i = 0; i < 5; ++i) {
      m.surfaces.push_back(Slab(v, areas[i], tilts[i], 0.1, 0.05, 5e4, 4));
    }
  }
  HbSurface shared = Slab(0, 10, 90, 0.1, 0.5, 1e6, 4);
  shared.outside = OutsideKind::kVolume;
  shared.other_volume = 1;
  m.surfaces.push_back(shared);
  HeatBalance hb(m);
  for (int i = 0; i < 72; ++i) {
    HbHour h = Calm(m, 5 + 10 * std::sin(i * 0.26));
    h.sky = h.outdoor - 12;
    for (int v = 0; v < 2; ++v) {
      h.volumes[v].heating_setpoint = 20;
      h.volumes[v].cooling_setpoint = 24;
      h.volumes[v].internal_load = 300 * (i % 24 > 8);
      h.volumes[v].leakage = 0.01;
    }
    h.openings.push_back({0, 1, 1.5, 2});
    HbResult r = hb.Hour(h);
    EXPECT_NEAR(r.volumes[0].air, r.volumes[1].air, 1e-9);
    EXPECT_NEAR(r.volumes[0].heating, r.volumes[1].heating, 1e-6);
    EXPECT_NEAR(r.volumes[0].mrt, r.volumes[1].mrt, 1e-9);
  }
}

TEST(HeatBalance, FreeFloatingAirDecaysAsTheAnalyticExponential) {
  // Adiabatic massless-faced walls and a ventilated air node: dT/dt = -T/tau.
  HbModel m;
  m.volumes.push_back({100, {}});
  HbSurface s;
  s.area = 1e-6;
  s.capacity = {0};
  s.outside = OutsideKind::kAdiabatic;
  m.surfaces.push_back(s);
  m.settings.interior_film = 1e-9;
  m.settings.initial_temperature = 10;
  m.settings.steps_per_hour = 360;
  HeatBalance hb(m);
  HbHour h = Calm(m, 0);
  h.volumes[0].leakage = 100.0 / 3600;  // one air change an hour
  double rho0 = 101325 / (287.055 * 273.15), rho20 = 101325 / (287.055 * 293.15);
  double tau = 3600 * rho20 / rho0;
  // The hourly mean of 10 exp(-t/tau) over the first hour.
  double mean = 10 * tau / 3600 * (1 - std::exp(-3600 / tau));
  EXPECT_NEAR(hb.Hour(h).volumes[0].air, mean, 0.01);
}

TEST(LongWaveExchange, AgreesWithTheAnalyticCasesOfTwoGreySurfaces) {
  struct Row {
    double a1, a2, e1, e2;
    std::vector<std::vector<double>> f;
    double expected;
  };
  const Row rows[] = {
      // Parallel plates: A / (1/e1 + 1/e2 - 1).
      {10, 10, 0.9, 0.8, {{0, 1}, {1, 0}}, 10 / (1 / 0.9 + 1 / 0.8 - 1)},
      // A convex body in an enclosure: A1 / (1/e1 + A1/A2 (1/e2 - 1)).
      {2, 20, 0.5, 0.9, {{0, 1}, {0.1, 0.9}}, 2 / (1 / 0.5 + 0.1 * (1 / 0.9 - 1))},
      // Black faces: the area times the view factor.
      {2, 20, 1, 1, {{0, 1}, {0.1, 0.9}}, 2},
  };
  for (const auto& row : rows) {
    auto g = LongWaveExchange({row.a1, row.a2}, {row.e1, row.e2}, row.f);
    EXPECT_NEAR(g[1], row.expected, 1e-9);
  }
}

TEST(SiteAir, PressureAndDensityFollowTheStandardAtmosphere) {
  // ISO 2533 table values: 1500 m 84556 Pa, 2000 m 79495 Pa.
  EXPECT_NEAR(SiteAirPressure(0), 101325, 1e-6);
  EXPECT_NEAR(SiteAirPressure(1500), 84556, 5);
  EXPECT_NEAR(SiteAirPressure(2000), 79495, 5);
  EXPECT_NEAR(AirDensity(101325, 15), 1.2250, 1e-4);
}

}  // namespace
}  // namespace zelmo::modules
