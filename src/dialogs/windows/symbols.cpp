#include "dialogs/windows/symbols.h"

#include <QPainter>
#include <QPainterPath>

namespace calvora {

namespace {

constexpr QColor kBlue(0x0b, 0x57, 0xd0);
constexpr QColor kAmber(0xff, 0xc1, 0x07);
constexpr QColor kRed(0xc6, 0x28, 0x28);
constexpr QColor kGreen(0x1b, 0x7f, 0x3b);
constexpr QColor kInk(0x21, 0x21, 0x21);

QPen roundPen(const QColor& colour, int width) {
  return {colour, static_cast<double>(width), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void disc(QPainter& painter, const QColor& fill) {
  painter.setPen(roundPen(Qt::white, 5));
  painter.setBrush(fill);
  painter.drawEllipse(QRectF(5, 5, 90, 90));
}

void polygon(QPainter& painter, const QColor& fill, const QPolygonF& points) {
  painter.setPen(roundPen(Qt::white, 5));
  painter.setBrush(fill);
  painter.drawPolygon(points);
}

void stroke(QPainter& painter, const QColor& colour, const QPolygonF& line) {
  painter.setPen(roundPen(colour, 11));
  painter.drawPolyline(line);
}

void dot(QPainter& painter, const QColor& colour, const QPointF& centre) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawEllipse(centre, 6.5, 6.5);
}

void drawAttention(QPainter& painter) {
  disc(painter, kBlue);
  dot(painter, Qt::white, {50, 27});
  stroke(painter, Qt::white, {{50, 46}, {50, 76}});
}

void drawWarning(QPainter& painter) {
  polygon(painter, kAmber, {{50, 8}, {96, 90}, {4, 90}});
  stroke(painter, kInk, {{50, 36}, {50, 60}});
  dot(painter, kInk, {50, 77});
}

void drawStop(QPainter& painter) {
  polygon(painter, kRed,
          {{31, 5}, {69, 5}, {95, 31}, {95, 69}, {69, 95}, {31, 95}, {5, 69}, {5, 31}});
  stroke(painter, Qt::white, {{34, 34}, {66, 66}});
  stroke(painter, Qt::white, {{66, 34}, {34, 66}});
}

void drawDone(QPainter& painter) {
  disc(painter, kGreen);
  stroke(painter, Qt::white, {{28, 52}, {44, 68}, {73, 35}});
}

void drawQuestion(QPainter& painter) {
  disc(painter, kBlue);
  QPainterPath hook(QPointF(35, 38));
  hook.cubicTo(35, 17, 66, 17, 66, 38);
  hook.cubicTo(66, 50, 50, 48, 50, 62);
  painter.strokePath(hook, roundPen(Qt::white, 11));
  dot(painter, Qt::white, {50, 80});
}

}  // namespace

Picture::Drawing symbolDrawing(Symbol symbol) {
  static const std::array kDrawings{drawAttention, drawWarning, drawStop, drawDone, drawQuestion};
  return kDrawings.at(static_cast<size_t>(symbol) - 1);
}

}  // namespace calvora
