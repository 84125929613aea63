#include "platform/picture.h"

#include <QPainterPath>

namespace calvora {

void drawDrop(QPainter& painter) {
  QPainterPath drop(QPointF(50, 4));
  drop.cubicTo(62, 26, 84, 44, 84, 64);
  drop.cubicTo(84, 84, 69, 96, 50, 96);
  drop.cubicTo(31, 96, 16, 84, 16, 64);
  drop.cubicTo(16, 44, 38, 26, 50, 4);
  QLinearGradient water(0, 0, 0, 100);
  water.setColorAt(0, QColor(0x5f, 0xb3, 0xe6));
  water.setColorAt(1, QColor(0x1f, 0x4e, 0x79));
  painter.setPen(Qt::NoPen);
  painter.setBrush(water);
  painter.drawPath(drop);

  QPainterPath wave(QPointF(24, 66));
  wave.cubicTo(34, 56, 42, 56, 50, 66);
  wave.cubicTo(58, 76, 66, 76, 76, 66);
  painter.setPen(QPen(Qt::white, 6, Qt::SolidLine, Qt::RoundCap));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(wave);
}

void drawCompanySign(QPainter& painter) {
  painter.setPen(QPen(QColor(0x8d, 0x9a, 0xa8), 3, Qt::DashLine));
  painter.setBrush(QColor(0xf7, 0xf9, 0xfb));
  painter.drawRoundedRect(QRectF(4, 4, 92, 92), 8, 8);
  painter.translate(26, 22);
  painter.scale(0.48, 0.56);
  painter.setOpacity(0.35);
  drawDrop(painter);
}

}  // namespace calvora
