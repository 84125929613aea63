#include "platform/focus_style.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr double kWidth = 2;
constexpr double kRadius = 3;

void drawRing(QPainter& painter, const QRect& around, const QPalette& palette) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette.color(QPalette::Highlight), kWidth));
  painter.setBrush(Qt::NoBrush);
  const double inset = kWidth / 2;
  painter.drawRoundedRect(QRectF(around).adjusted(inset, inset, -inset, -inset), kRadius, kRadius);
  painter.restore();
}

bool hasFocus(const QStyleOption* option) {
  return option->state.testFlag(QStyle::State_HasFocus);
}

}  // namespace

FocusStyle::FocusStyle() : QProxyStyle(QStyleFactory::create(u"Fusion"_s)) {}

void FocusStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  if (element == PE_FrameFocusRect) {
    const bool button = qobject_cast<const QPushButton*>(widget) != nullptr;
    drawRing(*painter, button ? widget->rect() : option->rect, option->palette);
    return;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool framed = element == PE_FrameLineEdit || element == PE_PanelButtonCommand;
  if (framed && hasFocus(option)) {
    drawRing(*painter, option->rect, option->palette);
  }
}

/// The frame of a list is where its focus is to be seen.
void FocusStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  QProxyStyle::drawControl(element, option, painter, widget);
  const bool list = qobject_cast<const QAbstractItemView*>(widget) != nullptr;
  if (element == CE_ShapedFrame && list && hasFocus(option)) {
    drawRing(*painter, option->rect, option->palette);
  }
}

void FocusStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  const bool box = control == CC_ComboBox || control == CC_SpinBox;
  if (box && hasFocus(option)) drawRing(*painter, option->rect, option->palette);
}

}  // namespace calvora
