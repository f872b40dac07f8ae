// Numbers as text. A value stays text until it is compared or computed with;
// these are the rules for reading it, writing it and testing it.
#pragma once

#include <string>

namespace zelmo {

// The number rule: read up to the first character that is no part of a
// number; text with nothing readable is 0. "12abc" is 12, "abc" is 0.
double Val(const std::string& text);
// The same cut to a whole number towards zero and held within plus or minus
// a thousand million, so that a damaged file yields a wild number and never
// an overflow.
int ValInt(const std::string& text);

// The number-to-text rule, with single-precision digits: a non-negative number
// gets one leading blank and no zero before the point, a negative one its
// minus sign; the point is the separator. 0.01 gives " .01", -1 gives "-1".
std::string NumText(double value);
// The same with double-precision digits.
std::string NumTextDouble(double value);

// The value read by the number rule, formatted with `decimals` places (the
// mask "0." plus that many zeros; 0 places end in a closing point, "5."),
// right-aligned in `width` (a longer result loses its right end), with a
// point as the separator whatever the system's number format.
std::string FormatFixed(const std::string& text, int decimals, int width);
// The same for a value already computed.
std::string FormatFixedValue(double value, int decimals, int width);
// The formatted value alone, unpadded.
std::string FormatDecimals(double value, int decimals);

// An unsigned or signed decimal number in plain notation.
bool IsSignedNumberText(const std::string& text);
// A number that may carry an exponent with a sign ("1.5e-3").
bool IsRealNumberText(const std::string& text);

// The value as the runtime's single precision holds it.
inline double ToSingle(double value) { return static_cast<double>(static_cast<float>(value)); }

}  // namespace zelmo
