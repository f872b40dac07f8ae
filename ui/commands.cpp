#include "ui/commands.h"

#include "workspace/start_form.h"

namespace zelmo::ui {

void WireCommands(StartForm& main) {
  // One line per command, grouped by menu: main.M_X.on_click = [&main] { ... };
  (void)main;
}

}  // namespace zelmo::ui
