#include "platform/scrolling_content.h"

#include <QApplication>
#include <QStyle>
#include <algorithm>

namespace calvora {

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
