// The main() of every test program: where the staged program tree and the
// sources are, and the offscreen platform for the views, unless the caller
// says otherwise, so a test program runs the same from ctest and alone.
#include <gtest/gtest.h>

#include <cstdlib>

namespace {

void SetIfUnset(const char* name, const char* value) {
  if (std::getenv(name)) return;
#ifdef _WIN32
  _putenv_s(name, value);
#else
  setenv(name, value, 0);
#endif
}

}  // namespace

int main(int argc, char** argv) {
  SetIfUnset("ZELMO_DIST_DIR", ZELMO_DEFAULT_DIST_DIR);
  SetIfUnset("ZELMO_STANDIN_TREE", ZELMO_DEFAULT_STANDIN_TREE);
  SetIfUnset("ZELMO_SOURCE_DIR", ZELMO_DEFAULT_SOURCE_DIR);
  SetIfUnset("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
