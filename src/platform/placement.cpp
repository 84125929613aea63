#include "platform/placement.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QMainWindow>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "platform/scrolling_content.h"

namespace calvora {

namespace {

QScreen& screenOf(const QWidget& window) {
  const QWidget* parent = window.parentWidget();
  return *(parent == nullptr ? window.screen() : parent->screen());
}

/// The desktop's frame is known only once the window is shown, so it is estimated.
QSize frameOf(const QWidget& window) {
  const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
  const int border = window.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &window);
  return {2 * border, title + border};
}

/// The place nearest to `wanted` where a window of that size is seen whole with its frame.
QPoint visiblePlace(const QWidget& window, QPoint wanted) {
  const QRect room = screenOf(window).availableGeometry();
  const QSize size = window.size() + frameOf(window);
  const QPoint last = room.bottomRight() + QPoint(1, 1) - QPoint(size.width(), size.height());
  return {std::max(room.left(), std::min(wanted.x(), last.x())),
          std::max(room.top(), std::min(wanted.y(), last.y()))};
}

/// The smallest size in which a window shows all of its content.
QSize neededSize(const QWidget& window) {
  const QLayout* layout = window.layout();
  if (layout == nullptr) return window.size();
  QSize size = layout->totalMinimumSize();
  if (layout->hasHeightForWidth()) {
    size.setHeight(std::max(size.height(), layout->totalMinimumHeightForWidth(size.width())));
  }
  return size;
}

/// Puts all that a window holds into an area that scrolls.
ScrollingContent& letScroll(QWidget& window, int width) {
  const QList<QWidget*> children = window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
  QWidget* focus = window.focusWidget();
  auto* content = new QWidget(&window);
  if (window.layout() == nullptr) content->setFixedSize(window.size());
  if (window.layout() != nullptr) content->setLayout(window.layout());
  content->setMinimumWidth(width);
  for (QWidget* child : children) {
    if (child->isWindow() || child->parentWidget() != &window) continue;
    const bool hidden = child->isHidden();
    child->setParent(content);
    child->setVisible(!hidden);
  }
  window.setMinimumSize(0, 0);
  window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  auto* layout = new QVBoxLayout(&window);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* area = new ScrollingContent(content, &window);
  layout->addWidget(area);
  area->show();
  if (focus != nullptr) focus->setFocus();
  return *area;
}

QSize roomFor(const QWidget& window) {
  return screenOf(window).availableSize() - frameOf(window);
}

/// It brings an area of its own, and its menu stays where it is.
bool isMain(const QWidget& window) {
  return qobject_cast<const QMainWindow*>(&window) != nullptr;
}

/// The toolkit adjusts no window to more than two thirds of the screen, so that one whose content
/// scrolls is made as large as that here.
void fit(QWidget& window) {
  const QSize room = roomFor(window);
  const QSize needed = neededSize(window);
  QSize size = window.size();
  if (needed.boundedTo(room) != needed && !isMain(window)) {
    const ScrollingContent& area = letScroll(window, needed.width());
    if (!window.testAttribute(Qt::WA_Resized)) size = area.sizeHint();
  }
  window.setMinimumSize(window.minimumSize().boundedTo(room));
  size = size.boundedTo(room);
  if (size != window.size()) window.resize(size);
}

/// Sees every window between its design and its first picture.
class Keeper : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Show || event->spontaneous()) return false;
    auto* window = qobject_cast<QWidget*>(watched);
    if (window == nullptr || !window->isWindow()) return false;
    const Qt::WindowType type = window->windowType();
    if (type != Qt::Window && type != Qt::Dialog) return false;
    fit(*window);
    if (window->testAttribute(Qt::WA_Moved)) window->move(visiblePlace(*window, window->pos()));
    return false;
  }
};

}  // namespace

void placeOnScreen(QWidget& window, QPoint wanted) {
  window.adjustSize();
  window.move(visiblePlace(window, screenOf(window).geometry().topLeft() + wanted));
}

void keepWindowsOnScreen(QApplication& application) {
  application.installEventFilter(new Keeper(&application));
}

}  // namespace calvora
