#include "simulation/view_of_build.h"

#include "core/file_system.h"
#include "core/guard.h"
#include "core/ports.h"
#include "core/session.h"
#include "core/text_file.h"
#include "simulation/modules.h"
#include "simulation/prepare_case.h"

namespace zelmo {

void ViewOfBuild(Session& session) {
  const Workspace& ws = session.ws;
  if (!RunGuarded(*session.dialogs, [&ws] { WriteDat1(ws); })) return;
  RunProgram(session, JoinPath(ws.ThermalDirectory, kViewerProgram), {CaseArgument(ws)},
             window_mode::kNoActivate);
}

}  // namespace zelmo
