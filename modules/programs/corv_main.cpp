// CORV: the walls of the case discretised for the conduction (modules/corv.h).
#include "modules/corv.h"

int main(int argc, char** argv) {
  return zelmo::modules::RunModule(argc, argv, zelmo::modules::kCorv,
                                   zelmo::modules::kCorvDat2Damaged, zelmo::modules::RunCorv);
}
