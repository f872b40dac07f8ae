// A stand-in for the six calculation modules PLOR, NEB, CORV, FENT, DANE and
// MUK, for installations where the real modules are absent. It makes no
// calculation: it checks that its argument is a case folder, reads the
// module input files that exist there, writes a short report of what it read
// (<MODULE>.LIS) and leaves ECM.Dat as a module does.
//
// The same program is installed under the six module names; the name it was
// started under is the module it stands in for.
//
// A file STANDIN.INP in the case folder steers the outcome, so every ending a
// real module can have is reproducible. One instruction a line:
//   <module or ALL> ERROR <code>   ECM.Dat gets this code (a negative code too)
//   <module or ALL> NOSTATUS       no ECM.Dat is left at all
//   <module or ALL> DELAY <secs>   waits this long before it starts its work
//   <module or ALL> EXIT <n>       the process ends with exit code n
// Words and module names are taken whatever their case; other lines are
// ignored.
#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace fs = std::filesystem;

namespace {

std::string Upper(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

// The file in `folder` whose name equals `name` whatever its case; the exact
// name when there is none, so a new file gets it.
fs::path FindFile(const fs::path& folder, const std::string& name) {
  std::error_code ec;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    if (Upper(it->path().filename().string()) == Upper(name)) return it->path();
  }
  return folder / name;
}

bool ReadLines(const fs::path& path, std::vector<std::string>& lines) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return true;
}

bool WriteLines(const fs::path& path, const std::vector<std::string>& lines) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  for (const auto& line : lines) out << line << "\r\n";
  return static_cast<bool>(out);
}

std::string Padded(const std::string& text, size_t width, bool right_aligned) {
  if (text.size() >= width) return text;
  std::string blanks(width - text.size(), ' ');
  return right_aligned ? blanks + text : text + blanks;
}

struct Steering {
  bool has_code = false;
  long code = 0;
  bool no_status = false;
  double delay_seconds = 0;
  int exit_code = 0;
};

Steering ReadSteering(const fs::path& case_folder, const std::string& module) {
  Steering steering;
  std::vector<std::string> lines;
  if (!ReadLines(FindFile(case_folder, "STANDIN.INP"), lines)) return steering;
  for (const auto& line : lines) {
    std::istringstream words(line);
    std::string who, what, value;
    words >> who >> what >> value;
    who = Upper(who);
    what = Upper(what);
    if (who != module && who != "ALL") continue;
    if (what == "ERROR") {
      steering.has_code = true;
      steering.code = std::strtol(value.c_str(), nullptr, 10);
    } else if (what == "NOSTATUS") {
      steering.no_status = true;
    } else if (what == "DELAY") {
      steering.delay_seconds = std::max(0.0, std::strtod(value.c_str(), nullptr));
    } else if (what == "EXIT") {
      steering.exit_code = static_cast<int>(std::strtol(value.c_str(), nullptr, 10));
    }
  }
  return steering;
}

// One report line for an input file: its size, or that it is not there.
std::string Describe(const fs::path& folder, const std::string& name, const std::string& where) {
  fs::path path = FindFile(folder, name);
  std::vector<std::string> lines;
  std::string shown = Padded(name, 10, false) + " (" + where + ")";
  if (!ReadLines(path, lines)) return "  " + shown + ": not present";
  std::error_code ec;
  auto bytes = fs::file_size(path, ec);
  return "  " + shown + ": " + std::to_string(lines.size()) + " lines, " +
         std::to_string(ec ? 0 : bytes) + " bytes";
}

}  // namespace

int main(int argc, char** argv) {
  std::string module = argc > 0 ? Upper(fs::path(argv[0]).stem().string()) : "MODULE";
  if (argc != 2) {
    std::fprintf(stderr, "%s: usage: %s <case folder>%c\n", module.c_str(), module.c_str(),
                 static_cast<char>(fs::path::preferred_separator));
    return 2;
  }
  std::string argument = argv[1];
  fs::path case_folder(argument);
  std::error_code ec;
  if (!fs::is_directory(case_folder, ec)) {
    std::fprintf(stderr, "%s: %s is not an existing case folder\n", module.c_str(),
                 argument.c_str());
    return 2;
  }

  Steering steering = ReadSteering(case_folder, module);
  if (steering.delay_seconds > 0) {
    std::this_thread::sleep_for(std::chrono::duration<double>(steering.delay_seconds));
  }

  fs::path case_name = case_folder;
  if (!case_name.has_filename()) case_name = case_name.parent_path();
  fs::path project_folder = case_name.parent_path();
  std::vector<std::string> report = {
      module + " stand-in calculation module",
      "No calculation was made: this program stands in for the real module " + module + ".",
      "Case folder: " + argument,
      "Input files read:",
  };
  for (const char* name : {"DAT1.DAT", "DAT2.DAT", "DAT3.DAT", "DAT4.DAT"}) {
    report.push_back(Describe(case_folder, name, "case"));
  }
  report.push_back(Describe(project_folder, "Wndw.Lib", "project"));

  long code = steering.has_code ? steering.code : 0;
  fs::path status = FindFile(case_folder, "ECM.Dat");
  if (steering.no_status) {
    fs::remove(status, ec);
    report.push_back("No status file was left.");
  } else {
    WriteLines(status, {Padded(std::to_string(code), 5, true) + " " + Padded(module, 10, false),
                        "Stand-in module", "0"});
    report.push_back("Ended with code " + std::to_string(code) + ".");
  }
  WriteLines(FindFile(case_folder, module + ".LIS"), report);
  return steering.exit_code;
}
