#include "platform/elided_label.h"

#include <QPainter>
#include <QStyle>

#include "platform/twips.h"

namespace calvora {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setMargin(twips(60));
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  hide();
}

void ElidedLabel::showText(const QString& text) {
  if (this->text() == text) return;
  setText(text);
  setToolTip(text);
  setVisible(!text.isEmpty());
}

QSize ElidedLabel::minimumSizeHint() const {
  constexpr int kLeastCharacters = 6;
  const int width = fontMetrics().averageCharWidth() * kLeastCharacters;
  return {std::min(width, sizeHint().width()), QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  drawFrame(&painter);
  const QRect room = contentsRect().adjusted(margin(), 0, -margin(), 0);
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
  style()->drawItemText(&painter, room, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                        shown, foregroundRole());
}

}  // namespace calvora
