#include "tools/trvshow/building_view.h"

#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPolygonF>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "core/text_file.h"

namespace zelmo::trvshow {

namespace {

QPointF At(const Projection& view, Vec3 point) {
  ScreenPoint p = view.Project(point);
  return {p.x, p.y};
}

QPolygonF Polygon(const Projection& view, const std::vector<Vec3>& points) {
  QPolygonF polygon;
  for (const Vec3& p : points) polygon << At(view, p);
  polygon << polygon.front();
  return polygon;
}

const QColor kArrow(198, 40, 40);
const QColor kTurnedRound(220, 0, 0);
// The opacity of a face seen through: enough for its colour to tell what it
// faces, little enough for three faces behind one another to show.
constexpr int kThinFill = 80;

void PaintArrow(QPainter& painter, QPointF from, QPointF to, const QColor& colour) {
  painter.setPen(QPen(colour, 2, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(from, to);
  const QPointF along = to - from;
  const double length = std::hypot(along.x(), along.y());
  if (length < 4) return;
  const QPointF unit = along / length, side(-unit.y(), unit.x());
  const double head = std::min(9.0, length / 2);
  painter.setBrush(colour);
  painter.setPen(Qt::NoPen);
  painter.drawPolygon(
      QPolygonF{to, to - head * unit + head / 2 * side, to - head * unit - head / 2 * side});
}

QString Local(const std::string& cp1252) { return QString::fromUtf8(Utf8FromCp1252(cp1252)); }

}  // namespace

BuildingView::BuildingView(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(320, 240);
}

void BuildingView::SetBuilding(Dat1Building building) {
  building_ = std::move(building);
  faces_ = BuildFaces(building_);
  bounds_ = BoundsOf(faces_);
  hovered_.reset();
  update();
}

void BuildingView::ResetView() {
  camera_.Reset();
  update();
}

void BuildingView::SetNormalsShown(bool shown) {
  normals_ = shown;
  update();
}

void BuildingView::SetSeeThrough(bool see_through) {
  see_through_ = see_through;
  update();
}

QColor BuildingView::FrontColour(Facing facing, bool glass) {
  if (glass) return {129, 212, 250};
  switch (facing) {
    case Facing::kGround:
      return {141, 110, 99};
    case Facing::kBetweenVolumes:
      return {102, 187, 106};
    case Facing::kShadingScreen:
      return {171, 71, 188};
    case Facing::kOutdoor:
      break;
  }
  return {240, 180, 41};
}

QColor BuildingView::BackColour(Facing facing, bool glass) {
  return FrontColour(facing, glass).darker(210);
}

Projection BuildingView::View() const { return Projection(camera_, bounds_, width(), height()); }

std::vector<BuildingView::Placed> BuildingView::Layout() const {
  const Projection view = View();
  std::vector<Placed> placed;
  for (size_t k : view.DrawOrder(faces_)) {
    const Face& face = faces_[k];
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    path.addPolygon(Polygon(view, face.outline));
    if (!face.hole.empty()) path.addPolygon(Polygon(view, face.hole));
    placed.push_back({k, path, view.SeesFront(face)});
  }
  return placed;
}

std::optional<size_t> BuildingView::FaceAt(QPointF point) const {
  std::vector<Placed> placed = Layout();
  for (auto it = placed.rbegin(); it != placed.rend(); ++it) {
    if (it->path.contains(point)) return it->face;
  }
  return std::nullopt;
}

QString BuildingView::FaceText(size_t k) const {
  const Face& face = faces_[k];
  const Dat1Element& el = building_.elements[face.element];
  QString text = Local(el.name);
  if (face.hole_pane)
    text += face.glass ? ", window in the hole" : ", hole";
  else if (face.glass)
    text += ", window";
  if (face.facing == Facing::kShadingScreen) text += ", shading screen";
  text += " - front: " + Local(VolumeText(el.front)) + ", back: " + Local(VolumeText(el.back));
  if (TurnedRound(el)) text += " - turned round: its back faces Outdoor";
  return text;
}

QString BuildingView::TextAt(QPointF point) const {
  std::optional<size_t> face = FaceAt(point);
  return face ? FaceText(*face) : QString();
}

void BuildingView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient sky(0, 0, 0, height());
  sky.setColorAt(0, QColor(246, 248, 250));
  sky.setColorAt(1, QColor(218, 224, 232));
  painter.fillRect(rect(), sky);
  const Projection view = View();
  if (camera_.pitch > 0) PaintGround(painter, view);
  for (const Placed& placed : Layout()) PaintFace(painter, placed, view);
  PaintLegend(painter);
  PaintCompass(painter, view);
}

// A grid on the level of the lowest point, seen from above only: it tells
// up from down and how large the building is.
void BuildingView::PaintGround(QPainter& painter, const Projection& view) const {
  if (faces_.empty()) return;
  double ground = bounds_.centre.z;
  for (const Face& face : faces_) {
    for (const Vec3& p : face.outline) ground = std::min(ground, p.z);
  }
  const double step = std::pow(10.0, std::floor(std::log10(bounds_.radius / 2)));
  const double reach = std::ceil(1.4 * bounds_.radius / step) * step;
  const double x0 = std::round(bounds_.centre.x / step) * step;
  const double y0 = std::round(bounds_.centre.y / step) * step;
  painter.setPen(QPen(QColor(150, 160, 172, 140), 1));
  for (double d = -reach; d <= reach + step / 2; d += step) {
    painter.drawLine(At(view, {x0 + d, y0 - reach, ground}),
                     At(view, {x0 + d, y0 + reach, ground}));
    painter.drawLine(At(view, {x0 - reach, y0 + d, ground}),
                     At(view, {x0 + reach, y0 + d, ground}));
  }
}

void BuildingView::PaintFace(QPainter& painter, const Placed& placed,
                             const Projection& view) const {
  const Face& face = faces_[placed.face];
  const Dat1Element& el = building_.elements[face.element];
  // The arrow out of the front side, from the pane where the element has
  // one: behind the face when the face shows its back, so that the face
  // hides it.
  const bool arrow = normals_ && !face.pane_follows;
  const QPointF from = At(view, face.centre);
  const QPointF to = At(view, face.centre + 0.15 * bounds_.radius * face.front);
  if (arrow && !placed.front_seen) PaintArrow(painter, from, to, kArrow);

  QColor fill = placed.front_seen ? FrontColour(face.facing, face.glass)
                                  : BackColour(face.facing, face.glass);
  painter.setPen(QPen(fill.darker(170), see_through_ ? 1.6 : 1.2));
  if (see_through_) fill.setAlpha(kThinFill);
  painter.setBrush(fill);
  painter.drawPath(placed.path);
  if (!placed.front_seen) {
    painter.setBrush(QBrush(QColor(255, 255, 255, see_through_ ? 50 : 110), Qt::BDiagPattern));
    painter.setPen(Qt::NoPen);
    painter.drawPath(placed.path);
  }
  painter.setBrush(Qt::NoBrush);
  if (TurnedRound(el)) {
    painter.setPen(QPen(kTurnedRound, 2.5, Qt::DashLine));
    painter.drawPath(placed.path);
  }
  if (hovered_ == placed.face) {
    painter.setPen(QPen(Qt::black, 3));
    painter.drawPath(placed.path);
  }
  if (arrow && placed.front_seen) PaintArrow(painter, from, to, kArrow);
}

void BuildingView::PaintLegend(QPainter& painter) const {
  struct Entry {
    QString text;
    QColor colour;
    bool back;
  };
  const Entry entries[] = {
      {"Facing Outdoor", FrontColour(Facing::kOutdoor, false), false},
      {"Facing Ground", FrontColour(Facing::kGround, false), false},
      {"Between volumes", FrontColour(Facing::kBetweenVolumes, false), false},
      {"Shading screen", FrontColour(Facing::kShadingScreen, false), false},
      {"Window", FrontColour(Facing::kOutdoor, true), false},
      {"Back side", BackColour(Facing::kOutdoor, false), true},
  };
  const QFontMetrics metrics = painter.fontMetrics();
  const int row = std::max(metrics.height() + 4, 18);
  const int rows = static_cast<int>(std::size(entries)) + 2;
  int text_width = metrics.horizontalAdvance("Back faces Outdoor");
  for (const Entry& e : entries)
    text_width = std::max(text_width, metrics.horizontalAdvance(e.text));
  const QRect box(8, 8, 40 + text_width + 12, rows * row + 8);
  painter.setPen(QPen(QColor(160, 168, 178), 1));
  painter.setBrush(QColor(255, 255, 255, 215));
  painter.drawRoundedRect(box, 4, 4);
  int y = box.top() + 4;
  auto label = [&](const QString& text) {
    painter.setPen(Qt::black);
    painter.drawText(QRect(box.left() + 40, y, text_width + 8, row), Qt::AlignVCenter, text);
  };
  for (const Entry& e : entries) {
    const QRect swatch(box.left() + 8, y + 3, 24, row - 6);
    painter.setPen(QPen(e.colour.darker(170), 1));
    painter.setBrush(e.colour);
    painter.drawRect(swatch);
    if (e.back) painter.fillRect(swatch, QBrush(QColor(255, 255, 255, 110), Qt::BDiagPattern));
    label(e.text);
    y += row;
  }
  PaintArrow(painter, QPointF(box.left() + 8, y + row / 2.0),
             QPointF(box.left() + 32, y + row / 2.0), kArrow);
  label("Out of the front");
  y += row;
  painter.setPen(QPen(kTurnedRound, 2.5, Qt::DashLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRect(box.left() + 8, y + 4, 24, row - 8));
  label("Back faces Outdoor");
}

void BuildingView::PaintCompass(QPainter& painter, const Projection& view) const {
  const QPointF origin(width() - 48, height() - 48);
  const struct {
    Vec3 direction;
    const char* name;
  } axes[] = {{{0, 1, 0}, "N"}, {{1, 0, 0}, "E"}, {{0, 0, 1}, "Up"}};
  double longest = 0;
  for (const auto& axis : axes) {
    ScreenPoint d = view.Direction(axis.direction);
    longest = std::max(longest, std::hypot(d.x, d.y));
  }
  if (longest <= 0) return;
  for (const auto& axis : axes) {
    ScreenPoint d = view.Direction(axis.direction);
    const QPointF tip = origin + QPointF(d.x, d.y) * (32 / longest);
    PaintArrow(painter, origin, tip, QColor(60, 70, 84));
    painter.setPen(QColor(30, 36, 44));
    const QPointF beyond = origin + QPointF(d.x, d.y) * (44 / longest);
    painter.drawText(QRectF(beyond.x() - 12, beyond.y() - 8, 24, 16), Qt::AlignCenter, axis.name);
  }
}

void BuildingView::Hover(std::optional<size_t> face, QPoint global) {
  if (face == hovered_) return;
  hovered_ = face;
  const QString text = face ? FaceText(*face) : QString();
  if (text.isEmpty()) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(global, text, this);
  }
  if (on_hover) on_hover(text);
  update();
}

void BuildingView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) drag_from_ = event->position();
}

void BuildingView::mouseMoveEvent(QMouseEvent* event) {
  if (drag_from_ && (event->buttons() & Qt::LeftButton)) {
    const QPointF moved = event->position() - *drag_from_;
    drag_from_ = event->position();
    camera_.Turn(-moved.x() * 0.4, moved.y() * 0.4);
    update();
  }
  Hover(FaceAt(event->position()), event->globalPosition().toPoint());
}

void BuildingView::mouseReleaseEvent(QMouseEvent*) { drag_from_.reset(); }

void BuildingView::wheelEvent(QWheelEvent* event) {
  camera_.ZoomBy(std::pow(1.15, event->angleDelta().y() / 120.0));
  update();
}

void BuildingView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_R:
    case Qt::Key_Home:
      camera_.Reset();
      break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      camera_.ZoomBy(1.15);
      break;
    case Qt::Key_Minus:
      camera_.ZoomBy(1 / 1.15);
      break;
    case Qt::Key_Left:
      camera_.Turn(10, 0);
      break;
    case Qt::Key_Right:
      camera_.Turn(-10, 0);
      break;
    case Qt::Key_Up:
      camera_.Turn(0, 10);
      break;
    case Qt::Key_Down:
      camera_.Turn(0, -10);
      break;
    default:
      QWidget::keyPressEvent(event);
      return;
  }
  update();
}

void BuildingView::leaveEvent(QEvent*) { Hover(std::nullopt, QPoint()); }

}  // namespace zelmo::trvshow
