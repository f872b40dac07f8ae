// The heat balance of a building of up to eight volumes: one well-mixed air
// node per volume, every element a chain of conduction nodes through its
// layers (or, for a window, its panes), coupled at their faces to the air and
// to each other by long-wave radiation, and at the outside to the outdoor
// air, the sky, the ground or another volume.
//
// Methods, each with its source:
// - Time: backward (implicit) Euler over a fixed number of steps per hour,
//   unconditionally stable (Patankar 1980, Numerical Heat Transfer and Fluid
//   Flow, ch. 4). Each chain is condensed onto its face nodes by Gaussian
//   elimination of its tridiagonal interior (the Thomas algorithm), and the
//   faces and air nodes of all volumes are solved together by LU
//   decomposition with partial pivoting.
// - Interior long-wave exchange: grey diffuse surfaces in an enclosure by the
//   radiosity method (Hottel & Sarofim 1967, Radiative Transfer, ch. 3),
//   linearised about the faces' mean temperature: the net flow out of face i
//   is sum_j G_ij T_j with G = 4 sigma Tm^3 diag(A) (I - F)(I - diag(rho) F)^-1
//   diag(eps).
// - Interior convection: a fixed coefficient, or the natural-convection
//   correlations of Walton (1983, TARP reference manual, NBSIR 83-2655) by
//   tilt and the direction of heat flow.
// - Outside faces: convection by the exterior film coefficient; long-wave
//   exchange with the sky (temperature from the horizontal infrared
//   radiation) and the ground (at air temperature) by view factor and
//   emittance, linearised each step (h_r = eps sigma (Ts^2 + Tr^2)(Ts + Tr));
//   of the sky a tilted face sees, the part beta = sqrt((1 + cos tilt) / 2)
//   at the sky's temperature and the rest, near the horizon, at the air's
//   (Walton 1983, as in the EnergyPlus Engineering Reference).
// - Window gaps: the conductance of the gas by its convective coefficient
//   and the radiative exchange between the two panes, eps_eff = 1/(1/e1 +
//   1/e2 - 1) (EN 673, 1997).
// - Transmitted solar: the beam falls on the floor faces first, the part the
//   floor reflects and the diffuse part are spread over all faces by area
//   times absorptance, the share of a window face partly lost back out (the
//   area-weighted absorptance distribution of the EnergyPlus Engineering
//   Reference, "Interior solar distribution").
// - Air exchange between volumes: one-way flows carry the source volume's
//   air into the target; openings exchange air both ways by the buoyancy
//   flow through a large vertical opening of Brown & Solvason (1962, Int. J.
//   Heat Mass Transfer 5: 859-868), Q = Cd A/3 sqrt(g H |dT| / Tm), Cd 0.61.
// - Ideal heating and cooling to the air node: the air is held at its set
//   point when the free-floating air would cross it, within the maximum
//   power (the superposition of the linear step's response to a unit power).
#pragma once

#include <memory>
#include <vector>

namespace zelmo::modules {

// What lies beyond the front (outside) face of an element.
enum class OutsideKind { kOutdoor, kGround, kVolume, kAdiabatic };

// One gap of a window between pane k and pane k + 1.
struct WindowGap {
  double convective = 0;          // W/(m2 K), conduction and convection of the gas
  double emittance_front = 0.84;  // of the pane face towards the outside
  double emittance_back = 0.84;   // of the next pane's face towards the gap
  double glass_resistance = 0;    // m2 K/W of the two half panes beside the gap
};

// A curtain on the inside of a window.
struct Curtain {
  double resistance = 0;     // m2 K/W
  double absorptance = 0;    // of the solar radiation reaching it
  double transmittance = 0;  // of the solar radiation reaching it
};

struct HbSurface {
  int volume = 0;    // the volume the back (inside) face belongs to
  double area = 0;   // m2
  double tilt = 90;  // of the outward normal from the zenith: 0 roof, 90 wall, 180 floor
  // Nodes from the front face to the back face; per square metre.
  std::vector<double> capacity;     // J/(m2 K), one per node
  std::vector<double> conductance;  // W/(m2 K), between node k and k + 1
  bool window = false;
  std::vector<WindowGap> gaps;  // a window's gaps replace `conductance`
  OutsideKind outside = OutsideKind::kOutdoor;
  int other_volume = -1;  // kVolume: the volume the front face belongs to
  double emittance_front = 0.9, emittance_back = 0.9;
  double absorptance_front = 0.6, absorptance_back = 0.6;  // solar, opaque faces
  double sky_view = 0.5, ground_view = 0.5;                // front face, kOutdoor
  // Window, for diffuse solar from the inside: the part transmitted out and
  // the part absorbed by each pane.
  double back_transmittance = 0;
  std::vector<double> back_pane_absorptance;
  bool has_curtain = false;
  Curtain curtain;
};

struct HbVolume {
  double air_volume = 0;  // m3
  // View factors between the faces of the volume, in the order FacesOf
  // gives; empty: each face sees the others in proportion to their areas.
  std::vector<std::vector<double>> view_factors;
};

struct HbFlow {  // a one-way flow of `from`'s air into `to`
  int from = 0, to = 0;
  double flow = 0;  // m3/s
};

struct HbOpening {  // a large opening between two volumes, or to the outdoor air (b = -1)
  int a = 0, b = -1;
  double area = 0;    // m2 open
  double height = 0;  // m
};

struct HbSettings {
  int steps_per_hour = 6;
  int iterations = 1;               // new coefficients each step (1) or each iteration (> 1)
  bool external_ir = true;          // long-wave exchange of outside faces with sky and ground
  double exterior_film = 11;        // W/(m2 K): convective, or combined when external_ir is off
  double interior_film = -1;        // W/(m2 K); -1: Walton's correlations
  double soil_resistance = 1.87;    // m2 K/W
  double elevation = 0;             // m, for the density of the site's air
  double heat_exchanger = 0;        // efficiency 0..1 on the balanced mechanical flow
  double radiative_fraction = 0.6;  // of the internal loads
  double initial_temperature = 20;
};

struct HbModel {
  std::vector<HbVolume> volumes;
  std::vector<HbSurface> surfaces;
  HbSettings settings;
};

// One face of a surface as seen from a volume.
struct HbFace {
  int surface = 0;
  bool front = false;  // the front face of the surface (an element between two volumes)
};
std::vector<HbFace> FacesOf(const HbModel& model, int volume);

// The boundary conditions of one hour (the values at its end for the
// temperatures, its means for the radiation), per surface and per volume.
struct HbSurfaceHour {
  std::vector<double> absorbed;    // W/m2 of solar absorbed at each node from outside
  double transmitted_beam = 0;     // W/m2, windows
  double transmitted_diffuse = 0;  // W/m2, windows
  double incident = 0;             // W/m2 on the front face, for the report
  bool curtain_drawn = false;
};

struct HbVolumeHour {
  double heating_setpoint = -1e20, heating_max = 1e20;  // C, W
  double cooling_setpoint = 1e20, cooling_max = 1e20;
  double internal_load = 0;  // W
  double supply = 0;         // m3/s of outdoor air blown in
  double exhaust = 0;        // m3/s blown out
  double leakage = 0;        // m3/s of outdoor air by leakage
};

struct HbHour {
  double outdoor = 0;  // C
  double sky = -10;    // C
  double ground = 10;  // C
  std::vector<HbSurfaceHour> surfaces;
  std::vector<HbVolumeHour> volumes;
  std::vector<HbFlow> flows;
  std::vector<HbOpening> openings;
};

// Hourly results of a volume: means over the hour.
struct HbVolumeResult {
  double air = 0;           // C
  double mrt = 0;           // C, area-weighted mean of the faces
  double heating = 0;       // W
  double cooling = 0;       // W, positive
  double solar_out = 0;     // W incident on the windows' outside
  double solar_in = 0;      // W transmitted in
  double solar_abs = 0;     // W of it absorbed by the faces (the rest goes back out)
  double internal = 0;      // W
  double air_exchange = 0;  // W lost with outdoor air and to other volumes
  double conduction = 0;    // W lost through the faces of the volume's surfaces
};

// The energy of the whole building over an hour, J.
struct HbBalance {
  double stored = 0;
  double gains = 0;   // solar absorbed, internal, heating, minus cooling
  double losses = 0;  // to the outdoor air, sky and ground
};

struct HbResult {
  std::vector<HbVolumeResult> volumes;
  std::vector<double> back_face, front_face;  // C per surface, hourly mean
  HbBalance balance;
};

// The long-wave exchange of grey diffuse faces in an enclosure: entry
// i * n + j (i < j) is the conductance between faces i and j, W/K per unit
// of 4 sigma Tm^3. Empty view factors: each face sees the others in
// proportion to their areas.
std::vector<double> LongWaveExchange(const std::vector<double>& area,
                                     const std::vector<double>& emittance,
                                     const std::vector<std::vector<double>>& view_factors);

double SiteAirPressure(double elevation);                // Pa, ISA
double AirDensity(double pressure, double temperature);  // kg/m3 of dry air

class HeatBalance {
 public:
  explicit HeatBalance(HbModel model);
  ~HeatBalance();
  HeatBalance(const HeatBalance&) = delete;
  HeatBalance& operator=(const HeatBalance&) = delete;

  // Steps through one hour; `hour` must give every surface and volume.
  HbResult Hour(const HbHour& hour);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace zelmo::modules
