// What the library screens share in their checks: the number rule of a field
// within limits, the limits' text, and the one box that shows every fault of
// a check with the focus on the first faulty input.
#pragma once

#include <string>
#include <vector>

namespace zelmo {

class Control;
class Dialogs;

// One failed rule: the input it names (by the caller's numbering) and its
// text.
struct Fault {
  int field;
  std::string message;
};
using Faults = std::vector<Fault>;

inline void AddFault(Faults& faults, bool passes, int field, const std::string& message) {
  if (!passes) faults.push_back({field, message});
}

// The trimmed text a plain number whose value lies within the limits, both
// included; with `single` the comparison is made in single precision.
bool NumberWithin(const std::string& text, double low, double high, bool single = false);
// The trimmed text a plain number above `low` (and below `high`, when given).
bool NumberAbove(const std::string& text, double low);

// A name typed into a library's editor as its file can hold it: a control
// character (a TAB or a line break, typed or pasted) would split the record or
// start another, so every one is left out. Each editor passes its name field
// through this before its checks, for a new record and a changed one alike.
void KeepNameOnOneLine(Control& name);

// The limits of a message behind its "(": lower + " - " + upper + ")" in the
// number-to-text form, so a message reads "( 0 -  100)".
std::string LimitsText(double low, double high);

// Shows every fault in one box, each text followed by a CR, and gives the
// focus to the first faulty input (`inputs` by field number) with its text
// selected. True when there is no fault.
bool ShowFaults(Dialogs& dialogs, const Faults& faults, const std::string& title, int style,
                const std::vector<Control*>& inputs);

}  // namespace zelmo
