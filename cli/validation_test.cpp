// The validation cases of the project bestest run through the six modules
// of the staged program tree, each result compared with the range of the
// reference programs' example results (docs/validation/reference.csv).
// Labelled "validation": `ctest -L validation` runs it alone.
#include "simulation/validation.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <sstream>

#include "cli/commands.h"
#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "platform/qt_process.h"
#include "workspace/demo.h"

namespace zelmo::cli {
namespace {

// The quantities this program computes outside the reference programs'
// range today, each explained in the README's validation section.
const std::set<std::string> kKnownOutside = {
    "195 annual_sensible_cooling", "195 peak_heating", "200 annual_heating",
    "200 annual_sensible_cooling", "200 peak_heating", "215 annual_heating",
    "215 annual_sensible_cooling", "215 peak_heating", "215 peak_sensible_cooling",
};

// Why the staged modules cannot give the validation results, or nothing.
std::string WhyNotReal(const std::string& dist) {
  const auto muk = ReadAllBytes(JoinPath(dist, "TZELMO/MUK.EXE"));
  if (!muk) return "no TZELMO/MUK.EXE in " + dist;
  if (muk->find("stand-in calculation module") != std::string::npos) {
    return "TZELMO/MUK.EXE is the stand-in, which computes nothing";
  }
  if (!FileCanOpen(JoinPath(dist, std::string("Climate/") + kExampleClimateFile))) {
    return std::string("the Denver climate file Climate/") + kExampleClimateFile +
           " is not in the program tree";
  }
  return "";
}

TEST(Validation, TheNineCasesLieInsideTheReferenceProgramsRange) {
  const std::string dist = std::getenv("ZELMO_DIST_DIR");
  const std::string source = std::getenv("ZELMO_SOURCE_DIR");
  if (const std::string why = WhyNotReal(dist); !why.empty()) GTEST_SKIP() << why;

  // A copy of the project whose site files point at a copy of the climate
  // file on a short path: the modules take it in 60 characters.
  testing::TempDir dir;
  const std::string project = dir / "bestest";
  ASSERT_TRUE(CopyFolderTree(source + "/system/tree/ZELMOPROJ/bestest", project));
  const std::string climate = dir / kExampleClimateFile;
  ASSERT_TRUE(CopyFileOver(JoinPath(dist, std::string("Climate/") + kExampleClimateFile), climate));
  const std::string reference_file = source + "/docs/validation/reference.csv";
  const ReferenceTable reference =
      ParseReference(reference_file, ReadAllBytes(reference_file).value_or(""));
  for (const ReferenceRow& row : reference.rows) {
    ASSERT_TRUE(PointSiteAtClimate(JoinPath(project, BestestCaseFolder(row.case_name)), climate));
  }

  testing::FakeSettings settings;
  settings.values["Zelmo-QRN/Project/SystemPath"] = dist;
  platform::QtProcessRunner processes;
  std::ostringstream out, err;
  ASSERT_EQ(RunCommandLine({"run", project, "--all", "-j", "2"}, JoinPath(dist, "zelmo"), settings,
                           processes, out, err),
            kExitOk)
      << out.str() << err.str();
  for (const Comparison& c : CompareWithReference(reference, project)) {
    const ReferenceRow& r = c.reference;
    ASSERT_TRUE(c.value) << r.case_name << " " << r.quantity << ": " << c.problem;
    // The diagnostic cases of low exterior emittance lose too much heat: the
    // exterior film is one fixed coefficient, with no wind and no part that
    // follows the surface's own radiation (README, the validation). They are
    // held to lie outside as they do now, so a change of the physics that
    // moves them shows here.
    const bool known_outside = kKnownOutside.count(r.case_name + " " + r.quantity) > 0;
    EXPECT_NE(c.Inside(), known_outside)
        << r.case_name << " " << r.quantity << " " << *c.value << " " << r.unit << " outside ["
        << r.min << ", " << r.max << "]";
  }
}

}  // namespace
}  // namespace zelmo::cli
