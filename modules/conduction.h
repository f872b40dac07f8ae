// One-dimensional transient conduction through a layered construction: the
// layers cut into cells, a node on each face of every cell (so the two
// surfaces and every layer boundary are nodes), each node holding half the
// heat capacity of the cells beside it, neighbouring nodes joined by the
// conductance of the cell between them. A layer without heat capacity is one
// cell, a pure resistance.
//
// Time: fully implicit (backward Euler), unconditionally stable and free of
// the oscillation Crank-Nicolson shows after a step change; the error is of
// first order in the step, so a caller chooses the step for accuracy only.
//
// Cells per layer by the mesh Fourier number Fo = alpha dt / dx^2 (Clarke,
// Energy Simulation in Building Design, 2nd ed. 2001, ch. 3): every cell is
// at most as thick as the diffusion length sqrt(alpha dt) of a quarter-hour
// reference step, Fo >= 1, so a daily or hourly wave is resolved whatever
// step a caller takes later; see the README.
#pragma once

#include <cstddef>
#include <vector>

namespace zelmo::modules {

// A layer as the module input gives it, in SI units.
struct Layer {
  double thickness = 0;      // m
  double conductivity = 0;   // W/m,K
  double density = 0;        // kg/m3
  double specific_heat = 0;  // J/kg,K
};

// The criterion: dx <= sqrt(kSpaceConstant alpha kReferenceStep).
inline constexpr double kSpaceConstant = 1.0;
inline constexpr double kReferenceStep = 900.0;  // s
// The most cells one layer is cut into: a layer thicker than this many
// spacings is deeper than any daily or yearly wave reaches into it.
inline constexpr int kMaxCellsPerLayer = 40;

// A construction discretised, per m2 of its area. Nodes run from the outdoor
// face (the first layer's side, node 0) to the room face (the last node).
struct Construction {
  std::vector<double> capacity;     // J/m2,K per node; 0 for a node of massless layers
  std::vector<double> conductance;  // W/m2,K between node i and i + 1; one fewer than nodes
  // Surface-to-surface conductance, 1 / (sum of the layers' d / k), W/m2,K.
  double u = 0;
};

// Cells for one layer by the criterion above; 1 for a layer without heat
// capacity.
int CellsFor(const Layer& layer);

// The construction of the layers, outdoors first, each cut into
// `refine` x CellsFor() cells (refine 2 doubles every layer's nodes, to show
// the answer no longer changes). The layers must have thickness and
// conductivity above 0 and density and specific heat at least 0.
Construction Discretise(const std::vector<Layer>& layers, int refine = 1);

// What acts on a face during a step: heat flows into the face by
// film x (air - T_face) + source, W/m2. A film of 0 leaves a given flow.
struct FaceCondition {
  double film = 0;    // W/m2,K
  double air = 0;     // the temperature the film joins the face to, C
  double source = 0;  // W/m2 absorbed at the face (solar, long-wave, ...)
};

// The heat flows into the construction at its two faces at the end of a
// step (W/m2, each including the storage of its face node), as affine
// functions of the two face temperatures at the end of the step:
// q_out = out0 + out_by_out T_out + out_by_in T_in, and q_in likewise. A
// room's heat balance takes them to solve for the face temperatures, then
// hands these to AdvanceWithFaces.
struct FaceResponse {
  double out0 = 0, out_by_out = 0, out_by_in = 0;
  double in0 = 0, in_by_out = 0, in_by_in = 0;
};

// The implicit step of one construction for a fixed step length; the matrix
// work that doesn't depend on the temperatures is done once here. A step of
// no length (0) is the steady state.
class ConductionStep {
 public:
  ConductionStep(const Construction& construction, double step_seconds);

  // One step with the conditions at both faces: `temperatures` (C, one per
  // node) goes from the start to the end of the step.
  void Advance(std::vector<double>& temperatures, const FaceCondition& outside,
               const FaceCondition& inside) const;
  // The face response of the step that starts from `temperatures`.
  FaceResponse Response(const std::vector<double>& temperatures) const;
  // One step with the two face temperatures at its end given.
  void AdvanceWithFaces(std::vector<double>& temperatures, double outside_face,
                        double inside_face) const;
  // Heat flows into the two faces (W/m2) over the step that went from
  // `before` to `after`, each including its face node's storage.
  void FaceFlows(const std::vector<double>& before, const std::vector<double>& after,
                 double& outside, double& inside) const;

  double step() const { return step_; }
  size_t nodes() const { return capacity_.size(); }

 private:
  std::vector<double> capacity_;  // per node, divided by the step: W/m2,K
  std::vector<double> conductance_;
  double step_;
  // Inner nodes with the faces held: T = base + by_out T_out + by_in T_in,
  // by_out and by_in fixed for the construction.
  std::vector<double> by_out_, by_in_;
  // The inner nodes' tridiagonal system: its diagonal and the conductances
  // between neighbouring inner nodes, and its factors.
  std::vector<double> inner_diagonal_, inner_coupling_;
  std::vector<double> inner_pivot_, inner_upper_;
  // Room for the inner nodes during a step: a step object serves one
  // thread at a time.
  mutable std::vector<double> scratch_;

  void SolveInner(std::vector<double>& rhs) const;
};

// The steady temperatures of the nodes between the two face temperatures.
std::vector<double> SteadyTemperatures(const Construction& construction, double outside_face,
                                       double inside_face);

}  // namespace zelmo::modules
