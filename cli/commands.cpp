#include "cli/commands.h"

#include <functional>
#include <optional>

#include "cli/stream_dialogs.h"
#include "core/controls.h"
#include "core/fields.h"
#include "core/file_system.h"
#include "core/session.h"
#include "core/text_file.h"
#include "simulation/modules.h"
#include "simulation/run_plan.h"
#include "workspace/case_store.h"
#include "workspace/startup.h"

namespace zelmo::cli {

namespace {

// What a command works with: the session of the command line and its
// streams.
struct Context {
  Session session;
  std::ostream& out;
  std::ostream& err;
};

struct Command {
  const char* name;
  const char* arguments;
  const char* summary;
  std::function<int(Context&, const std::vector<std::string>&)> run;
};

int Usage(Context& c, const std::string& what) {
  c.err << "zelmo: " << what << " (zelmo --help lists the commands)" << std::endl;
  return kExitUsage;
}

// The workspace of a project folder: the data folder is its parent, the
// program's folders come from the settings store.
std::optional<int> OpenProject(Context& c, const std::string& folder) {
  Workspace& ws = c.session.ws;
  const std::string project = StripTrailingSeparator(folder);
  if (project.empty() || !FolderExists(project)) {
    c.err << "zelmo: no project folder " << folder << std::endl;
    return kExitUsage;
  }
  ws.ProjectPath = project;
  ws.ProjectName = LastName(project);
  ws.LocalPath = ParentFolder(project);
  return std::nullopt;
}

// The row of the case in the plan's grid, found by its name in CASES.LIB as
// the screens compare it.
std::optional<int> FindCaseRow(Context& c, Grid& grid, const std::string& name, int& row) {
  const Workspace& ws = c.session.ws;
  SetUpRunGrid(grid);
  if (AddCaseRows(ws, grid)) {
    for (row = 1; row < grid.rows(); ++row) {
      if (RowCaseName(grid.Cell(row, kCaseColumn)) == ToLower(TrimBlanks(name))) {
        const std::string folder = JoinPath(ws.ProjectPath, RowCaseName(grid.Cell(row, 0)));
        if (FolderExists(FolderOnDisk(folder))) return std::nullopt;
        c.err << "zelmo: no case folder " << folder << std::endl;
        return kExitUsage;
      }
    }
  }
  c.err << "zelmo: case " << name << " is not in " << CasesFilePath(ws) << std::endl;
  return kExitUsage;
}

// The modules of --modules, by their program names: "PLOR,NEB".
std::optional<std::array<bool, kModuleCount>> ParseModules(const std::string& list) {
  std::array<bool, kModuleCount> wanted{};
  for (const std::string& name : SplitTabs([&] {
         std::string tabs = list;
         for (char& ch : tabs) ch = ch == ',' ? '\t' : ch;
         return tabs;
       }())) {
    const std::string program = ToUpper(TrimBlanks(name)) + ".EXE";
    bool known = false;
    for (int m = 0; m < kModuleCount; ++m) {
      if (kModulePrograms[m] == program) wanted[m] = known = true;
    }
    if (!known) return std::nullopt;
  }
  return wanted;
}

// The lines of a run: one per module event.
std::function<void(int, int)> ModuleLines(Context& c, const Grid& grid) {
  return [&c, &grid](int row, int col) {
    if (col < kFirstModuleColumn) return;
    const std::string& cell = grid.Cell(row, col);
    const char* event = cell == kRunning   ? "started"
                        : cell == kEnded   ? "ended"
                        : cell == kSkipped ? "skipped"
                        : cell == kFailed  ? "failed"
                                           : nullptr;
    if (!event) return;
    std::string program = kModulePrograms[col - kFirstModuleColumn];
    program = program.substr(0, program.find('.'));
    c.out << RowCaseName(grid.Cell(row, kCaseColumn)) << ": " << program << " " << event
          << std::endl;
  };
}

int RunCase(Context& c, const std::vector<std::string>& args, bool run_modules) {
  std::vector<std::string> positional;
  std::optional<std::array<bool, kModuleCount>> modules;
  modules.emplace();
  modules->fill(true);
  for (size_t i = 0; i < args.size(); ++i) {
    if (run_modules && args[i] == "--modules") {
      if (i + 1 == args.size()) return Usage(c, "--modules needs a list of modules");
      modules = ParseModules(args[++i]);
      if (!modules) return Usage(c, "unknown module in " + args[i]);
    } else if (args[i].rfind("--", 0) == 0) {
      return Usage(c, "unknown option " + args[i]);
    } else {
      positional.push_back(args[i]);
    }
  }
  if (positional.size() != 2) return Usage(c, "give a project folder and a case");
  if (auto failed = OpenProject(c, positional[0])) return *failed;
  Form form("zelmo");
  Grid grid(&form, "ThermGrid");
  int row = 0;
  if (auto failed = FindCaseRow(c, grid, positional[1], row)) return *failed;
  grid.Cell(row, run_modules ? kIncludeColumn : kPrepareColumn) = kWanted;
  for (int m = 0; run_modules && m < kModuleCount; ++m) {
    if ((*modules)[m]) grid.Cell(row, kFirstModuleColumn + m) = kWanted;
  }
  try {
    if (RunPlan(c.session, grid, ModuleLines(c, grid)) != RunEnd::kCompleted) return kExitFailed;
    if (run_modules) CommitModuleFlags(c.session.ws, grid);
  } catch (const FileError& error) {
    c.err << OneLine(error.UserText()) << std::endl;
    return kExitFailed;
  }
  return kExitOk;
}

int ListCases(Context& c, const std::vector<std::string>& args) {
  if (args.size() != 1) return Usage(c, "give a project folder");
  if (auto failed = OpenProject(c, args[0])) return *failed;
  Form form("zelmo");
  Grid grid(&form, "ThermGrid");
  SetUpRunGrid(grid);
  if (!AddCaseRows(c.session.ws, grid)) {
    c.err << "zelmo: " << kProjectEmpty << CasesFilePath(c.session.ws) << std::endl;
    return kExitFailed;
  }
  for (int row = 1; row < grid.rows(); ++row) {
    c.out << RowCaseName(grid.Cell(row, kCaseColumn)) << std::endl;
  }
  return kExitOk;
}

const std::vector<Command>& Commands() {
  static const std::vector<Command> commands = {
      {"prepare", "<project folder> <case>",
       "write Wndw.Lib for the project, then DAT1.DAT to DAT4.DAT for the case",
       [](Context& c, const std::vector<std::string>& a) { return RunCase(c, a, false); }},
      {"run", "<project folder> <case> [--modules PLOR,NEB,CORV,FENT,DANE,MUK]",
       "prepare the case and run its modules in order (all six by default)",
       [](Context& c, const std::vector<std::string>& a) { return RunCase(c, a, true); }},
      {"list-cases", "<project folder>", "print the project's cases, one a line", ListCases},
  };
  return commands;
}

void Help(std::ostream& out) {
  out << "zelmo: the calculation of a ZELMO-QRN project without a display\n\nCommands:\n";
  for (const Command& command : Commands()) {
    out << "  zelmo " << command.name << " " << command.arguments << "\n      " << command.summary
        << "\n";
  }
  out << "  zelmo --help\n      this list\n\nExit status: 0 done, 1 a module failed or a "
         "check refused the run, 2 the command line was wrong.\n";
  out.flush();
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& args, const std::string& program_path,
                   SettingsStore& settings, ProcessRunner& processes, std::ostream& out,
                   std::ostream& err) {
  StreamDialogs dialogs(err);
  Context c{Session{}, out, err};
  c.session.dialogs = &dialogs;
  c.session.settings = &settings;
  c.session.processes = &processes;
  if (args.empty()) return Usage(c, "no command");
  if (args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
    Help(out);
    return kExitOk;
  }
  for (const Command& command : Commands()) {
    if (args[0] != command.name) continue;
    Workspace& ws = c.session.ws;
    ws.ProgramDirectory = StripTrailingSeparator(ParentFolder(program_path));
    ReadStoredSettings(settings, ws);
    DeriveDirectories(ws, false);
    return command.run(c, std::vector<std::string>(args.begin() + 1, args.end()));
  }
  return Usage(c, "unknown command " + args[0]);
}

}  // namespace zelmo::cli
