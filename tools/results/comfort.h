// Thermal comfort of the comfort volume, hour by hour: the PMV and PPD
// indices of ISO 7730:2005 (P. O. Fanger's heat balance of the human body,
// computed as the standard's Annex D does) from the air and mean radiant
// temperatures of COMFORT.TXT and the activity, clothing, air speed and
// humidity of FELT.INP; the comfort categories of ISO 7730 (A, B, C) and
// EN 16798-1 (I to IV); the comfort program's result file Felt.GGG.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/results/hourly_table.h"

namespace zelmo::results {

inline constexpr const char* kComfortSettingsFile = "FELT.INP";
inline constexpr const char* kComfortResultFile = "Felt.GGG";

struct PmvPpd {
  double pmv = 0;
  double ppd = 5;
};

// ISO 7730:2005, 4.1 and Annex D. ta air and tr mean radiant temperature
// [C], var relative air velocity [m/s], rh relative humidity [%], met
// metabolic rate [met] (1 met = 58.15 W/m2), clo clothing insulation [clo]
// (1 clo = 0.155 m2K/W), wme external work [met].
PmvPpd ComputePmvPpd(double ta, double tr, double var, double rh, double met, double clo,
                     double wme = 0);
// ISO 7730:2005, equation (5).
double PpdOfPmv(double pmv);

// What the user sets for the comfort calculation. The defaults: sedentary
// office work 1.2 met; 1.0 clo in winter and 0.5 clo from May to September
// (ISO 7730 Annex A's winter and summer clothing); 0.1 m/s; 50 %.
struct ComfortSettings {
  double met = 1.2;
  double clo_winter = 1.0;
  double clo_summer = 0.5;
  int summer_from = 5;
  int summer_to = 9;
  double air_speed = 0.1;
  double humidity = 50;
  bool operator==(const ComfortSettings&) const = default;
  double ClothingIn(int month) const {
    return month >= summer_from && month <= summer_to ? clo_summer : clo_winter;
  }
};

// The message for settings outside the ranges ISO 7730 gives for the
// indices (0.8 to 4 met, 0 to 2 clo, 0 to 1 m/s, 0 to 100 %, months 1 to
// 12), or nothing.
std::optional<std::string> CheckComfortSettings(const ComfortSettings& settings);

// FELT.INP: the header line
// "M [met]\tI_cl winter [clo]\tI_cl summer [clo]\tSummer from\tSummer to\tv_ar [m/s]\tRH [%]"
// and a line of the values, CR LF after each.
std::string ComfortSettingsText(const ComfortSettings& settings);
// The settings of the case folder; the defaults when the file is absent. A
// damaged file is a FileError.
ComfortSettings ReadComfortSettings(const std::string& case_folder);
bool WriteComfortSettings(const std::string& case_folder, const ComfortSettings& settings);

struct ComfortHour {
  Stamp stamp;
  double t_air = 0, t_mrt = 0, pmv = 0, ppd = 0;
};

struct ComfortResult {
  int volume = 0;
  ComfortSettings settings;
  std::vector<ComfortHour> hours;
};

// PMV and PPD of each hour of a COMFORT.TXT table; a table without the air
// and the mean radiant temperature of one volume is a FileError.
ComfortResult ComputeComfort(const std::string& path, const HourlyTable& table,
                             const ComfortSettings& settings);

// Felt.GGG: "ZELMO-QRN FELT V<n>", the two lines of the settings as in
// FELT.INP, then the table "Month\tDay\tHour\tT_air [C]\tT_mrt [C]\tPMV\tPPD [%]"
// with the temperatures and the PMV to two decimals and the PPD to one.
std::string ComfortResultText(const ComfortResult& result);
ComfortResult ParseComfortResult(const std::string& path, std::string_view text);
ComfortResult ReadComfortResult(const std::string& path);

// Hours in each comfort category, best first, and the hours outside all.
struct CategoryHours {
  std::string name;
  std::string limits;
  int hours = 0;
};
enum class ComfortScheme { kIso7730, kEn16798 };
std::vector<CategoryHours> CountCategories(const std::vector<ComfortHour>& hours,
                                           ComfortScheme scheme);
int HoursAbovePpd(const std::vector<ComfortHour>& hours, double ppd_limit);
// Hours whose temperatures lie outside the ranges of ISO 7730 4.1 (air 10
// to 30 C, mean radiant 10 to 40 C), where the indices are extrapolated.
int HoursOutsideRange(const std::vector<ComfortHour>& hours);

// The message of a case without comfort results.
std::string NoComfortResultsText(const std::string& case_folder);

// The comfort program's work on a case folder: removes an earlier Felt.GGG,
// reads FELT.INP and COMFORT.TXT, computes every hour and writes Felt.GGG.
// Empty when done, otherwise the message for the user, and then no
// Felt.GGG stands in the folder.
std::string WriteComfortResult(const std::string& case_folder);

}  // namespace zelmo::results
