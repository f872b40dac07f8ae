#include "core/guard.h"

#include <exception>
#include <string>

#include "core/dialogs.h"
#include "core/text_file.h"

namespace zelmo {

bool RunGuarded(Dialogs& dialogs, const std::function<void()>& operation) {
  try {
    operation();
    return true;
  } catch (const FileError& error) {
    dialogs.MsgBox(error.UserText(), mb::kCritical, "Error message");
  } catch (const std::exception& error) {
    dialogs.MsgBox(std::string("The operation was abandoned: ") + error.what(), mb::kCritical,
                   "Error message");
  }
  return false;
}

}  // namespace zelmo
