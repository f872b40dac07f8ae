// MUK, the heat balance of every volume hour by hour over the simulated
// period (heat_balance.h), built from PLOR's surfaces and volumes, CORV's
// constructions, FENT's windows, DANE's outdoor side and the control input
// of DAT4.DAT, and its results in the case folder:
//
//   MUK.SUM     per volume: heating and cooling kWh, peak heating and
//               cooling W (the mean power of the clock hour), the lowest,
//               mean and highest hourly air temperature (head line
//               "ZELMO-QRN MUK <fingerprint>")
//   MUK.LIS     the report: monthly and yearly energy, peaks with their
//               hour, temperatures
//   HOURLY.TXT  output type 2 (every hour) or 1 (the 15th of each month):
//               the ticked quantities of each volume
//   COMFORT.TXT the comfort volume's air and mean radiant temperature
//   Vol_load.TXT, Surf_tmp.TXT  the volumes' heat flows and the faces'
//               temperatures, hourly (README)
#pragma once

#include <string>
#include <vector>

#include "modules/contract.h"
#include "modules/heat_balance.h"

namespace zelmo::modules {

inline constexpr int kMukDat4Missing = kMuk.base + 1;
inline constexpr int kMukDat4Damaged = kMuk.base + 2;
inline constexpr int kMukPredecessor = kMuk.base + 3;
inline constexpr int kMukNoWall = kMuk.base + 4;
inline constexpr int kMukNoVolumes = kMuk.base + 5;
inline constexpr int kMukDaneDamaged = kMuk.base + 6;
inline constexpr int kMukNoWindow = kMuk.base + 7;
inline constexpr int kMukDat1Damaged = kMuk.base + 8;

// The radiative part of the internal loads (the input gives none; the
// value of ASHRAE Fundamentals 2017, ch. 18, table 3, for office
// equipment and people together, and of the validation cases).
inline constexpr double kRadiativeFraction = 0.6;
// Leakage at 50 Pa to the natural air exchange: the "divide by 20" rule of
// Kronvall and Persily (Sherman 1987, Energy and Buildings 10: 81-86).
inline constexpr double kLeakageDivisor = 20;
// Glass for a pane's heat capacity: 2500 kg/m3 and 750 J/(kg K) (EN 572-1).
inline constexpr double kGlassHeatCapacity = 2500.0 * 750.0;

// The fingerprint of MUK's results: DANE's, CORV's and the bytes of DAT4.DAT.
std::string MukFingerprint(const std::string& case_folder);

// The whole module: reads everything, runs the period and writes the results
// (all of them at the end; a failure leaves none of this run).
void RunMuk(const std::string& case_folder);

// One volume's yearly summary as MUK.SUM holds it.
struct MukSummary {
  int volume = 0;
  double heating_kwh = 0, cooling_kwh = 0, peak_heating = 0, peak_cooling = 0;
  double t_min = 0, t_mean = 0, t_max = 0;
};

// The lines of MUK.SUM after its head line.
std::vector<std::string> MukSummaryLines(const std::vector<MukSummary>& volumes);

}  // namespace zelmo::modules
