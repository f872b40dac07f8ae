// The main window's commands: each menu entry opens the screen that owns it.
#pragma once

namespace zelmo {
class StartForm;
struct Session;
}  // namespace zelmo

namespace zelmo::ui {

// Sets the click handler of every menu entry of the main window. The panel's
// labels follow their menu entries.
void WireCommands(StartForm& main);

}  // namespace zelmo::ui
