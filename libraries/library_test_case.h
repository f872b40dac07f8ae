// A project for the tests of the glass, gas and window type libraries: two
// cases with their module flags, and the example project's library files
// when asked for.
#pragma once

#include <cstdlib>
#include <string>

#include "core/file_system.h"
#include "core/inpbox.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo::testing {

inline std::string ExampleFile(const std::string& name) {
  const char* source = std::getenv("ZELMO_SOURCE_DIR");
  return ReadBytes(std::string(source ? source : ".") + "/system/tree/ZELMOPROJ/Example/" + name);
}

struct LibraryCase {
  explicit LibraryCase(bool example = true) {
    Workspace& ws = fake.ws();
    ws.ProjectPath = dir / "proj";
    ws.MainDirectory = dir / "main";
    CreateFolderTree(ws.MainDirectory);
    for (const char* name : {"case1", "case2"}) {
      CreateFolderTree(JoinPath(ws.ProjectPath, name));
      Put(std::string(name) + "/THERMAL.INP", "------\r\n");
    }
    Put("CASES.LIB", "case1 - One\r\ncase2 - Two\r\n");
    if (!example) return;
    for (const char* name : {"GLASSTP.INP", "GASTP.INP", "WNDTP.LIB"}) {
      Put(name, ExampleFile(std::string(name) + "_Temp"));
    }
  }
  std::string Path(const std::string& name) { return JoinPath(fake.ws().ProjectPath, name); }
  void Put(const std::string& name, const std::string& bytes) { WriteBytes(Path(name), bytes); }
  std::string Bytes(const std::string& name) { return ReadBytes(Path(name)); }
  // The input box answers `text` the next time it is shown.
  void AnswerInput(const std::string& text) {
    fake.dialogs.screens["InpBox"] = [text](Form& form) {
      auto& box = static_cast<InpBox&>(form);
      box.Text1.text = text;
      box.Ok();
    };
  }
  bool AllStale() {
    return Bytes("case1/THERMAL.INP") == "XXXXXX\r\n" && Bytes("case2/THERMAL.INP") == "XXXXXX\r\n";
  }

  TempDir dir;
  FakeSession fake;
};

}  // namespace zelmo::testing
