// FENT: the windows of the case by angle of incidence, their heat balance
// data and centre-of-glass U and g (modules/fent.h).
#include "modules/fent.h"

int main(int argc, char** argv) {
  return zelmo::modules::RunModule(argc, argv, zelmo::modules::kFent,
                                   zelmo::modules::kFentLibraryDamaged, zelmo::modules::RunFent);
}
