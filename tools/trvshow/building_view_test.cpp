// The viewer's window drawn offscreen on the example building: the colours
// it must show from above and from below, the name of the element under
// the mouse, and the reset of the view.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QTest>
#include <cstdlib>
#include <map>

#include "tools/test_app.h"
#include "tools/trvshow/model/scene.h"
#include "tools/trvshow/viewer_window.h"

namespace zelmo::trvshow {
namespace {

QApplication& App() { return tools::TestApp(); }

Dat1Building Example() {
  return ReadCaseDat1(std::string(std::getenv("ZELMO_SOURCE_DIR")) + "/simulation/testdata/Case1/");
}

// How many pixels of each colour the picture shows, the legend's own left
// out: the same window with no building gives the legend alone.
class Picture : public ::testing::Test {
 protected:
  Picture() {
    for (ViewerWindow* w : {&window, &empty}) {
      w->resize(900, 640);
      w->show();
    }
  }
  int Count(QColor colour) { return Pixels(window.view(), colour) - Pixels(empty.view(), colour); }
  static int Pixels(QWidget* view, QColor colour) {
    QImage image = view->grab().toImage().convertToFormat(QImage::Format_RGB32);
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == colour.rgb();
    }
    return count;
  }
  void Shot(const char* name) {
    QByteArray dir = qgetenv("ZELMO_SHOT_DIR");
    if (!dir.isEmpty()) window.grab().save(QString::fromLocal8Bit(dir) + "/" + name + ".png");
  }
  QApplication& app = App();
  ViewerWindow window{Example()};
  ViewerWindow empty{Dat1Building()};
};

TEST_F(Picture, FromAboveTheOuterFrontsAndWindowsFromBelowTheGround) {
  EXPECT_EQ(window.windowTitle(), "View of building - Office room in Stockholm");
  Shot("TRVSHOW_above");
  const auto front = [](Facing f, bool glass = false) {
    return BuildingView::FrontColour(f, glass);
  };
  EXPECT_GT(Count(front(Facing::kOutdoor)), 20000);
  EXPECT_GT(Count(front(Facing::kOutdoor, true)), 2000);
  // Every outer element faces out: from outside no back side shows, and the
  // floors and the inner wall are hidden.
  EXPECT_EQ(Count(BuildingView::BackColour(Facing::kOutdoor, false)), 0);
  EXPECT_EQ(Count(front(Facing::kGround)), 0);
  EXPECT_EQ(Count(front(Facing::kBetweenVolumes)), 0);

  window.view()->camera().Turn(180, -75);
  Shot("TRVSHOW_below");
  EXPECT_GT(Count(front(Facing::kGround)), 20000);
  // Seen through, the inner wall's door shows green behind the roof (its
  // arrow put away, which starts there).
  QTest::mouseClick(window.reset(), Qt::LeftButton);
  window.arrows()->click();
  EXPECT_EQ(window.view()->camera().yaw, Camera::kYaw);
  EXPECT_EQ(window.view()->camera().pitch, Camera::kPitch);
  const auto greenness_at_door = [this] {
    BuildingView* view = window.view();
    std::vector<Face> faces = BuildFaces(Example());
    Projection projection(view->camera(), BoundsOf(faces), view->width(), view->height());
    ScreenPoint door = projection.Project(faces.back().centre);
    QColor c =
        view->grab().toImage().pixelColor(static_cast<int>(door.x), static_cast<int>(door.y));
    return c.green() - c.red();
  };
  const int roof = greenness_at_door();
  window.see_through()->click();
  EXPECT_GT(greenness_at_door(), roof + 20);
  Shot("TRVSHOW_see_through");
}

TEST_F(Picture, TheElementUnderTheMouseIsNamed) {
  BuildingView* view = window.view();
  std::vector<Face> faces = BuildFaces(Example());
  Projection projection(view->camera(), BoundsOf(faces), view->width(), view->height());
  const struct {
    size_t face;
    const char* text;
  } rows[] = {
      {0, "South 1 - front: Outdoor, back: Volume 1"},
      {1, "South 1, window in the hole - front: Outdoor, back: Volume 1"},
      {5, "Roof 1 - front: Outdoor, back: Volume 1"},
  };
  for (const auto& row : rows) {
    const Face& face = faces[row.face];
    // Halfway between the hole's edge and the outline's corner lies wall.
    Vec3 at = face.hole.empty() ? face.centre : 0.5 * (face.outline[0] + face.hole[0]);
    ScreenPoint p = projection.Project(at);
    const QPointF point(p.x, p.y);
    QMouseEvent move(QEvent::MouseMove, point, view->mapToGlobal(point), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(view, &move);
    EXPECT_EQ(window.status()->text(), row.text);
  }
  EXPECT_EQ(view->TextAt(QPointF(2, view->height() - 2)), "");
}

TEST(ViewerWindow, AFileThatCannotBeReadIsNamedWithItsLine) {
  EXPECT_EQ(
      LoadFailureText("The shape code must be a whole number from 1 to 5\r/c/DAT1.DAT, line 4"),
      "The building cannot be shown.\nThe shape code must be a whole number from 1 to 5\n"
      "/c/DAT1.DAT, line 4");
}

}  // namespace
}  // namespace zelmo::trvshow
