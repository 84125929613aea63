#include "plausi/windows/ph_scale.h"

#include <QPainter>
#include <algorithm>
#include <array>

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLowest = 4;
constexpr int kHighest = 12;

// In heights of the font.
constexpr double kRow = 1.5;
constexpr double kAxis = 1.7;
constexpr double kPadding = 0.4;
constexpr double kGap = 0.8;
constexpr double kRadius = 0.32;

/// The window's content does not jump while these come and go.
constexpr double kUsualMarks = 4;

/// A long name gives way to the scale.
constexpr double kWidestName = 0.4;

const QColor kInk(0x1b, 0x24, 0x30);
const QColor kGrid(0xc9, 0xd3, 0xde);
const QColor kBand(0xdc, 0xe6, 0xf4);
const QColor kMeasured(0x0b, 0x57, 0xd0);

QString unit() {
  return u"pH-Wert"_s;
}

QString nothingToShow() {
  return u"noch kein pH-Wert gemessen oder errechnet"_s;
}

QString figures(const PhMark& mark) {
  return u"%1 ± %2"_s.arg(numberText(mark.ph, Format::kTwoDecimals),
                          numberText(mark.uncertainty, Format::kTwoDecimals));
}

/// A shape of its own for every mark, around the origin and within the unit circle.
QPolygonF shapeOf(size_t index) {
  static const std::array kShapes{
      QPolygonF({{0, -1}, {1, 0}, {0, 1}, {-1, 0}}),                    // diamond
      QPolygonF({{-0.8, -0.8}, {0.8, -0.8}, {0.8, 0.8}, {-0.8, 0.8}}),  // square
      QPolygonF({{0, -1}, {0.95, 0.75}, {-0.95, 0.75}}),                // triangle
      QPolygonF({{0, 1}, {0.95, -0.75}, {-0.95, -0.75}}),               // triangle upside down
      QPolygonF({{-0.45, -1}, {0.45, -1}, {0.45, 1}, {-0.45, 1}}),      // upright bar
      QPolygonF({{-0.5, -0.9}, {0.5, -0.9}, {1, 0}, {0.5, 0.9}, {-0.5, 0.9}, {-1, 0}}),  // hexagon
  };
  return kShapes.at(index % kShapes.size());
}

/// One picture while it is painted. Lengths follow from the font, on every device.
class ScalePicture {
 public:
  ScalePicture(QPainter& painter, const QRectF& area, const std::vector<PhMark>& marks)
      : painter_(painter),
        metrics_(painter.font(), painter.device()),
        marks_(marks),
        em_(metrics_.height()),
        area_(area.adjusted(kPadding * em_, kPadding * em_, -kPadding * em_, 0)) {
    double names = metrics_.horizontalAdvance(unit());
    double values = em_;
    for (const PhMark& mark : marks) {
      names = std::max(names, metrics_.horizontalAdvance(mark.name));
      values = std::max(values, metrics_.horizontalAdvance(figures(mark)));
    }
    names = std::min(names, kWidestName * area_.width());
    const double gap = kGap * em_;
    plot_ = area_.adjusted(names + gap, 0, -values - gap, -kAxis * em_);
    row_ = plot_.height() / std::max(1.0, static_cast<double>(marks.size()));
  }

  void paint() {
    painter_.setRenderHint(QPainter::Antialiasing);
    paintMeasured();
    paintAxis();
    for (size_t i = 0; i < marks_.size(); ++i) paintMark(i);
    if (!marks_.empty()) return;
    painter_.setPen(kInk);
    painter_.drawText(plot_, Qt::AlignCenter, nothingToShow());
  }

 private:
  [[nodiscard]] double x(double ph) const {
    const double part = (std::clamp<double>(ph, kLowest, kHighest) - kLowest);
    return plot_.left() + plot_.width() * part / (kHighest - kLowest);
  }
  [[nodiscard]] double line() const { return em_ / 14; }

  /// The measured value and its uncertainty behind all rows, to compare the estimates with.
  void paintMeasured() {
    const auto measured = std::ranges::find(marks_, true, &PhMark::measured);
    if (measured == marks_.end()) return;
    const double left = x(measured->ph - measured->uncertainty);
    const double right = x(measured->ph + measured->uncertainty);
    painter_.fillRect(QRectF(left, plot_.top(), right - left, plot_.height()), kBand);
    painter_.setPen(QPen(kMeasured, line(), Qt::DashLine));
    painter_.drawLine(QPointF(x(measured->ph), plot_.top()),
                      QPointF(x(measured->ph), plot_.bottom()));
  }

  void paintAxis() {
    for (int ph = kLowest; ph <= kHighest; ++ph) {
      const double at = x(ph);
      painter_.setPen(QPen(kGrid, line(), Qt::DotLine));
      painter_.drawLine(QPointF(at, plot_.top()), QPointF(at, plot_.bottom()));
      painter_.setPen(QPen(kInk, line()));
      painter_.drawLine(QPointF(at, plot_.bottom()), QPointF(at, plot_.bottom() + em_ / 3));
      if (ph < kHighest) {
        const double half = x(ph + 0.5);
        painter_.drawLine(QPointF(half, plot_.bottom()), QPointF(half, plot_.bottom() + em_ / 6));
      }
      const QRectF label(at - em_, plot_.bottom() + em_ / 3, 2 * em_, em_);
      painter_.drawText(label, Qt::AlignCenter, QString::number(ph));
    }
    painter_.setPen(QPen(kInk, 1.5 * line()));
    painter_.drawLine(plot_.bottomLeft(), plot_.bottomRight());
    const QRectF name(area_.left(), plot_.bottom() + em_ / 3, plot_.left() - area_.left(), em_);
    painter_.drawText(name, Qt::AlignLeft | Qt::AlignVCenter, unit());
  }

  void paintMark(size_t index) {
    const PhMark& mark = marks_[index];
    const QColor colour = mark.measured ? kMeasured : kInk;
    const double top = plot_.top() + row_ * static_cast<double>(index);
    const double y = top + row_ / 2;
    const double names = plot_.left() - kGap * em_ - area_.left();
    painter_.setPen(colour);
    painter_.drawText(QRectF(area_.left(), top, names, row_), Qt::AlignLeft | Qt::AlignVCenter,
                      metrics_.elidedText(mark.name, Qt::ElideRight, names));
    painter_.drawText(QRectF(plot_.right(), top, area_.right() - plot_.right(), row_),
                      Qt::AlignRight | Qt::AlignVCenter, figures(mark));
    painter_.setPen(QPen(colour, 1.5 * line()));
    if (mark.ph < kLowest || mark.ph > kHighest) return paintArrow(mark, y, colour);
    paintBar(mark, y);
    painter_.setBrush(mark.measured ? colour : QColor(Qt::white));
    painter_.drawPolygon(placed(shapeOf(index), x(mark.ph), y));
  }

  /// An end that lies outside the scale has no cap.
  void paintBar(const PhMark& mark, double y) {
    const double cap = 0.25 * em_;
    for (const double end : {mark.ph - mark.uncertainty, mark.ph + mark.uncertainty}) {
      painter_.drawLine(QPointF(x(mark.ph), y), QPointF(x(end), y));
      if (end < kLowest || end > kHighest) continue;
      painter_.drawLine(QPointF(x(end), y - cap), QPointF(x(end), y + cap));
    }
  }

  void paintArrow(const PhMark& mark, double y, const QColor& colour) {
    const double direction = mark.ph < kLowest ? -1 : 1;
    const double edge = x(mark.ph);
    painter_.drawLine(QPointF(edge, y), QPointF(edge - direction * 1.5 * em_, y));
    painter_.setBrush(colour);
    const QPolygonF head({{direction, 0}, {-direction, -1}, {-direction, 1}});
    painter_.drawPolygon(placed(head, edge - direction * kRadius * em_, y));
  }

  [[nodiscard]] QPolygonF placed(const QPolygonF& shape, double x, double y) const {
    QTransform place = QTransform::fromTranslate(x, y);
    place.scale(kRadius * em_, kRadius * em_);
    return place.map(shape);
  }

  QPainter& painter_;
  QFontMetricsF metrics_;
  const std::vector<PhMark>& marks_;
  double em_;     ///< the font's height
  QRectF area_;   ///< within the padding
  QRectF plot_;   ///< where the marks are, over the axis
  double row_{};  ///< height of one mark's row
};

QString inWords(const std::vector<PhMark>& marks) {
  QStringList words;
  for (const PhMark& mark : marks) words += u"%1: %2"_s.arg(mark.name, figures(mark));
  return words.isEmpty() ? nothingToShow() : words.join(u"; "_s);
}

}  // namespace

void paintPhScale(QPainter& painter, const QRectF& area, const std::vector<PhMark>& marks) {
  painter.save();
  ScalePicture(painter, area, marks).paint();
  painter.restore();
}

PhScale::PhScale(QWidget* parent) : QWidget(parent) {
  setAccessibleName(u"pH-Skala"_s);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  showMarks({});
}

void PhScale::showMarks(const std::vector<PhMark>& marks) {
  const bool newSize = marks.size() != marks_.size();
  marks_ = marks;
  setAccessibleDescription(inWords(marks));
  if (newSize) updateGeometry();
  update();
}

QSize PhScale::sizeHint() const {
  const double em = QFontMetricsF(font()).height();
  const double rows = std::max(kUsualMarks, static_cast<double>(marks_.size()));
  return {qRound(50 * em), qCeil((kRow * rows + kAxis + kPadding) * em)};
}

QSize PhScale::minimumSizeHint() const {
  return {sizeHint().width() / 2, sizeHint().height()};
}

void PhScale::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  painter.setPen(kGrid);
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  paintPhScale(painter, rect(), marks_);
}

}  // namespace calvora
