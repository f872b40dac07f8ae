// The picture of the building: every element filled and outlined in the
// colour of what it faces, its front side bright and its back side dark and
// hatched, an arrow out of each front side, a legend and the compass. The
// mouse turns the building (drag) and brings it nearer (wheel); pointing at
// an element tells its name and sides.
#pragma once

#include <QColor>
#include <QPainterPath>
#include <QPoint>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "modules/dat1.h"
#include "tools/trvshow/model/scene.h"

namespace zelmo::trvshow {

class BuildingView : public QWidget {
 public:
  explicit BuildingView(QWidget* parent = nullptr);

  void SetBuilding(Dat1Building building);
  Camera& camera() { return camera_; }
  void ResetView();
  void SetNormalsShown(bool shown);
  // Faces filled thinly, so that the elements inside the building show.
  void SetSeeThrough(bool see_through);
  // What the element under a point of the widget is: its name and what its
  // sides face; empty where there is none.
  QString TextAt(QPointF point) const;

  // The fill of a face's front side, and of its back side under the hatch.
  static QColor FrontColour(Facing facing, bool glass);
  static QColor BackColour(Facing facing, bool glass);

  // Called with the text of the element pointed at, empty when none.
  std::function<void(const QString&)> on_hover;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  struct Placed {
    size_t face;
    QPainterPath path;
    bool front_seen;
  };
  Projection View() const;
  // The faces as drawn, from the farthest to the nearest.
  std::vector<Placed> Layout() const;
  std::optional<size_t> FaceAt(QPointF point) const;
  QString FaceText(size_t face) const;
  void PaintGround(QPainter& painter, const Projection& view) const;
  void PaintFace(QPainter& painter, const Placed& placed, const Projection& view) const;
  void PaintLegend(QPainter& painter) const;
  void PaintCompass(QPainter& painter, const Projection& view) const;
  void Hover(std::optional<size_t> face, QPoint global);

  Dat1Building building_;
  std::vector<Face> faces_;
  Bounds bounds_;
  Camera camera_;
  bool normals_ = true;
  bool see_through_ = false;
  std::optional<size_t> hovered_;
  std::optional<QPointF> drag_from_;
};

}  // namespace zelmo::trvshow
