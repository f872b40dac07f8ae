// What a screen model works with: the workspace state and the ports.
#pragma once

#include "core/dialogs.h"
#include "core/ports.h"
#include "core/workspace.h"

namespace zelmo {

struct Session {
  Workspace ws;
  Dialogs* dialogs = nullptr;
  SettingsStore* settings = nullptr;
  ProcessRunner* processes = nullptr;
  Desktop* desktop = nullptr;
};

}  // namespace zelmo
