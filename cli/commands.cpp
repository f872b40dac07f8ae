#include "cli/commands.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

#include "cli/stream_dialogs.h"
#include "core/controls.h"
#include "core/fields.h"
#include "core/file_system.h"
#include "core/guard.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text_file.h"
#include "libraries/window_library_export.h"
#include "libraries/window_properties.h"
#include "libraries/window_types_lib.h"
#include "modules/glazing_library.h"
#include "simulation/modules.h"
#include "simulation/results_summary.h"
#include "simulation/run_plan.h"
#include "simulation/side_by_side.h"
#include "site/climate_import.h"
#include "workspace/case_store.h"
#include "workspace/startup.h"

namespace zelmo::cli {

namespace {

// What a command works with: the session of the command line and its
// streams. Lines go out whole, one at a time, whichever case writes them.
struct Context {
  Session session;
  std::ostream& out_stream;
  std::ostream& err_stream;
  std::mutex lines;
  void Out(const std::string& line) { Put(out_stream, line); }
  void Err(const std::string& line) { Put(err_stream, line); }
  void Put(std::ostream& stream, const std::string& line) {
    std::lock_guard<std::mutex> lock(lines);
    stream << line << '\n';
    stream.flush();
  }
};

struct Command {
  const char* name;
  const char* arguments;
  const char* summary;
  std::function<int(Context&, const std::vector<std::string>&)> run;
};

int Usage(Context& c, const std::string& what) {
  c.Err("zelmo: " + what + " (zelmo --help lists the commands)");
  return kExitUsage;
}

// The workspace of a project folder: the data folder is its parent, the
// program's folders come from the settings store.
std::optional<int> OpenProject(Context& c, const std::string& folder) {
  Workspace& ws = c.session.ws;
  const std::string project = StripTrailingSeparator(folder);
  if (project.empty() || !FolderExists(project)) {
    c.Err("zelmo: no project folder " + folder);
    return kExitUsage;
  }
  ws.ProjectPath = project;
  ws.ProjectName = LastName(project);
  ws.LocalPath = ParentFolder(project);
  return std::nullopt;
}

// The row of the case in the plan's grid, found by its name in CASES.LIB as
// the screens compare it.
std::optional<int> FindCaseRow(Context& c, const Grid& grid, const std::string& name, int& row) {
  const Workspace& ws = c.session.ws;
  if (grid.rows() > 1) {
    for (row = 1; row < grid.rows(); ++row) {
      if (RowCaseName(grid.Cell(row, kCaseColumn)) == ToLower(TrimBlanks(name))) {
        const std::string folder = JoinPath(ws.ProjectPath, RowCaseName(grid.Cell(row, 0)));
        if (FolderExists(FolderOnDisk(folder))) return std::nullopt;
        c.Err("zelmo: no case folder " + folder);
        return kExitUsage;
      }
    }
  }
  c.Err("zelmo: case " + name + " is not in " + CasesFilePath(ws));
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
void ModuleLine(Context& c, int col, const Grid& case_grid) {
  if (col < kFirstModuleColumn) return;
  const std::string& cell = case_grid.Cell(1, col);
  const char* event = cell == kRunning   ? "started"
                      : cell == kEnded   ? "ended"
                      : cell == kSkipped ? "skipped"
                      : cell == kFailed  ? "failed"
                                         : nullptr;
  if (!event) return;
  std::string program = kModulePrograms[col - kFirstModuleColumn];
  program = program.substr(0, program.find('.'));
  c.Out(RowCaseName(case_grid.Cell(1, kCaseColumn)) + ": " + program + " " + event);
}

// What the command line asks of a run.
struct RunRequest {
  bool run_modules = false;
  std::array<bool, kModuleCount> modules{};
  bool all = false;
  int jobs = 0;  // 0: not given
  std::vector<std::string> cases;
};

std::string SummaryLine(const std::string& name, const std::string& modules,
                        const std::string& status, const std::string& time) {
  std::string line = PadField(name, std::max<int>(12, static_cast<int>(name.size())), "V");
  return line + "  " + PadField(modules, 7, "H") + "  " + PadField(status, 7, "V") + "  " +
         PadField(time, 9, "H");
}

// The cases of `rows` as the Simulation screen runs its ticked rows side by
// side: Wndw.Lib written once, then up to `jobs` cases at a time, each with
// its modules in order. Several cases end with a summary table.
int RunRows(Context& c, const RunRequest& request, const std::vector<std::string>& rows,
            bool summary) {
  Form form("zelmo");
  Grid grid(&form, "ThermGrid");
  SetUpRunGrid(grid);
  for (const std::string& row_text : rows) {
    grid.AddRow();
    const int row = grid.rows() - 1;
    grid.Cell(row, kCaseColumn) = row_text;
    grid.Cell(row, request.run_modules ? kIncludeColumn : kPrepareColumn) = kWanted;
    for (int m = 0; request.run_modules && m < kModuleCount; ++m) {
      if (request.modules[m]) grid.Cell(row, kFirstModuleColumn + m) = kWanted;
    }
  }
  SideBySide how;
  how.jobs = request.jobs > 0 ? request.jobs
                              : std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
  how.cell_changed = [&c](int, int col, const Grid& case_grid) { ModuleLine(c, col, case_grid); };
  RunEnd end = RunEnd::kCompleted;
  std::vector<CaseOutcome> outcomes;
  if (!RunGuarded(*c.session.dialogs,
                  [&] { outcomes = RunSideBySide(c.session, grid, how, end); })) {
    return kExitFailed;
  }
  if (!summary || outcomes.empty()) return end == RunEnd::kCompleted ? kExitOk : kExitFailed;
  c.Out(SummaryLine("case", "modules", "status", "time"));
  for (const CaseOutcome& outcome : outcomes) {
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%.1f s", outcome.seconds);
    c.Out(SummaryLine(outcome.name, std::to_string(outcome.modules), outcome.Status(), seconds));
  }
  return end == RunEnd::kCompleted ? kExitOk : kExitFailed;
}

int RunCases(Context& c, const std::vector<std::string>& args, bool run_modules) {
  RunRequest request;
  request.run_modules = run_modules;
  request.modules.fill(true);
  std::vector<std::string> positional;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    if (run_modules && arg == "--modules") {
      if (i + 1 == args.size()) return Usage(c, "--modules needs a list of modules");
      auto modules = ParseModules(args[++i]);
      if (!modules) return Usage(c, "unknown module in " + args[i]);
      request.modules = *modules;
    } else if (arg == "--all") {
      request.all = true;
    } else if (arg == "-j" || arg == "--jobs" || (arg.rfind("-j", 0) == 0 && arg.size() > 2)) {
      std::string count = arg.size() > 2 && arg[1] == 'j' ? arg.substr(2) : "";
      if (count.empty()) {
        if (i + 1 == args.size()) return Usage(c, arg + " needs a number of cases");
        count = args[++i];
      }
      if (!IsDigitsOnly(count) || count.size() > 4 || std::stoi(count) < 1) {
        return Usage(c, arg + " needs a number of cases, not " + count);
      }
      request.jobs = std::stoi(count);
    } else if (arg.size() > 1 && arg[0] == '-') {
      return Usage(c, "unknown option " + arg);
    } else {
      positional.push_back(arg);
    }
  }
  if (positional.empty()) return Usage(c, "give a project folder and a case");
  request.cases.assign(positional.begin() + 1, positional.end());
  if (request.cases.empty() && !request.all) return Usage(c, "give a project folder and a case");
  if (!request.cases.empty() && request.all) return Usage(c, "give cases or --all, not both");
  if (auto failed = OpenProject(c, positional[0])) return *failed;
  Form form("zelmo");
  Grid grid(&form, "ThermGrid");
  SetUpRunGrid(grid);
  if (!AddCaseRows(c.session.ws, grid) && request.all) {
    c.Err(std::string(kRunTitle) + ": " + kProjectEmpty);
    return kExitFailed;
  }
  std::vector<std::string> rows;
  for (int row = 1; request.all && row < grid.rows(); ++row) {
    rows.push_back(grid.Cell(row, kCaseColumn));
  }
  std::vector<int> named;
  for (const std::string& name : request.cases) {
    int row = 0;
    if (auto failed = FindCaseRow(c, grid, name, row)) return *failed;
    // A case named twice (in any case of its letters) runs once: two runs of
    // one case side by side would write its files against each other.
    if (std::find(named.begin(), named.end(), row) != named.end()) continue;
    named.push_back(row);
    rows.push_back(grid.Cell(row, kCaseColumn));
  }
  // One case named alone runs as the screen runs its row, with no table.
  return RunRows(c, request, rows, request.all || rows.size() > 1 || request.jobs != 0);
}

// Opens the project of `folder` and fills `grid` with its cases as the
// Simulation screen lists them.
std::optional<int> ProjectCases(Context& c, const std::string& folder, Grid& grid) {
  if (auto failed = OpenProject(c, folder)) return *failed;
  SetUpRunGrid(grid);
  if (!AddCaseRows(c.session.ws, grid)) {
    c.Err(std::string(kRunTitle) + ": " + kProjectEmpty);
    return kExitFailed;
  }
  return std::nullopt;
}

int ListCases(Context& c, const std::vector<std::string>& args) {
  if (args.size() != 1) return Usage(c, "give a project folder");
  Form form("zelmo");
  Grid grid(&form, "ThermGrid");
  if (auto failed = ProjectCases(c, args[0], grid)) return *failed;
  for (int row = 1; row < grid.rows(); ++row) {
    c.Out(RowCaseName(grid.Cell(row, kCaseColumn)));
  }
  return kExitOk;
}

// The yearly results of a case's volumes, one line each, from MUK.SUM: what
// a batch collects after `zelmo run`.
int Summary(Context& c, const std::vector<std::string>& args) {
  if (args.size() != 2) return Usage(c, "give a project folder and a case");
  Form form("zelmo");
  Grid grid(&form, "ThermGrid");
  if (auto failed = ProjectCases(c, args[0], grid)) return *failed;
  int row = 0;
  if (auto failed = FindCaseRow(c, grid, args[1], row)) return *failed;
  const std::string name = RowCaseName(grid.Cell(row, 0));
  const CaseSummary outcome =
      ReadCaseSummary(FolderOnDisk(JoinPath(c.session.ws.ProjectPath, name)));
  if (!outcome.summary) {
    c.Err("zelmo: " + name + ": " + OneLine(outcome.problem));
    return kExitFailed;
  }
  for (const VolumeSummary& volume : outcome.summary->volumes) c.Out(SummaryLine(volume));
  return kExitOk;
}

// U, g and Tsol of one window type or of all, as the window type screen
// shows them: Wndw.Lib written first, then the type's record computed.
int WindowProperties(Context& c, const std::vector<std::string>& args) {
  if (args.empty() || args.size() > 2) {
    return Usage(c, "give a project folder and at most one window type number");
  }
  if (auto failed = OpenProject(c, args[0])) return *failed;
  const Workspace& ws = c.session.ws;
  std::vector<int> numbers;
  try {
    const WindowTable table = ReadWindowTypes(ws);
    for (int row = 1; row <= kMaxWindowTypes; ++row) {
      if (!TrimBlanks(table.Cell(row, 1)).empty()) numbers.push_back(row);
    }
    if (args.size() == 2) {
      const std::string& wanted = args[1];
      const int number = IsDigitsOnly(wanted) && wanted.size() <= 2 ? std::stoi(wanted) : 0;
      if (std::find(numbers.begin(), numbers.end(), number) == numbers.end()) {
        return Usage(c, "no window type " + wanted + " in " +
                            PathOnDisk(JoinPath(ws.ProjectPath, kWindowTypesFile)));
      }
      numbers = {number};
    }
    if (numbers.empty()) {
      c.Err("zelmo: no window types in " + PathOnDisk(JoinPath(ws.ProjectPath, kWindowTypesFile)));
      return kExitFailed;
    }
    // A type without panes keeps the others from nothing here; it has no
    // result of its own.
    WriteWindowLibrary(ws);
    size_t width = 4;
    for (int number : numbers) width = std::max(width, TrimBlanks(table.Cell(number, 1)).size());
    auto row = [&](const std::string& number, const std::string& name, const std::string& u,
                   const std::string& g, const std::string& tsol) {
      c.Out(PadField(number, 4, "H") + "  " + PadField(name, static_cast<int>(width), "V") + "  " +
            PadField(u, 7, "H") + "  " + PadField(g, 7, "H") + "  " + PadField(tsol, 7, "H"));
    };
    row("type", "name", "U", "g", "Tsol");
    bool failed = false;
    const std::string library_path = JoinPath(ws.ProjectPath, kWindowLibraryFile);
    const WindowLibrary library = modules::ReadWindowLibrary(library_path);
    for (int number : numbers) {
      const std::string name = TrimBlanks(table.Cell(number, 1));
      const WindowOutcome outcome = WindowPropertiesIn(library, library_path, number);
      if (!outcome.results) {
        row(std::to_string(number), name, "-", "-", "-");
        c.Err("zelmo: " + OneLine(outcome.fault));
        failed = true;
        continue;
      }
      // The masks of the screen: "###0.00" and "###0.000".
      row(std::to_string(number), name, FormatDecimals(outcome.results->u, 2),
          FormatDecimals(outcome.results->g, 3), FormatDecimals(outcome.results->tsol, 3));
    }
    return failed ? kExitFailed : kExitOk;
  } catch (const FileError& error) {
    c.Err(OneLine(error.UserText()));
    return kExitFailed;
  }
}

// An EnergyPlus weather file made a climate file, as the screen that moves
// climate files does it.
int ImportClimate(Context& c, const std::vector<std::string>& args) {
  if (args.size() != 2) return Usage(c, "give a weather file (.epw) and the climate file to write");
  const ClimateImportOutcome outcome = ImportClimateFile(args[0], args[1]);
  if (!outcome.written) {
    c.Err("zelmo: " + OneLine(outcome.fault) + "; nothing is written");
    return kExitFailed;
  }
  for (const std::string& line : outcome.report) c.Out(line);
  return kExitOk;
}

const std::vector<Command>& Commands() {
  static const std::vector<Command> commands = {
      {"prepare", "<project folder> <case>... | --all [-j N]",
       "write Wndw.Lib for the project, then DAT1.DAT to DAT4.DAT for each case",
       [](Context& c, const std::vector<std::string>& a) { return RunCases(c, a, false); }},
      {"run", "<project folder> <case>... | --all [-j N] [--modules PLOR,NEB,CORV,FENT,DANE,MUK]",
       "prepare each case and run its modules in order (all six by default); several\n"
       "      cases run up to N side by side (default: the number of cores) and end\n"
       "      with a summary table",
       [](Context& c, const std::vector<std::string>& a) { return RunCases(c, a, true); }},
      {"list-cases", "<project folder>", "print the project's cases, one a line", ListCases},
      {"summary", "<project folder> <case>",
       "print the case's yearly results from MUK.SUM, a line per volume: volume,\n"
       "      heating kWh, cooling kWh, peak heating W, peak cooling W (hourly means),\n"
       "      minimum, mean and maximum air temperature C; no or stale results: status 1",
       Summary},
      {"window-properties", "<project folder> [window type number]",
       "write Wndw.Lib for the project, then print U (W/m2,K), g and Tsol of the window\n"
       "      type, or of each, at the centre of the glazing (EN 673, EN 410)",
       WindowProperties},
      {"import-climate", "<file.epw> <file.CLI>",
       "write an EnergyPlus weather file as a climate file; tells its hours, period,\n"
       "      place and the values the weather file lacks",
       ImportClimate},
  };
  return commands;
}

void Help(std::ostream& out) {
  out << "zelmo: the calculation of a ZELMO-QRN project without a display\n\nCommands:\n";
  for (const Command& command : Commands()) {
    out << "  zelmo " << command.name << " " << command.arguments << "\n      " << command.summary
        << "\n";
  }
  out << "  zelmo --help\n      this list\n\nExit status: 0 done, 1 a module failed, a "
         "check refused the run, a window type or a case has no result, 2 the command line was "
         "wrong.\n";
  out.flush();
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& args, const std::string& program_path,
                   SettingsStore& settings, ProcessRunner& processes, std::ostream& out,
                   std::ostream& err) {
  Context c{Session{}, out, err, {}};
  StreamDialogs dialogs([&c](const std::string& line) { c.Err(line); });
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
