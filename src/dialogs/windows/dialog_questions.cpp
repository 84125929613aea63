#include "dialogs/windows/dialog_questions.h"

#include <QApplication>
#include <QMainWindow>

#include "dialogs/windows/nachricht.h"

namespace calvora {

DialogQuestions::DialogQuestions(Desktop& desktop) : desktop_(desktop) {
  QObject::connect(qApp, &QApplication::focusChanged, &context_, [this](QWidget*, QWidget* now) {
    if (now == nullptr) return;
    QWidget* window = now->window();
    while (window->parentWidget() != nullptr) window = window->parentWidget()->window();
    lastWindow_ = window;
  });
}

DialogQuestions::~DialogQuestions() {
  delete errorWindow_;
}

/// The window that a message belongs to. Right after another dialog has closed none may be active:
/// then it is the lowest of those that the dialog lay over.
QWidget* DialogQuestions::askingWindow() const {
  if (QWidget* active = QApplication::activeWindow()) return active;
  if (lastWindow_ != nullptr && lastWindow_->isVisible()) return lastWindow_;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) return window;
  }
  return nullptr;
}

Button DialogQuestions::ask(const Message& message) {
  nachricht window(askingWindow());
  window.messein(message);
  window.exec();
  return window.answer();
}

void DialogQuestions::reportError(const QString& numberAndLocation) {
  if (errorWindow_ == nullptr) errorWindow_ = new bb_msg(desktop_);
  errorWindow_->message(2, numberAndLocation);
}

}  // namespace calvora
