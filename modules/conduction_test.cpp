#include "modules/conduction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace zelmo::modules {
namespace {

// Concrete of the material library: 1.7 W/m,K, 2300 kg/m3, 0.24 Wh/kg,K.
constexpr Layer kConcrete{0.2, 1.7, 2300, 864};
// The light wall and light floor of the validation cases (outside first);
// their surface-to-surface resistances, 1.7893 and 25.2536 m2,K/W, are the
// cases' own check values, summed there by hand.
const std::vector<Layer> kLightWall{
    {0.009, 0.14, 530, 900}, {0.066, 0.040, 12, 840}, {0.012, 0.16, 950, 840}};
const std::vector<Layer> kLightFloor{{1.003, 0.040, 0, 0}, {0.025, 0.14, 650, 1200}};

// Steps a construction from its start with both faces held, long enough to
// settle; the heat flows into the two faces in the last step.
std::pair<double, double> SettledFlows(const Construction& c, double outside, double inside) {
  ConductionStep step(c, 3600);
  std::vector<double> t(c.capacity.size(), 0.0);
  std::vector<double> before;
  for (int hour = 0; hour < 24 * 400; ++hour) {
    before = t;
    step.AdvanceWithFaces(t, outside, inside);
  }
  double q_out = 0, q_in = 0;
  step.FaceFlows(before, t, q_out, q_in);
  return {q_out, q_in};
}

TEST(Conduction, SteadyFluxIsUTimesTheDifference) {
  const struct {
    const char* name;
    std::vector<Layer> layers;
    double resistance;
  } rows[] = {
      {"concrete 0.2 m", {kConcrete}, 0.2 / 1.7},
      {"light wall", kLightWall, 1.7893},
      {"light floor, massless insulation", kLightFloor, 25.2536},
  };
  for (const auto& row : rows) {
    const Construction c = Discretise(row.layers);
    EXPECT_NEAR(c.u, 1 / row.resistance, 1e-4 / row.resistance) << row.name;
    const auto [q_out, q_in] = SettledFlows(c, 20, -10);
    EXPECT_NEAR(q_out, 30 * c.u, 1e-6 * 30 * c.u) << row.name;
    EXPECT_NEAR(q_in, -30 * c.u, 1e-6 * 30 * c.u) << row.name;
    const auto steady = SteadyTemperatures(c, 20, -10);
    EXPECT_DOUBLE_EQ(steady.front(), 20);
    EXPECT_NEAR(steady.back(), -10, 1e-12) << row.name;
    // A step of no length lands on the steady state at once.
    std::vector<double> t(c.capacity.size(), 0.0);
    ConductionStep(c, 0).AdvanceWithFaces(t, 20, -10);
    for (size_t i = 0; i < t.size(); ++i) EXPECT_NEAR(t[i], steady[i], 1e-9) << row.name;
  }
}

// A slab at 0 whose outdoor face steps to 1 at t = 0 while its room face
// stays at 0 (Carslaw and Jaeger, Conduction of Heat in Solids, 2nd ed.,
// section 3.3, eq. 3.3(2)):
//   T(x,t) = 1 - x/L - (2/pi) sum_n (1/n) sin(n pi x/L) exp(-alpha n^2 pi^2 t/L^2)
// and the heat flow out of the room face, as a part of the steady k/L:
//   q(L,t) L / k = 1 + 2 sum_n (-1)^n exp(-alpha n^2 pi^2 t/L^2).
double SlabTemperature(double x, double t, double length, double alpha) {
  double sum = 0;
  for (int n = 1; n < 2000; ++n) {
    sum += std::sin(n * std::numbers::pi * x / length) / n *
           std::exp(-alpha * n * n * std::numbers::pi * std::numbers::pi * t / (length * length));
  }
  return 1 - x / length - 2 / std::numbers::pi * sum;
}

double SlabFlowOut(double t, double length, double alpha) {
  double sum = 0;
  for (int n = 1; n < 2000; ++n) {
    sum += (n % 2 ? -1 : 1) *
           std::exp(-alpha * n * n * std::numbers::pi * std::numbers::pi * t / (length * length));
  }
  return 1 + 2 * sum;
}

TEST(Conduction, ASlabFollowsTheSeriesSolutionAfterAStep) {
  const double alpha = kConcrete.conductivity / (kConcrete.density * kConcrete.specific_heat);
  const Construction c = Discretise({kConcrete});
  const size_t cells = c.capacity.size() - 1;
  // Time steps short beside the slab's time constant L^2/(pi^2 alpha) of
  // 1.3 hours, so what is left is the error of the nodes.
  const double dt = 60;
  ConductionStep step(c, dt);
  std::vector<double> t(c.capacity.size(), 0.0), before;
  int minute = 0;
  for (double hours : {0.5, 1.0, 2.0, 4.0, 8.0, 24.0}) {
    for (; minute < hours * 60; ++minute) {
      before = t;
      step.AdvanceWithFaces(t, 1, 0);
    }
    const double time = minute * dt;
    for (size_t i = 1; i < cells; ++i) {
      const double x = kConcrete.thickness * static_cast<double>(i) / static_cast<double>(cells);
      EXPECT_NEAR(t[i], SlabTemperature(x, time, kConcrete.thickness, alpha), 0.01)
          << "node " << i << " after " << hours << " h";
    }
    // The flow out of the held face once the wave has crossed the slab (two
    // time constants; before that the nodes' first-order face gradient
    // leaves up to 3 % of the steady flow, halved with each doubling).
    if (hours < 2) continue;
    double q_out = 0, q_in = 0;
    step.FaceFlows(before, t, q_out, q_in);
    EXPECT_NEAR(-q_in / c.u, SlabFlowOut(time, kConcrete.thickness, alpha), 0.01)
        << "after " << hours << " h";
  }
}

// A wall of concrete and mineral wool under a daily swing of the outdoor
// air, film coefficients on both faces: the heat flow into the room is the
// same, within a hundredth of its swing, with every layer's nodes doubled.
TEST(Conduction, DoublingTheNodesChangesNothing) {
  const std::vector<Layer> wall{
      {0.15, 1.7, 2300, 864}, {0.17, 0.04, 50, 864}, {0.013, 0.22, 900, 1080}};
  auto room_flow = [&](int refine) {
    const Construction c = Discretise(wall, refine);
    ConductionStep step(c, 900);
    std::vector<double> t(c.capacity.size(), 20.0), before;
    std::vector<double> flows;
    for (int k = 0; k < 96 * 10; ++k) {
      const double outdoor = 5 + 10 * std::sin(2 * std::numbers::pi * k / 96.0);
      before = t;
      step.Advance(t, {25, outdoor, 0}, {7.7, 20, 0});
      double q_out = 0, q_in = 0;
      step.FaceFlows(before, t, q_out, q_in);
      if (k >= 96 * 9) flows.push_back(q_in);
    }
    return flows;
  };
  const auto once = room_flow(1), twice = room_flow(2);
  double low = once[0], high = once[0], worst = 0;
  for (size_t k = 0; k < once.size(); ++k) {
    low = std::min(low, once[k]);
    high = std::max(high, once[k]);
    worst = std::max(worst, std::fabs(once[k] - twice[k]));
  }
  EXPECT_GT(high - low, 0.1);
  EXPECT_LT(worst, 0.01 * (high - low));
}

TEST(Conduction, AMasslessLayerIsAPureResistance) {
  // Alone: one cell, no capacity, the steady flow at once.
  const Construction alone = Discretise({{0.1, 0.04, 0, 0}});
  ASSERT_EQ(alone.capacity, (std::vector<double>{0, 0}));
  ASSERT_EQ(alone.conductance.size(), 1u);
  EXPECT_NEAR(alone.conductance[0], 0.4, 1e-12);
  ConductionStep step(alone, 3600);
  std::vector<double> t{0, 0};
  step.Advance(t, {10, 30, 0}, {10, 0, 0});
  // Films of 10 and the layer's 0.4 in series: 1 / (0.1 + 2.5 + 0.1).
  EXPECT_NEAR(t[0], 30 - 30 / 2.7 / 10, 1e-12);
  EXPECT_NEAR(t[1], 30 / 2.7 / 10, 1e-12);
  // Between two massive layers its two faces hold the capacity of the
  // neighbouring cells only.
  const Construction between =
      Discretise({{0.01, 1, 1000, 1000}, {0.1, 0.04, 0, 0}, {0.01, 1, 1000, 1000}});
  EXPECT_EQ(between.capacity, (std::vector<double>{5000, 5000, 5000, 5000}));
}

// A room's heat balance solves the faces from the step's face response and
// hands them back: the same as the step with the films on both faces.
TEST(Conduction, TheFaceResponseAgreesWithTheStepWithFilms) {
  for (const auto& layers : {std::vector<Layer>{kConcrete}, kLightWall, kLightFloor,
                             std::vector<Layer>{{0.1, 0.04, 0, 0}}}) {
    const Construction c = Discretise(layers);
    ConductionStep step(c, 600);
    std::vector<double> t = SteadyTemperatures(c, -5, 21);
    std::vector<double> with_films = t;
    const FaceCondition outside{20, 3, 150}, inside{3, 25, 10};
    step.Advance(with_films, outside, inside);
    // Faces: film (air - T) + source = q_out(T_out, T_in), likewise inside.
    const FaceResponse r = step.Response(t);
    const double a11 = r.out_by_out + outside.film, a12 = r.out_by_in;
    const double b1 = outside.film * outside.air + outside.source - r.out0;
    const double a21 = r.in_by_out, a22 = r.in_by_in + inside.film;
    const double b2 = inside.film * inside.air + inside.source - r.in0;
    const double det = a11 * a22 - a12 * a21;
    const double t_out = (b1 * a22 - a12 * b2) / det, t_in = (a11 * b2 - a21 * b1) / det;
    step.AdvanceWithFaces(t, t_out, t_in);
    ASSERT_EQ(t.size(), with_films.size());
    for (size_t i = 0; i < t.size(); ++i) EXPECT_NEAR(t[i], with_films[i], 1e-9) << i;
  }
}

// dx <= sqrt(alpha 900 s): concrete's alpha of 8.555e-7 m2/s gives 27.7 mm,
// so 0.2 m takes 8 cells; a layer far thicker than that stops at 40.
TEST(Conduction, CellsByTheFourierNumber) {
  EXPECT_EQ(CellsFor(kConcrete), 8);
  EXPECT_EQ(CellsFor({0.0277, 1.7, 2300, 864}), 1);
  EXPECT_EQ(CellsFor({0.0278, 1.7, 2300, 864}), 2);
  EXPECT_EQ(CellsFor({100, 1.7, 2300, 864}), kMaxCellsPerLayer);
  EXPECT_EQ(CellsFor({1, 0.04, 0, 0}), 1);
  EXPECT_EQ(Discretise({kConcrete}, 2).capacity.size(), 17u);
}

}  // namespace
}  // namespace zelmo::modules
