#include "simulation/side_by_side.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include "core/guard.h"
#include "core/session.h"

namespace zelmo {

namespace {

// One row as a plan of its own, in a session of its own.
CaseOutcome RunCase(const Session& session, const Grid& grid, int row, const SideBySide& how) {
  CaseOutcome outcome;
  outcome.row = row;
  outcome.name = RowCaseName(grid.Cell(row, kCaseColumn));
  outcome.ran = true;
  const auto start = std::chrono::steady_clock::now();
  Session own = session;
  if (how.case_dialogs) own.dialogs = how.case_dialogs;
  Form form("ThermLoad");
  Grid one(&form, "ThermGrid");
  SetUpRunGrid(one);
  one.AddRow();
  for (int col = 0; col <= kLastModuleColumn; ++col) one.Cell(1, col) = grid.Cell(row, col);
  const bool included = Ticked(one, 1, kIncludeColumn);
  const bool clean = RunGuarded(*own.dialogs, [&] {
    outcome.end = RunPlan(
        own, one,
        [&](int, int col) {
          const std::string& cell = one.Cell(1, col);
          if (col >= kFirstModuleColumn && (cell == kEnded || cell == kFailed)) ++outcome.modules;
          if (how.cell_changed) how.cell_changed(row, col, one);
        },
        false, how.stopped);
    if (outcome.end == RunEnd::kCompleted && included) {
      CommitModuleFlags(own.ws, one);
    }
  });
  if (!clean) {
    outcome.end = RunEnd::kModuleFailed;
    outcome.file_error = true;
  }
  for (int col = 0; col <= kLastModuleColumn; ++col) {
    outcome.cells.push_back(one.Cell(1, col));
    if (one.CellBackColor(1, col) == kFailedColor) outcome.failed_col = col;
  }
  outcome.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  return outcome;
}

}  // namespace

std::string CaseOutcome::Status() const {
  if (!ran) return "not run";
  if (file_error) return "error";
  switch (end) {
    case RunEnd::kCompleted:
      return "ok";
    case RunEnd::kModuleFailed:
      return "failed";
    case RunEnd::kStopped:
      return "stopped";
    case RunEnd::kEmptyProject:
    case RunEnd::kLibraryFault:
      break;
  }
  return "refused";
}

std::vector<CaseOutcome> RunSideBySide(Session& session, const Grid& grid, const SideBySide& how,
                                       RunEnd& end) {
  if (auto refused = CheckBeforeCases(session, true)) {
    end = *refused;
    return {};
  }
  std::vector<int> rows;
  for (int row = 1; row < grid.rows(); ++row) {
    if (Ticked(grid, row, kPrepareColumn) || Ticked(grid, row, kIncludeColumn)) rows.push_back(row);
  }
  std::vector<CaseOutcome> outcomes(rows.size());
  for (size_t k = 0; k < rows.size(); ++k) {
    outcomes[k].row = rows[k];
    outcomes[k].name = RowCaseName(grid.Cell(rows[k], kCaseColumn));
  }
  std::atomic<size_t> next{0};
  std::mutex mutex;
  std::condition_variable finished;
  int running = std::clamp(how.jobs, 1, std::max<int>(1, static_cast<int>(rows.size())));
  auto work = [&] {
    for (size_t k; (k = next++) < rows.size();) {
      if (how.stopped && how.stopped()) break;
      outcomes[k] = RunCase(session, grid, rows[k], how);
    }
    std::lock_guard<std::mutex> lock(mutex);
    --running;
    finished.notify_all();
  };
  std::vector<std::thread> workers;
  for (int j = running; j > 0; --j) workers.emplace_back(work);
  for (;;) {
    {
      std::unique_lock<std::mutex> lock(mutex);
      if (running == 0) break;
      if (!how.idle) {
        finished.wait(lock, [&] { return running == 0; });
        break;
      }
    }
    how.idle();
  }
  for (auto& worker : workers) worker.join();
  bool stopped = false, failed = false;
  for (const CaseOutcome& outcome : outcomes) {
    stopped = stopped || !outcome.ran || outcome.end == RunEnd::kStopped;
    failed = failed || outcome.end != RunEnd::kCompleted;
  }
  end = stopped ? RunEnd::kStopped : failed ? RunEnd::kModuleFailed : RunEnd::kCompleted;
  return outcomes;
}

void CrossThreadDialogs::Call(const std::function<void()>& call) {
  bool done = false;
  std::unique_lock<std::mutex> lock(mutex_);
  waiting_.emplace_back(&call, &done);
  done_.wait(lock, [&] { return done; });
}

void CrossThreadDialogs::Pump() {
  for (;;) {
    std::pair<const std::function<void()>*, bool*> call;
    {
      std::lock_guard<std::mutex> lock(mutex_);
      if (waiting_.empty()) return;
      call = waiting_.front();
      waiting_.pop_front();
    }
    // A call that fails still frees the thread waiting for it.
    struct Release {
      CrossThreadDialogs& self;
      bool* done;
      ~Release() {
        std::lock_guard<std::mutex> lock(self.mutex_);
        *done = true;
        self.done_.notify_all();
      }
    } release{*this, call.second};
    RunGuarded(target_, *call.first);
  }
}

Answer CrossThreadDialogs::MsgBox(const std::string& text, int style, const std::string& title) {
  Answer answer = Answer::kOk;
  Call([&] { answer = target_.MsgBox(text, style, title); });
  return answer;
}

void CrossThreadDialogs::ShowModal(Form& form) {
  Call([&] { target_.ShowModal(form); });
}

std::optional<std::string> CrossThreadDialogs::ChooseFolder(const std::string& title,
                                                            const std::string& start) {
  std::optional<std::string> folder;
  Call([&] { folder = target_.ChooseFolder(title, start); });
  return folder;
}

std::optional<std::string> CrossThreadDialogs::ChooseFile(const FileChoice& choice) {
  std::optional<std::string> file;
  Call([&] { file = target_.ChooseFile(choice); });
  return file;
}

int CrossThreadDialogs::TextWidth(const std::string& text) {
  int width = 0;
  Call([&] { width = target_.TextWidth(text); });
  return width;
}

}  // namespace zelmo
