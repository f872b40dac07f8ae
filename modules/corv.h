// CORV, the conduction module: every wall construction of DAT2.DAT
// discretised for the implicit conduction step (conduction.h), with its
// steady surface-to-surface U-value. Its results, CORV.RES, and a report,
// CORV.LIS, go into the case folder.
//
// CORV.RES, after the head line "ZELMO-QRN CORV <fingerprint>" (TAB between
// fields, CR LF, numbers "%.12g"):
//   "Walls" TAB <highest wall number>
//   then per wall number 1 to highest, three lines:
//   "Wall" TAB <number> TAB <nodes> TAB <U, W/m2,K>
//   "C" then TAB and the capacity of each node, J/m2,K (nodes values)
//   "G" then TAB and each conductance between neighbouring nodes, W/m2,K
//   (nodes - 1 values)
#pragma once

#include <string>
#include <vector>

#include "modules/conduction.h"
#include "modules/contract.h"

namespace zelmo::modules {

struct CorvWall {
  int number = 0;
  Construction construction;
};

struct CorvResult {
  std::vector<CorvWall> walls;  // wall numbers 1 to highest, in order
  // The wall of that number, or nothing when it isn't there.
  const CorvWall* Wall(int number) const;
};

// Codes of CORV's own failures (ECM.Dat, ErrorsZelmo.err).
inline constexpr int kCorvDat2Missing = kCorv.base + 1;  // DAT2.DAT cannot be read
inline constexpr int kCorvDat2Damaged = kCorv.base + 2;  // damaged at a line
inline constexpr int kCorvZeroLayer = kCorv.base + 3;    // a layer of no thickness
inline constexpr int kCorvNoMaterial = kCorv.base + 4;   // a material without data
inline constexpr int kCorvBadMaterial = kCorv.base + 5;  // conductivity 0, negative data
inline constexpr int kCorvNoLayers = kCorv.base + 6;     // a wall of no layers

// The fingerprint of CORV's input: the bytes of DAT2.DAT.
std::string CorvFingerprint(const std::string& case_folder);

// The whole module on a case folder: reads DAT2.DAT, writes CORV.RES and
// CORV.LIS. Throws ModuleFailure (or FileError for a damaged DAT2.DAT).
void RunCorv(const std::string& case_folder);

// The steps of RunCorv, for tests and benchmarks: the constructions of
// DAT2.DAT (ModuleFailure for a wall that can't be one), the lines of
// CORV.RES after its head line, and those lines read back (ModuleFailure
// with `code` when damaged).
struct Dat2;
CorvResult ComputeCorv(const Dat2& dat2);
std::vector<std::string> CorvLines(const CorvResult& result);
CorvResult ParseCorvResult(const std::vector<std::string>& lines, int code);

// CORV.RES read back by a module after it. A file that is missing, out of
// date against DAT2.DAT or damaged fails with `code` (the reader's own code),
// naming CORV to run again.
CorvResult ReadCorvResult(const std::string& case_folder, int code);

}  // namespace zelmo::modules
