// Climate files (.CLI): a year or more of hourly weather for one place. The
// hourly data go by path to the calculation modules; here only the keys that
// tell where the file belongs and which period it covers are read, and the
// mark that tells whether it holds hourly wind.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zelmo {

class Dialogs;

inline constexpr const char* kClimatePattern = "*.CLI";
inline constexpr const char* kClimateExtension = ".CLI";

// The inputs of the site that a key of the climate file fills.
enum class ClimateKey { kLatitude, kLongitude, kTimem };

// The value behind "latitude:", "longitude:" or "time meridian:" (the key found
// anywhere in a line, whatever its case), up to the first blank. With no key
// in the file a warning names the file and the value is empty. Throws
// FileError when the file cannot be opened.
std::string ReadClimateKey(Dialogs& dialogs, const std::string& file, ClimateKey key);

struct ClimateDates {
  std::string first_year, first_month, first_day;
  std::string last_year, last_month, last_day;
};
// The dates behind "1:st day:" and "last day:", as year.month.day, each part
// as it stands ("01" stays "01"). A missing key is reported and leaves its
// three parts empty.
ClimateDates ReadClimateDates(Dialogs& dialogs, const std::string& file);

// Whether the file holds hourly wind: "1" as the second character of its first
// line. Nothing when the (trimmed) path cannot be opened.
std::optional<bool> ReadWindMark(const std::string& path);

// Names of the climate files of a folder, whatever the case of the extension.
std::vector<std::string> ClimateFilesIn(const std::string& folder);

}  // namespace zelmo
