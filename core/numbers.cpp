#include "core/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "core/fields.h"
#include "core/text_file.h"

namespace zelmo {

double Val(const std::string& text) {
  size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  size_t start = i;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  size_t digits = 0;
  while (i < text.size() && text[i] >= '0' && text[i] <= '9') ++i, ++digits;
  if (i < text.size() && text[i] == '.') {
    ++i;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9') ++i, ++digits;
  }
  if (digits == 0) return 0.0;
  size_t end = i;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
    size_t j = i + 1;
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
    size_t exp_digits = 0;
    while (j < text.size() && text[j] >= '0' && text[j] <= '9') ++j, ++exp_digits;
    if (exp_digits > 0) end = j;
  }
  // A whole number of a few digits, the most of what is typed, is summed up
  // at once; the library reads the rest.
  const bool sign = text[start] == '+' || text[start] == '-';
  if (end - start == digits + (sign ? 1 : 0) && digits <= 15) {
    double whole = 0;
    for (size_t k = end - digits; k < end; ++k) whole = whole * 10 + (text[k] - '0');
    return text[start] == '-' ? -whole : whole;
  }
  std::string number = text.substr(start, end - start);
  for (char& c : number) {
    if (c == 'd' || c == 'D') c = 'e';
  }
  if (number[0] == '+') number.erase(0, 1);
  double value = 0.0;
  auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    return number[0] == '-' ? -HUGE_VAL : HUGE_VAL;
  }
  return value;
}

namespace {

std::string NumTextDigits(double value, int digits) {
  std::array<char, 64> buffer{};
  auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                              std::chars_format::general, digits);
  std::string text(buffer.data(), result.ptr);
  for (char& c : text) {
    if (c == 'e') c = 'E';
  }
  if (text.rfind("0.", 0) == 0) text.erase(0, 1);
  if (text.rfind("-0.", 0) == 0) text.erase(1, 1);
  if (text == "-0") text = "0";
  return text[0] == '-' ? text : " " + text;
}

}  // namespace

std::string NumText(double value) { return NumTextDigits(static_cast<float>(value), 7); }
std::string NumTextDouble(double value) { return NumTextDigits(value, 15); }

std::string FormatDecimals(double value, int decimals) {
  if (decimals < 0) decimals = 0;
  if (!std::isfinite(value)) value = 0.0;
  // Whole numbers, most of what the module input holds, need no rounding.
  if (std::fabs(value) < 1e15 && value == std::trunc(value)) {
    const auto whole = static_cast<int64_t>(std::fabs(value));
    std::string text = (value < 0 ? "-" : "") + std::to_string(whole) + ".";
    text.append(static_cast<size_t>(decimals), '0');
    return text;
  }
  // A value with no more places than asked for, such as 2.5 to two places,
  // comes out of its scaled whole number: nothing lies near a half there.
  constexpr double kPowers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
  if (decimals <= 9) {
    const double scaled = value * kPowers[decimals];
    const double nearest = std::nearbyint(scaled);
    if (std::fabs(nearest) < 1e9 && std::fabs(scaled - nearest) < 1e-6) {
      std::string digits = std::to_string(static_cast<int64_t>(std::fabs(nearest)));
      const auto places = static_cast<size_t>(decimals);
      if (digits.size() < places + 1) digits.insert(0, places + 1 - digits.size(), '0');
      const size_t point = digits.size() - places;
      return (nearest < 0 ? "-" : "") + digits.substr(0, point) + "." + digits.substr(point);
    }
  }
  // Round half away from zero on the value's fifteen significant digits, as
  // the runtime's Format does, so 2.5 gives "3." and 1.005 gives "1.01".
  std::array<char, 64> buffer{};
  auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                              std::chars_format::scientific, 14);
  std::string_view sci(buffer.data(), result.ptr - buffer.data());
  size_t e = sci.find('e');
  std::string mantissa;
  for (char c : sci.substr(0, e)) {
    if (c != '.') mantissa.push_back(c);
  }
  int exponent = 0;
  std::from_chars(sci.data() + e + 1 + (sci[e + 1] == '+' ? 1 : 0), sci.data() + sci.size(),
                  exponent);
  // Digits of the value as a whole number times 10^decimals.
  int point = exponent + 1;  // digits before the decimal point
  std::string digits;
  int keep = point + decimals;
  if (value == 0.0) keep = 0;
  bool round_up = false;
  if (keep >= 0) {
    for (int k = 0; k < keep; ++k) {
      digits.push_back(k < static_cast<int>(mantissa.size()) ? mantissa[k] : '0');
    }
    round_up = keep < static_cast<int>(mantissa.size()) && mantissa[keep] >= '5';
  }
  if (round_up) {
    int k = static_cast<int>(digits.size()) - 1;
    while (k >= 0 && digits[k] == '9') digits[k--] = '0';
    if (k >= 0) {
      digits[k]++;
    } else {
      digits.insert(digits.begin(), '1');
    }
  }
  while (static_cast<int>(digits.size()) < decimals + 1) digits.insert(digits.begin(), '0');
  std::string whole = digits.substr(0, digits.size() - decimals);
  std::string fraction = digits.substr(digits.size() - decimals);
  while (whole.size() > 1 && whole[0] == '0') whole.erase(0, 1);
  bool zero = whole.find_first_not_of('0') == std::string::npos &&
              fraction.find_first_not_of('0') == std::string::npos;
  std::string text = (value < 0 && !zero ? "-" : "") + whole + "." + fraction;
  return text;
}

std::string FormatFixed(const std::string& text, int decimals, int width) {
  return FormatFixedValue(Val(TrimBlanks(text)), decimals, width);
}

std::string FormatFixedValue(double value, int decimals, int width) {
  // Right-aligned in the width; a longer text loses its right end.
  std::string text = FormatDecimals(value, decimals);
  const auto room = static_cast<size_t>(std::max(width, 0));
  if (text.size() >= room) {
    text.resize(room);
  } else {
    text.insert(0, room - text.size(), ' ');
  }
  return text;
}

bool IsSignedNumberText(const std::string& text) {
  if (text.empty()) return false;
  if (text == "-" || text == "." || text == "+") return false;
  int points = 0, pluses = 0, minuses = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (c >= '0' && c <= '9') continue;
    if (c == '.') {
      ++points;
    } else if (c == '+' || c == '-') {
      if (i != 0) return false;
      (c == '+' ? pluses : minuses)++;
    } else {
      return false;
    }
  }
  return points <= 1 && pluses <= 1 && minuses <= 1;
}

bool IsRealNumberText(const std::string& text) {
  // The character classes: 0 to 9 digits, 11 "+", 12 "-", 13 ".", 14 "e",
  // 15 anything else. The class table has room for 11 characters.
  if (text.empty()) return false;
  if (text.size() > 11) return false;
  auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
  if (text.size() == 1) return is_digit(text[0]);
  if (text.back() == '.') return false;
  int es = 0, points = 0, pluses = 0, minuses = 0, others = 0;
  size_t e_at = std::string::npos;
  for (size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (is_digit(c)) continue;
    if (c == '+') {
      ++pluses;
    } else if (c == '-') {
      ++minuses;
    } else if (c == '.') {
      ++points;
    } else if (c == 'e') {
      ++es;
      if (e_at == std::string::npos) e_at = i;
    } else {
      ++others;
    }
  }
  if (es > 1 || points > 1 || others > 0) return false;
  if (pluses > 2 || minuses > 2) return false;
  const char first = text[0];
  if (es == 1) {
    char sign = e_at + 1 < text.size() ? text[e_at + 1] : '\0';
    if (sign != '+' && sign != '-') return false;
    char lead = e_at + 2 < text.size() ? text[e_at + 2] : '\0';
    if (lead < '1' || lead > '9') return false;
    if (pluses > 1 && first != '+') return false;
    if (minuses > 1 && first != '-') return false;
    if (first == '+' || first == '-') return true;
    return !(pluses == 1 && minuses == 1);
  }
  if (pluses > 0 && minuses > 0) return false;
  if (pluses > 1 || minuses > 1 || points > 1) return false;
  for (size_t i = 1; i < text.size(); ++i) {
    if (text[i] == '+' || text[i] == '-') return false;
  }
  return true;
}

int ValInt(const std::string& text) {
  // Far beyond any count or year of the system, and far enough inside the
  // range of an int that a step or two more cannot overflow.
  constexpr double kLimit = 1e9;
  const double value = Val(text);
  if (!(value > -kLimit)) return static_cast<int>(-kLimit);
  if (!(value < kLimit)) return static_cast<int>(kLimit);
  return static_cast<int>(value);
}

}  // namespace zelmo
