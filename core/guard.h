// The failure policy: an operation that meets damaged input is reported in a
// message box naming the file and the line, and abandoned; the program runs
// on.
#pragma once

#include <functional>

namespace zelmo {

class Dialogs;

// Runs `operation`; on a failure shows it and returns false.
bool RunGuarded(Dialogs& dialogs, const std::function<void()>& operation);

}  // namespace zelmo
