// DAT1.DAT as the building viewer reads it, and the building laid out and
// put in order for drawing.
#include <string_view>

#include "fuzz/fuzz_case.h"
#include "modules/dat1.h"
#include "tools/trvshow/model/scene.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::Survive([&] {
    trvshow::Dat1Building building =
        trvshow::ParseDat1("DAT1.DAT", std::string_view(reinterpret_cast<const char*>(data), size));
    std::vector<trvshow::Face> faces = trvshow::BuildFaces(building);
    trvshow::Projection view(trvshow::Camera(), trvshow::BoundsOf(faces), 640, 480);
    for (size_t k : view.DrawOrder(faces)) view.SeesFront(faces[k]);
  });
  return 0;
}
