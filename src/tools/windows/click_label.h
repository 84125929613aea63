#pragma once

#include <QLabel>
#include <functional>

namespace calvora {

/// A label that is used like a button. One that takes the focus is opened with Enter or Space and
/// left with the arrow keys.
class ClickLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ClickLabel(QWidget* parent = nullptr);

  std::function<void()> clicked = [] {};
  std::function<void()> pointedAt = [] {};  ///< the mouse moved over it
  std::function<void()> focused = [] {};    ///< it got the focus
  std::function<void(Qt::Key)> arrow = [](Qt::Key) {};

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace calvora
