#include "platform/placement.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace calvora {

void placeOnScreen(QWidget& window, QPoint wanted) {
  const QWidget* parent = window.parentWidget();
  const QScreen* screen = parent == nullptr ? window.screen() : parent->screen();
  const QRect room = screen->availableGeometry();
  // The desktop's frame is known only once the window is shown, so it is estimated.
  const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
  const int border = window.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &window);
  window.adjustSize();
  const QSize size = window.size() + QSize(2 * border, title + border);
  const QPoint last = room.bottomRight() - QPoint(size.width(), size.height());
  const QPoint corner = screen->geometry().topLeft() + wanted;
  window.move(std::max(room.left(), std::min(corner.x(), last.x())),
              std::max(room.top(), std::min(corner.y(), last.y())));
}

}  // namespace calvora
