// Cases run side by side. The cases of a project are independent, so each
// ticked row may run in a thread of its own: a plan of that row alone, in a
// session of its own, exactly as the row would run by itself. Wndw.Lib is
// written once before any case starts. A failing module stops its case and
// the others go on.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "core/controls.h"
#include "core/dialogs.h"
#include "simulation/run_plan.h"

namespace zelmo {

struct Session;

// How one case of a side-by-side run ended.
struct CaseOutcome {
  int row = 0;  // the case's row in the plan
  std::string name;
  int modules = 0;  // modules that ended or failed
  RunEnd end = RunEnd::kCompleted;
  bool ran = false;                // false: never started (a stop came first)
  bool file_error = false;         // a damaged file stopped the case
  std::vector<std::string> cells;  // the row as the case's run left it
  int failed_col = -1;             // the module column painted red, or -1
  double seconds = 0;
  // "ok", "failed", "stopped", "refused", "error" or "not run".
  std::string Status() const;
};

struct SideBySide {
  int jobs = 1;
  // Each case's messages and screens. Called from the case's thread: the
  // port must take calls from any thread (CrossThreadDialogs below).
  Dialogs* case_dialogs = nullptr;
  // Hears, in the case's thread, of every cell the case's run writes: the
  // row of the plan and the case's own grid of one row.
  std::function<void(int row, int col, const Grid& case_grid)> cell_changed;
  // Whether the user has stopped the run; asked from every case's thread.
  std::function<bool()> stopped;
  // Called again and again on the calling thread while cases run, so that a
  // window stays alive; without it the calling thread just waits.
  std::function<void()> idle;
};

// Runs the rows of `grid` that are prepared or included, up to `how.jobs`
// at a time, and gives back one outcome per such row, in row order. A case
// that ends cleanly has its flags committed at once. The
// checks before any case (CASES.LIB, Wndw.Lib) speak through the session's
// dialogs and end the run as RunPlan ends it; `end` tells how. `grid` is not
// written: the caller lays the outcomes' cells into it.
std::vector<CaseOutcome> RunSideBySide(Session& session, const Grid& grid, const SideBySide& how,
                                       RunEnd& end);

// A Dialogs port that threads of cases may call: each call waits until the
// thread that owns the real dialogs carries it out in Pump().
class CrossThreadDialogs : public Dialogs {
 public:
  explicit CrossThreadDialogs(Dialogs& target) : target_(target) {}
  Answer MsgBox(const std::string& text, int style, const std::string& title) override;
  void ShowModal(Form& form) override;
  std::optional<std::string> ChooseFolder(const std::string& title,
                                          const std::string& start) override;
  std::optional<std::string> ChooseFile(const FileChoice& choice) override;
  void SetBusy(bool) override {}
  int TextWidth(const std::string& text) override;
  // Carries out the calls waiting, on the owner's thread.
  void Pump();

 private:
  void Call(const std::function<void()>& call);
  Dialogs& target_;
  std::mutex mutex_;
  std::condition_variable done_;
  std::deque<std::pair<const std::function<void()>*, bool*>> waiting_;
};

}  // namespace zelmo
