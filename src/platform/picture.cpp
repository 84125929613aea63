#include "platform/picture.h"

#include <QPainter>

#include "platform/twips.h"

namespace calvora {

Picture::Picture(Drawing drawing, int side, QWidget* parent)
    : QWidget(parent), drawing_(std::move(drawing)) {
  setFixedSize(twips(side), twips(side));
}

void Picture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(width() / 100.0, height() / 100.0);
  drawing_(painter);
}

}  // namespace calvora
