// DANE.EXE <case folder>/: the outdoor side of a case over its period.
#include "modules/dane.h"

int main(int argc, char** argv) {
  using namespace zelmo::modules;
  return RunModule(argc, argv, kDane, kDaneDat3Damaged, RunDane);
}
