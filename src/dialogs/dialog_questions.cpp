#include "dialogs/dialog_questions.h"

#include <QApplication>
#include <QMainWindow>

#include "dialogs/nachricht.h"

namespace calvora {

DialogQuestions::~DialogQuestions() {
  delete errorWindow_;
}

namespace {

/// The window that a message belongs to. Right after another dialog has closed none may be active.
QWidget* askingWindow() {
  if (QWidget* active = QApplication::activeWindow()) return active;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) return window;
  }
  return nullptr;
}

}  // namespace

int DialogQuestions::ask(const Message& message) {
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
