#include "simulation/prepare_case.h"

namespace zelmo {

// The writers come with the module input; until then nothing is written.
void WriteDat1(const Workspace&) {}

void PrepareCase(const Workspace&) {}

}  // namespace zelmo
