#include "tools/validation_report/chart.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace zelmo::validation {

namespace {

constexpr int kTitleHeight = 46;
constexpr int kLabelWidth = 100;
constexpr int kValueWidth = 56;
constexpr int kBarPitch = 20;
constexpr QRgb kProgramColour = 0xff9a9a9a;
constexpr QRgb kRangeColour = 0xffdce8f5;

QString Number(double value, const std::string& unit) {
  return QString::number(value, 'f', unit == "degC" ? 1 : 2);
}

QString Caption(const ReferenceRow& row) {
  QString quantity = QString::fromStdString(row.quantity);
  quantity.replace('_', ' ');
  const QString unit =
      row.unit == "degC" ? QStringLiteral("\u00b0C") : QString::fromStdString(row.unit);
  return QString::fromStdString(row.case_name) + "  " + quantity + " [" + unit + "]";
}

void DrawPanel(QPainter& p, const QRect& area, const std::array<std::string, 6>& programs,
               const Comparison& c) {
  const ReferenceRow& r = c.reference;
  p.setPen(QColor(0xc0, 0xc0, 0xc0));
  p.drawRect(area.adjusted(2, 2, -3, -3));
  QFont font = p.font();
  font.setPixelSize(12);
  font.setBold(true);
  p.setFont(font);
  p.setPen(Qt::black);
  p.drawText(area.adjusted(8, 6, -8, 0), Qt::AlignLeft | Qt::AlignTop, Caption(r));

  // The axis takes in every value and the range, with a margin, so that
  // the programs' differences show.
  double low = r.min, high = r.max;
  for (double v : r.programs) low = std::min(low, v), high = std::max(high, v);
  if (c.value) low = std::min(low, *c.value), high = std::max(high, *c.value);
  const double margin = 0.08 * (high - low > 0 ? high - low : std::max(1e-3, std::abs(high)));
  low -= margin;
  high += margin;
  const int left = area.left() + kLabelWidth, right = area.right() - kValueWidth;
  auto x_of = [&](double v) {
    return left + static_cast<int>(std::lround((v - low) / (high - low) * (right - left)));
  };
  const int top = area.top() + kTitleHeight - 18;
  const int bottom = top + 7 * kBarPitch;
  p.fillRect(QRect(QPoint(x_of(r.min), top), QPoint(x_of(r.max), bottom)),
             QColor::fromRgb(kRangeColour));
  p.setPen(QColor(0x60, 0x60, 0x60));
  p.drawLine(left, bottom, right, bottom);

  font.setBold(false);
  font.setPixelSize(11);
  p.setFont(font);
  // A row: the name, a guide line, the value as a square mark and as text.
  auto bar = [&](int index, const QString& label, double value, QRgb colour, int size) {
    const int y = top + index * kBarPitch + 3;
    const int middle = y + (kBarPitch - 6) / 2;
    p.setPen(Qt::black);
    p.drawText(QRect(area.left() + 4, y, kLabelWidth - 8, kBarPitch - 6),
               Qt::AlignRight | Qt::AlignVCenter, label);
    p.setPen(QColor(0xe0, 0xe0, 0xe0));
    p.drawLine(left, middle, right, middle);
    p.fillRect(QRect(x_of(value) - size / 2, middle - size / 2, size, size),
               QColor::fromRgb(colour));
    p.setPen(Qt::black);
    p.drawText(QRect(right + 4, y, kValueWidth - 4, kBarPitch - 6),
               Qt::AlignLeft | Qt::AlignVCenter, Number(value, r.unit));
  };
  for (int k = 0; k < kReferencePrograms; ++k) {
    bar(k, QString::fromStdString(programs[k]), r.programs[k], kProgramColour, 9);
  }
  const int last = kReferencePrograms;
  if (c.value) {
    font.setBold(true);
    p.setFont(font);
    bar(last, "ZELMO-QRN", *c.value, c.Inside() ? kInsideColour : kOutsideColour, 13);
  } else {
    p.setPen(QColor::fromRgb(kOutsideColour));
    const int y = top + last * kBarPitch + 3;
    p.drawText(QRect(area.left() + 8, y, area.width() - 16, kBarPitch + 20),
               Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
               "ZELMO-QRN: " + QString::fromStdString(c.problem).left(90));
  }
}

}  // namespace

QImage ValidationChart(const ReferenceTable& table, const std::vector<Comparison>& comparisons) {
  const int count = static_cast<int>(comparisons.size());
  const int rows = std::max(1, (count + kPanelColumns - 1) / kPanelColumns);
  QImage image(kPanelColumns * kPanelWidth, rows * kPanelHeight, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (int i = 0; i < count; ++i) {
    const QRect area((i % kPanelColumns) * kPanelWidth, (i / kPanelColumns) * kPanelHeight,
                     kPanelWidth, kPanelHeight);
    DrawPanel(painter, area, table.programs, comparisons[i]);
  }
  return image;
}

}  // namespace zelmo::validation
