#include "overview/windows/slot_label.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTextLayout>

#include "platform/form.h"
#include "platform/twips.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLines = 3;
const QColor kEmptyColour(0xe0, 0xe0, 0xe0);
const QColor kFilledColour(0x80, 0xff, 0x80);

}  // namespace

SlotLabel::SlotLabel(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setAttribute(Qt::WA_Hover);
  QFont small = font();
  small.setPointSize(8);
  setFont(small);
}

void SlotLabel::showSlot(const QString& caption, bool filled) {
  caption_ = caption;
  filled_ = filled;
  setAccessibleName(caption.simplified());
  updateToolTip();
  update();
}

QColor SlotLabel::backColour() const {
  return filled_ ? kFilledColour : kEmptyColour;
}

QSize SlotLabel::sizeHint() const {
  return {twips(1000), fontMetrics().lineSpacing() * kLines + 8};
}

/// The caption as it is painted; the last line ends in an ellipsis if there is more.
QStringList SlotLabel::shownLines() const {
  const QString text = caption_.simplified();
  const int width = textArea().width();
  QTextLayout layout(text, font());
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  QStringList lines;
  layout.beginLayout();
  while (lines.size() < kLines) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(width);
    const bool last = lines.size() == kLines - 1;
    lines += last ? fontMetrics().elidedText(text.mid(line.textStart()), Qt::ElideRight, width)
                  : text.mid(line.textStart(), line.textLength()).trimmed();
  }
  layout.endLayout();
  return lines;
}

void SlotLabel::updateToolTip() {
  const QStringList lines = shownLines();
  QString tip = u" click -  für Analysen-Datei öffnen  "_s;
  if (!lines.isEmpty() && lines.back().endsWith(u"…"_s)) tip += '\n'_L1 + caption_;
  setToolTip(tip);
}

void SlotLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool marked = hasFocus() || underMouse();
  const double pen = marked ? 2 : 1;
  painter.setPen(QPen(marked ? QColor(0x0b, 0x57, 0xd0) : QColor(0x72, 0x81, 0x94), pen));
  painter.setBrush(isDown() ? backColour().darker(110) : backColour());
  const double inset = pen / 2;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), 3, 3);
  painter.setPen(Qt::black);
  painter.drawText(textArea(), Qt::AlignCenter, shownLines().join('\n'_L1));
}

void SlotLabel::resizeEvent(QResizeEvent* event) {
  QAbstractButton::resizeEvent(event);
  updateToolTip();
}

void SlotLabel::keyPressEvent(QKeyEvent* event) {
  if (isEnter(*event) && !event->isAutoRepeat()) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void SlotLabel::focusInEvent(QFocusEvent* event) {
  QAbstractButton::focusInEvent(event);
  emit entered();
}

}  // namespace calvora
