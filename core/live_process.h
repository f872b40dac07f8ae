// Whether a process of this machine is still running, for the temporary
// files that name the process writing them.
#pragma once

namespace zelmo {

// The number of this process.
long long CurrentProcess();
// True while the process with this number runs (or cannot be told apart
// from one that runs: a process of another user counts as running).
bool ProcessIsAlive(long long process);

}  // namespace zelmo
