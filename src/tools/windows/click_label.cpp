#include "tools/windows/click_label.h"

#include <QKeyEvent>

namespace calvora {

ClickLabel::ClickLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  setMouseTracking(true);
}

void ClickLabel::mousePressEvent(QMouseEvent* event) {
  event->setAccepted(event->button() == Qt::LeftButton);
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
  const bool click = event->button() == Qt::LeftButton && rect().contains(event->pos());
  if (click) clicked();
}

void ClickLabel::mouseMoveEvent(QMouseEvent* event) {
  if (rect().contains(event->pos())) pointedAt();
}

void ClickLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  focused();
}

void ClickLabel::keyPressEvent(QKeyEvent* event) {
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
