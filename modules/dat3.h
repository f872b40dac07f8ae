// DAT3.DAT, the period and the curtain schedule of the modules' input:
//
//   headline
//   rotation                         (degrees, %10.3f)
//   latitude longitude meridian      (three %10.3f fields, one line)
//   first year, month, day, last year, month, day   (one a line, %10.3f)
//   then, only when a window of the case has a curtain, per month of the
//   period: the month's mode (0 drawn while the sun is down, 1 while it is
//   up, 2 by the hours), and for mode 2 a line of 24 characters "0"/"1",
//   each followed by a blank, hour 1 first.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace zelmo {
class TextReader;
}

namespace zelmo::modules {

struct Dat3Month {
  int year = 0, month = 0;
  int mode = 0;
  std::array<bool, 24> hours{};  // mode 2: the curtain drawn in hour h + 1
};

struct Dat3 {
  std::string headline;
  double rotation = 0;
  double latitude = 0, longitude = 0, meridian = 0;
  int first_year = 0, first_month = 0, first_day = 0;
  int last_year = 0, last_month = 0, last_day = 0;
  bool has_curtains = false;
  std::vector<Dat3Month> months;  // every month of the period when has_curtains
};

// A period longer than this many years is damage, not a longer run.
inline constexpr int kMaxPeriodYears = 100;

// Reads the text of DAT3.DAT; a line that cannot be read throws FileError
// naming `path` and the line. A period that ends before it starts, or a date
// that does not exist, is damage too.
Dat3 ParseDat3(const std::string& path, std::string_view bytes);

// The numbers of a line of the modules' input: fixed-width fields joined
// without blanks ("  2001.000     7.000") or separated by blanks; a field
// that is no number fails on the reader's line.
std::vector<double> ReadNumbers(const TextReader& reader, std::string_view line, size_t count);
double ReadNumber(const TextReader& reader, std::string_view field);

// The lines of a module input's bytes, without their CR LF ends.
std::vector<std::string> SplitInputLines(std::string_view bytes);

bool IsLeapYear(int year);
int DaysInMonth(int year, int month);

}  // namespace zelmo::modules
