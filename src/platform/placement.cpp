#include "platform/placement.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QMainWindow>
#include <QScreen>
#include <QStyle>
#include <QWindow>
#include <algorithm>
#include <utility>

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

/// The toolkit adjusts no window to more than two thirds of the screen, so that one whose content
/// scrolls is made as large as that here.
void fit(QWidget& window) {
  const QSize room = screenOf(window).availableSize() - frameOf(window);
  const QSize needed = neededSize(window);
  QSize size = window.size();
  // The main window brings an area of its own, and its menu stays where it is.
  const bool isMain = qobject_cast<const QMainWindow*>(&window) != nullptr;
  if (needed.boundedTo(room) != needed && !isMain) {
    const ScrollingContent& area = letScroll(window, needed.width());
    if (!window.testAttribute(Qt::WA_Resized)) size = area.sizeHint();
  }
  window.setMinimumSize(window.minimumSize().boundedTo(room));
  size = size.boundedTo(room);
  if (size != window.size()) window.resize(size);
}

/// Puts a window's frame to a place. The toolkit takes the place of a window that is already made,
/// but not shown, for that of its content.
void moveFrame(QWidget& window, QPoint place) {
  window.move(place);
  if (QWindow* made = window.windowHandle()) made->setFramePosition(place);
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
    if (window->testAttribute(Qt::WA_Moved))
      moveFrame(*window, visiblePlace(*window, window->pos()));
    return false;
  }
};

WindowPlace placeOf(const QWidget& window) {
  const QRect geometry = window.geometry();
  const QRect frame = window.frameGeometry();
  if (!window.isMaximized()) return {.frame = frame, .size = geometry.size()};
  const QRect otherwise = window.normalGeometry();
  const QMargins margins(geometry.left() - frame.left(), geometry.top() - frame.top(),
                         frame.right() - geometry.right(), frame.bottom() - geometry.bottom());
  return {.frame = otherwise + margins, .size = otherwise.size(), .maximised = true};
}

/// Puts a window to its place before it is shown; one that no screen shows whole is forgotten.
void restorePlace(QWidget& window, const WindowPlace& place) {
  const QSize size = place.size.expandedTo(neededSize(window)).boundedTo(window.maximumSize());
  const QRect frame(place.frame.topLeft(), size + place.frame.size() - place.size);
  const QList<QScreen*> screens = QGuiApplication::screens();
  const bool isSeen = std::ranges::any_of(
      screens, [&](const QScreen* screen) { return screen->availableGeometry().contains(frame); });
  if (isSeen) {
    window.resize(size);
    moveFrame(window, frame.topLeft());
  }
  if (place.maximised) window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

/// Sees a window come and go.
class PlaceKeeper : public QObject {
 public:
  PlaceKeeper(QWidget& window, PlaceMemory memory)
      : QObject(&window), window_(window), memory_(std::move(memory)) {}

  /// The desktop has its say between the showing and the first picture.
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint && !shown_) shown_ = placeOf(window_);
    if (event->spontaneous()) return false;
    if (event->type() == QEvent::Show) {
      if (const auto place = memory_.recall()) restorePlace(window_, *place);
    }
    if (event->type() == QEvent::Hide && shown_) {
      const WindowPlace left = placeOf(window_);
      if (left != std::exchange(shown_, std::nullopt)) memory_.keep(left);
    }
    return false;
  }

 private:
  QWidget& window_;
  PlaceMemory memory_;
  std::optional<WindowPlace> shown_;  ///< where it lay in its first picture
};

}  // namespace

void placeOnScreen(QWidget& window, QPoint wanted) {
  window.adjustSize();
  window.move(visiblePlace(window, screenOf(window).geometry().topLeft() + wanted));
}

void keepWindowsOnScreen(QApplication& application) {
  application.installEventFilter(new Keeper(&application));
}

void rememberPlace(QWidget& window, const PlaceMemory& memory) {
  window.installEventFilter(new PlaceKeeper(window, memory));
}

ScrollingContent::ScrollingContent(QWidget* content, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  setWidget(content);
  // What the window painted beneath its content is still to be seen.
  for (QWidget* layer : {content, viewport()}) layer->setAutoFillBackground(false);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { follow(now); });
}

// The controls lose their focus while they are taken down, when there is nothing left to scroll.
ScrollingContent::~ScrollingContent() {
  disconnect(qApp, nullptr, this, nullptr);
}

QSize ScrollingContent::sizeHint() const {
  QSize size = widget()->minimumSizeHint().expandedTo(widget()->minimumSize());
  if (widget()->hasHeightForWidth()) {
    size.setHeight(std::max(size.height(), widget()->heightForWidth(size.width())));
  }
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  return size + QSize(bar, bar);
}

/// By Tab; the toolkit would centre a control that is larger than the window.
bool ScrollingContent::focusNextPrevChild(bool next) {
  const bool moved = QScrollArea::focusNextPrevChild(next);
  if (moved) follow(window()->focusWidget());
  return moved;
}

/// Shows the control that has the focus; its beginning, where it is larger than the window.
void ScrollingContent::follow(const QWidget* focus) {
  if (focus == nullptr || !widget()->isAncestorOf(focus)) return;
  constexpr int kSpare = 12;
  const QSize half = focus->size().boundedTo(viewport()->size()) / 2;
  const QPoint centre = focus->mapTo(widget(), QPoint()) + QPoint(half.width(), half.height());
  const QSize spare = (half + QSize(kSpare, kSpare)).boundedTo(viewport()->size() / 2);
  ensureVisible(centre.x(), centre.y(), spare.width(), spare.height());
}

}  // namespace calvora
