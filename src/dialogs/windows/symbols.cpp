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

void fillOutlined(QPainter& painter, const QPainterPath& path, const QColor& fill) {
  painter.setPen(QPen(Qt::white, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(fill);
  painter.drawPath(path);
}

QPainterPath disc() {
  QPainterPath path;
  path.addEllipse(QRectF(5, 5, 90, 90));
  return path;
}

QPainterPath polygon(const QPolygonF& points) {
  QPainterPath path;
  path.addPolygon(points);
  path.closeSubpath();
  return path;
}

void stroke(QPainter& painter, const QColor& colour, const QPolygonF& line) {
  painter.setPen(QPen(colour, 11, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(line);
}

void dot(QPainter& painter, const QColor& colour, const QPointF& centre) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawEllipse(centre, 6.5, 6.5);
}

void drawAttention(QPainter& painter) {
  fillOutlined(painter, disc(), kBlue);
  dot(painter, Qt::white, {50, 27});
  stroke(painter, Qt::white, {{50, 46}, {50, 76}});
}

void drawWarning(QPainter& painter) {
  fillOutlined(painter, polygon({{50, 8}, {96, 90}, {4, 90}}), kAmber);
  stroke(painter, kInk, {{50, 36}, {50, 60}});
  dot(painter, kInk, {50, 77});
}

void drawStop(QPainter& painter) {
  const double corner = 31;
  fillOutlined(painter,
               polygon({{corner, 5},
                        {100 - corner, 5},
                        {95, corner},
                        {95, 100 - corner},
                        {100 - corner, 95},
                        {corner, 95},
                        {5, 100 - corner},
                        {5, corner}}),
               kRed);
  stroke(painter, Qt::white, {{34, 34}, {66, 66}});
  stroke(painter, Qt::white, {{66, 34}, {34, 66}});
}

void drawDone(QPainter& painter) {
  fillOutlined(painter, disc(), kGreen);
  stroke(painter, Qt::white, {{28, 52}, {44, 68}, {73, 35}});
}

void drawQuestion(QPainter& painter) {
  fillOutlined(painter, disc(), kBlue);
  QPainterPath hook(QPointF(35, 38));
  hook.cubicTo(35, 17, 66, 17, 66, 38);
  hook.cubicTo(66, 50, 50, 48, 50, 62);
  painter.setPen(QPen(Qt::white, 11, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(hook);
  dot(painter, Qt::white, {50, 80});
}

}  // namespace

Picture::Drawing symbolDrawing(Symbol symbol) {
  static const std::array kDrawings{drawAttention, drawWarning, drawStop, drawDone, drawQuestion};
  return kDrawings.at(static_cast<size_t>(symbol) - 1);
}

}  // namespace calvora
