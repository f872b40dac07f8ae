// MUK.EXE <case folder>/: the heat balance of a case's volumes and its results.
#include "modules/muk.h"

int main(int argc, char** argv) {
  using namespace zelmo::modules;
  return RunModule(argc, argv, kMuk, kMukDat4Damaged, RunMuk);
}
