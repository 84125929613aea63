#pragma once

#include <QProxyStyle>

namespace calvora {

/// The toolkit's own look, with one clear ring around whatever has the focus, however it came
/// there: the toolkit marks it but faintly, and buttons and lists only after Tab was pressed.
class FocusStyle : public QProxyStyle {
  Q_OBJECT

 public:
  FocusStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
};

}  // namespace calvora
