// A project folder with one case for the tests of the conduction and window
// modules: input files put in, the module run as its program runs, what it
// left read back, and the error table's text for a code.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "modules/contract.h"
#include "simulation/module_error.h"

namespace zelmo::modules::testing {

struct ModuleCase {
  ModuleCase() { std::filesystem::create_directories(ToFsPath(case_folder)); }
  // A file of the case folder, or of the project with `in_project`.
  void Put(const std::string& name, const std::string& bytes, bool in_project = false) const {
    zelmo::testing::WriteBytes(JoinPath(in_project ? project : case_folder, name), bytes);
  }
  std::string Bytes(const std::string& name) const {
    const auto bytes = ReadAllBytes(JoinPath(case_folder, name));
    return bytes ? *bytes : "<missing>";
  }
  // The program's whole run: RunModule with the case folder as its argument
  // (with its separator behind it); ECM.Dat as it left it.
  std::string Run(const ModuleId& module, int damaged,
                  void (*body)(const std::string& case_folder)) const {
    std::string argument = JoinPath(case_folder, "");
    std::string name = module.name;
    char* argv[] = {name.data(), argument.data()};
    RunModule(2, argv, module, damaged, body);
    return Bytes("ECM.Dat");
  }
  zelmo::testing::TempDir dir;
  std::string project = dir / "proj";
  std::string case_folder = JoinPath(project, "case1");
};

// The failure an operation raises, its code and line, or "no failure".
inline std::string FailureOf(const std::function<void()>& operation) {
  try {
    operation();
  } catch (const ModuleFailure& failure) {
    return std::to_string(failure.code()) + " " + failure.what();
  }
  return "no failure";
}

// The status file a failure leaves: code, module, the quoted line, "0".
inline std::string FailedStatus(int code, const std::string& module, const std::string& line) {
  std::string name = module;
  name.resize(10, ' ');
  return "  " + std::to_string(code) + " " + name + "\r\n\"" + line + "\"\r\n0\r\n";
}

// The first line of the shipped error table's entry for `code` and the
// module its head names.
inline std::string ErrorTableText(int code) {
  const char* source = std::getenv("ZELMO_SOURCE_DIR");
  if (!source) return "<no source folder>";
  const auto lines =
      ReadAllLines(std::string(source) + "/system/tree/ErrorCodesZelmo/ErrorsZelmo.err");
  if (!lines) return "<no error table>";
  const auto entries = FindErrorEntries(*lines, code);
  if (entries.size() != 1 || entries[0].lines.empty()) return "<no single entry>";
  return entries[0].module + ": " + entries[0].lines[0];
}

}  // namespace zelmo::modules::testing
