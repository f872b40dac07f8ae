#include "site/climate_file.h"

#include "core/dialogs.h"
#include "core/fields.h"
#include "core/file_system.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

struct KeyText {
  const char* key;      // as searched, in lower case
  const char* title;    // of the message when it is missing
  const char* message;  // the file's path follows it
};

KeyText TextOf(ClimateKey key) {
  switch (key) {
    case ClimateKey::kLatitude:
      return {"latitude:", "Latitude",
              " No entry for the latitude was found in the climate data file "};
    case ClimateKey::kLongitude:
      return {"longitude:", "Longitude",
              " No entry for the longitude was found in the climate data file "};
    case ClimateKey::kTimem:
    default:
      return {"time meridian:", "Timem",
              " No entry for the time meridian was found in the climate data file "};
  }
}

// The text right of the first line holding `key` (case ignored), with the
// blanks at its left removed; nothing when no line holds it.
std::optional<std::string> TextBehindKey(const std::string& file, const std::string& key) {
  TextReader reader(file);
  while (!reader.AtEnd()) {
    std::string line = reader.ReadTrimmedLine();
    size_t at = ToLower(line).find(key);
    if (at == std::string::npos) continue;
    std::string rest = line.substr(at + key.size());
    size_t start = rest.find_first_not_of(' ');
    return start == std::string::npos ? std::string() : rest.substr(start);
  }
  return std::nullopt;
}

// Cuts "1995.01.31" into its parts; each part ends at a point or the end.
void CutDate(const std::string& text, std::string& year, std::string& month, std::string& day) {
  size_t at = 0;
  auto part = [&text, &at] {
    size_t end = text.find('.', at);
    if (end == std::string::npos) end = text.size();
    std::string value = text.substr(at, end - at);
    at = end < text.size() ? end + 1 : end;
    return value;
  };
  year = part();
  month = part();
  day = part();
}

}  // namespace

std::string ReadClimateKey(Dialogs& dialogs, const std::string& file, ClimateKey key) {
  KeyText text = TextOf(key);
  std::optional<std::string> rest = TextBehindKey(file, text.key);
  if (!rest) {
    dialogs.MsgBox(text.message + file, mb::kExclamation, text.title);
    return {};
  }
  return rest->substr(0, rest->find(' '));
}

ClimateDates ReadClimateDates(Dialogs& dialogs, const std::string& file) {
  ClimateDates dates;
  // Both date messages carry the title of the latitude's.
  if (auto first = TextBehindKey(file, "1:st day:")) {
    CutDate(*first, dates.first_year, dates.first_month, dates.first_day);
  } else {
    dialogs.MsgBox(" No entry for the Start date was found in the climate data file " + file,
                   mb::kExclamation, "Latitude");
  }
  if (auto last = TextBehindKey(file, "last day:")) {
    CutDate(*last, dates.last_year, dates.last_month, dates.last_day);
  } else {
    dialogs.MsgBox(" No entry for the End date was found in the climate data file " + file,
                   mb::kExclamation, "Latitude");
  }
  return dates;
}

std::optional<bool> ReadWindMark(const std::string& path) {
  const std::string file = TrimBlanks(path);
  if (!FileCanOpen(file)) return std::nullopt;
  auto lines = ReadAllLines(file);
  if (!lines) return std::nullopt;
  std::string first = lines->empty() ? std::string() : TrimBlanks(lines->front());
  return first.size() >= 2 && first[1] == '1';
}

std::vector<std::string> ClimateFilesIn(const std::string& folder) {
  return FilesWithExtension(folder, kClimateExtension);
}

}  // namespace zelmo
