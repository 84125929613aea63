#include "platform/picture.h"

#include <QPainter>

#include "platform/twips.h"

namespace calvora {

Picture::Picture(Drawing drawing, int side, QWidget* parent)
    : QWidget(parent), drawing_(std::move(drawing)) {
  setFixedSize(twips(side), twips(side));
}

void Picture::paint(QWidget& widget, const Drawing& drawing) {
  QPainter painter(&widget);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(widget.width() / 100.0, widget.height() / 100.0);
  drawing(painter);
}

void Picture::paintEvent(QPaintEvent*) {
  paint(*this, drawing_);
}

}  // namespace calvora
