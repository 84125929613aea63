#include "platform/enter_press.h"

#include <QKeyEvent>
#include <QPushButton>

namespace calvora {

namespace {

class EnterPress : public QObject {
 public:
  explicit EnterPress(QPushButton& button) : QObject(&button), button_(button) {}

  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const auto& key = *static_cast<QKeyEvent*>(event);
      if (isEnter(key) && !key.isAutoRepeat()) {
        button_.click();
        return true;
      }
    }
    return QObject::eventFilter(receiver, event);
  }

 private:
  QPushButton& button_;
};

}  // namespace

bool isEnter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

void pressOnEnter(QPushButton& button) {
  button.setAutoDefault(false);
  button.installEventFilter(new EnterPress(button));
}

}  // namespace calvora
