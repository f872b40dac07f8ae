// The translation of a case into the fixed-width input of the calculation
// modules: DAT1.DAT to DAT4.DAT in the case folder, each rewritten whole from
// the files of the case and of its project. Nothing is checked here; every
// check was made where the data were entered. A missing data file leaves its
// table empty, and the DAT files then carry zeros.
#pragma once

namespace zelmo {

struct Workspace;

// Writes DAT1.DAT (building geometry) of the current case (`CasePath`).
// The overviews of the building write it the same way.
void WriteDat1(const Workspace& ws);

// Writes DAT1.DAT to DAT4.DAT of the current case, deleting a leftover
// FORCEVEN.INP of a case with one volume first. Every file is read before
// the first is written: a damaged data file throws FileError naming it and
// its line, and no DAT file changes. A write that fails throws FileError;
// the DAT files written before it stand.
void PrepareCase(const Workspace& ws);

}  // namespace zelmo
