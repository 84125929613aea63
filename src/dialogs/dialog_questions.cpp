#include "dialogs/dialog_questions.h"

#include <QApplication>

#include "dialogs/nachricht.h"

namespace calvora {

DialogQuestions::~DialogQuestions() {
  delete errorWindow_;
}

int DialogQuestions::ask(const Message& message) {
  nachricht window(QApplication::activeWindow());
  window.messein(message);
  window.exec();
  return window.answer();
}

void DialogQuestions::reportError(const QString& numberAndLocation) {
  if (errorWindow_ == nullptr) errorWindow_ = new bb_msg(desktop_);
  errorWindow_->message(2, numberAndLocation);
}

}  // namespace calvora
