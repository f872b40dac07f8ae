// A project with a wall, window and curtain library and a case whose
// SURFACE.INP the test writes, for the tests of the Surface screen.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo::testing {

// The 29 fields of an outer wall that passes every rule: a 5 by 2.7 m
// rectangle, Outdoor in front, Volume 1 behind, wall 1.
inline std::vector<std::string> OuterWall() {
  return {"0",  "90", "180", "0",  "0", "0", "0", "1",  "5",  "2.7", "",   "", "", "", "1",
          "70", "70", "87",  "87", "",  "",  "",  "70", "70", "87",  "87", "", "", "1"};
}

struct SurfaceCase {
  SurfaceCase() {
    fake.ws().ProjectPath = project.path();
    fake.ws().CasePath = project / "case1";
    std::filesystem::create_directories(ToFsPath(fake.ws().CasePath));
    WriteBytes(fake.ws().CasePath + "/THERMAL.INP", "------\r\n");
    WriteBytes(project / "WALLS.LIB",
               "1\tOuter wall\r\n\t12\t100\r\n\t3\t150\r\n2\tFloor\r\n\t20\t200\r\n"
               "100\tLast wall\r\n\t1\t10\r\n");
    WriteBytes(project / "Wndtp.LIB",
               "1\tDouble\t 2\tClear\tNo\t12\tAir\tClear\tNo\t\t\t\t\t\t\t\t\t\t\t\t\r\n"
               "3\tTriple\t 3\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\r\n");
    WriteBytes(project / "MOVEINS.LIB", "1\tBlind\t10\t40\t.1\r\n");
  }

  using Blocks = std::vector<std::pair<std::string, std::vector<std::string>>>;
  // The bytes of SURFACE.INP: one block per element, fields as given.
  static std::string Bytes(const Blocks& elements) {
    std::string bytes;
    for (const auto& [name, fields] : elements) {
      bytes += name + "\r\n";
      for (const auto& field : fields) bytes += "\t" + field + "\r\n";
    }
    return bytes;
  }
  void Elements(const Blocks& elements) {
    WriteBytes(fake.ws().CasePath + "/SURFACE.INP", Bytes(elements));
  }
  std::string SurfaceBytes() { return ReadBytes(fake.ws().CasePath + "/SURFACE.INP"); }

  TempDir project;
  FakeSession fake;
};

}  // namespace zelmo::testing
