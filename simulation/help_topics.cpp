#include "simulation/help_topics.h"

#include "core/ports.h"
#include "core/session.h"
#include "core/text_file.h"

namespace zelmo {

std::string HelpFilePath(const Workspace& ws) {
  return JoinPath(JoinPath(ws.ProgramDirectory, "Help_English"), "ZELMO_e.chm");
}

void ShowHelpTopic(Session& session, int context) {
  if (session.desktop) session.desktop->ShowHelp(HelpFilePath(session.ws), context);
}

}  // namespace zelmo
