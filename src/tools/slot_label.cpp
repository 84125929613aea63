#include "tools/slot_label.h"

#include <QKeyEvent>

namespace calvora {

SlotLabel::SlotLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  setMouseTracking(true);
}

void SlotLabel::mousePressEvent(QMouseEvent* event) {
  event->setAccepted(event->button() == Qt::LeftButton);
}

void SlotLabel::mouseReleaseEvent(QMouseEvent* event) {
  const bool click = event->button() == Qt::LeftButton && rect().contains(event->pos());
  if (click) clicked();
}

void SlotLabel::mouseMoveEvent(QMouseEvent* event) {
  if (rect().contains(event->pos())) pointedAt();
}

void SlotLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  focused();
}

void SlotLabel::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (!event->isAutoRepeat()) clicked();
      return;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
      arrow(static_cast<Qt::Key>(event->key()));
      return;
    default:
      QLabel::keyPressEvent(event);  // Escape closes the window
  }
}

}  // namespace calvora
