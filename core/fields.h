// Field helpers. Every record line of the system is cut with these; they work
// on copies and never fail: a field that is not there is empty text.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zelmo {

// A text typed into a one-line input, as a file of one record a line may
// hold it: every control character (line breaks, TAB, and the rest below a
// blank) is left out.
std::string OneLineText(const std::string& text);

class Dialogs;

inline const std::string kTab = "\t";

// Text left of the first `delimiter`; empty when it is absent.
std::string FieldBefore(const std::string& text, const std::string& delimiter);
// Text right of the first `delimiter`; empty when it is absent.
std::string FieldAfter(const std::string& text, const std::string& delimiter);
// The n-th field of a delimited line, counted from 1.
std::string NthFieldBefore(const std::string& text, const std::string& delimiter, int n);
// Everything right of the n-th delimiter.
std::string NthFieldAfter(const std::string& text, const std::string& delimiter, int n);
std::string FieldBetween(const std::string& text, const std::string& first,
                         const std::string& second);

// Upper and lower case of single-byte text, letters of Windows-1252 included.
std::string ToUpper(const std::string& text);
std::string ToLower(const std::string& text);
bool EqualsIgnoringCase(const std::string& a, const std::string& b);

int16_t MaxInt(int16_t a, int16_t b);
int16_t MinInt(int16_t a, int16_t b);
void SwapText(std::string& a, std::string& b);

bool IsDigitsOnly(const std::string& text);
bool IsDigitsOrEmpty(const std::string& text);

// `text` cut to `width`, then filled with blanks to `width`: "V" on the right,
// "H" on the left, "C" centred (half the blanks, the half rounded to even,
// behind the text, the rest in front). Another mode shows "Ange V,H eller C "
// through `dialogs` when one is given and leaves the text unpadded.
std::string PadField(const std::string& text, int width, const std::string& mode,
                     Dialogs* dialogs = nullptr);

// Splits a TAB line into its fields (all of them, the last one included).
std::vector<std::string> SplitTabs(const std::string& line);

}  // namespace zelmo
