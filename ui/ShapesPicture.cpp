#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>
#include <QWidget>
#include <vector>

#include "building/surface_rules.h"
#include "building/surface_screen.h"
#include "ui/qt_text.h"
#include "ui/views.h"

namespace zelmo::ui {

namespace {

// One dimension of a drawn shape: its letter, where it starts and ends along
// its axis, and where it stands across the axis.
struct Measure {
  char letter;
  double from;
  double to;
};

struct ShapeDrawing {
  std::vector<QPointF> outline;  // metres, in the element's own plane
  std::vector<QPointF> hole;
  std::vector<Measure> along;    // along the base, drawn below
  std::vector<Measure> upwards;  // up the element, drawn on the left
};

// Sample dimensions for each shape, with the outline walked as the element
// file defines it.
std::vector<ShapeDrawing> Drawings() {
  std::vector<ShapeDrawing> drawings(5);
  drawings[0].outline = {{0, 0}, {4, 0}, {4, 3}, {0, 3}};
  drawings[0].along = {{'A', 0, 4}};
  drawings[0].upwards = {{'B', 0, 3}};
  drawings[1].outline = {{0, 0}, {4, 0}, {2.6, 3}};
  drawings[1].along = {{'B', 0, 2.6}, {'A', 0, 4}};
  drawings[1].upwards = {{'C', 0, 3}};
  drawings[2].outline = {{0, 0}, {4, 0}, {4, 3}, {0, 3}};
  drawings[2].hole = {{1.2, 1}, {3, 1}, {3, 2.2}, {1.2, 2.2}};
  drawings[2].along = {{'D', 0, 1.2}, {'F', 0, 3}, {'A', 0, 4}};
  drawings[2].upwards = {{'C', 0, 1}, {'E', 0, 2.2}, {'B', 0, 3}};
  drawings[3].outline = {{0, 0}, {4, 0}, {3.4, 3}, {0.5, 2.4}};
  drawings[3].along = {{'D', 0, 0.5}, {'B', 0, 3.4}, {'A', 0, 4}};
  drawings[3].upwards = {{'E', 0, 2.4}, {'C', 0, 3}};
  drawings[4].outline = {{0, 0}, {4, 0}, {4.4, 1.6}, {3, 3.1}, {0.6, 3.1}};
  drawings[4].along = {{'D', 0, 0.6}, {'C', 0, 3}, {'B', 0, 4}, {'A', 0, 4.4}};
  drawings[4].upwards = {{'E', 0, 1.6}, {'F', 0, 3.1}};
  return drawings;
}

// The overview of the five shapes with the letters of their dimensions.
class ShapesCanvas : public QWidget {
 public:
  explicit ShapesCanvas(QWidget* parent) : QWidget(parent) { setFixedSize(kPanel * 5, kHeight); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    // Painted here, not through the palette: the screen's bindings reset it.
    painter.fillRect(rect(), Qt::white);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto drawings = Drawings();
    for (int shape = 0; shape < 5; ++shape) {
      DrawShape(painter, drawings[shape], shape * kPanel, Q(kShapeNames[shape]));
    }
  }

 private:
  static constexpr int kPanel = 180;
  static constexpr int kHeight = 230;
  static constexpr double kScale = 25;  // pixels a metre
  static constexpr int kStep = 13;      // between measure lines

  void DrawShape(QPainter& painter, const ShapeDrawing& d, int left, const QString& title) {
    const double x0 = left + 14 + kStep * static_cast<double>(d.upwards.size());
    const double y0 = 125;
    auto at = [&](QPointF p) { return QPointF(x0 + p.x() * kScale, y0 - p.y() * kScale); };

    painter.setPen(QPen(Qt::black, 2));
    QPolygonF outline;
    for (const auto& p : d.outline) outline << at(p);
    painter.setBrush(QColor(225, 225, 225));
    painter.drawPolygon(outline);
    if (!d.hole.empty()) {
      QPolygonF hole;
      for (const auto& p : d.hole) hole << at(p);
      painter.setBrush(QColor(170, 210, 240));
      painter.drawPolygon(hole);
    }
    painter.setBrush(Qt::black);
    painter.drawEllipse(at({0, 0}), 3, 3);

    QFont font = painter.font();
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QPen(Qt::darkBlue, 1));
    for (size_t i = 0; i < d.along.size(); ++i) {
      const double y = y0 + kStep * static_cast<double>(i + 1);
      const QPointF a = at({d.along[i].from, 0}), b = at({d.along[i].to, 0});
      painter.drawLine(QPointF(a.x(), y), QPointF(b.x(), y));
      painter.drawLine(QPointF(b.x(), y - 3), QPointF(b.x(), y + 3));
      painter.drawLine(QPointF(a.x(), y - 3), QPointF(a.x(), y + 3));
      painter.drawText(QRectF(b.x() + 2, y - 7, 14, 14), Qt::AlignCenter,
                       QString(QChar(d.along[i].letter)));
    }
    for (size_t i = 0; i < d.upwards.size(); ++i) {
      const double x = x0 - kStep * static_cast<double>(i + 1);
      const QPointF a = at({0, d.upwards[i].from}), b = at({0, d.upwards[i].to});
      painter.drawLine(QPointF(x, a.y()), QPointF(x, b.y()));
      painter.drawLine(QPointF(x - 3, b.y()), QPointF(x + 3, b.y()));
      painter.drawLine(QPointF(x - 3, a.y()), QPointF(x + 3, a.y()));
      painter.drawText(QRectF(x - 7, b.y() - 16, 14, 14), Qt::AlignCenter,
                       QString(QChar(d.upwards[i].letter)));
    }
    font.setBold(false);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QRectF(left, kHeight - 26, kPanel, 20), Qt::AlignCenter, title);
  }
};

}  // namespace

void BuildShapesPicture(Form& form, QDialog& dialog, Session&) {
  auto& picture = static_cast<ShapesPicture&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* canvas = new ShapesCanvas(&dialog);
  canvas->setObjectName(Q(picture.Picture1.name()));
  layout->addWidget(canvas);
}

}  // namespace zelmo::ui
