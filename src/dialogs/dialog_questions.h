#pragma once

#include <QPointer>

#include "dialogs/bb_msg.h"
#include "dialogs/questions.h"

namespace calvora {

/// Asks and tells through the program's own windows.
class DialogQuestions final : public Questions {
 public:
  explicit DialogQuestions(Desktop& desktop) : desktop_(desktop) {}
  ~DialogQuestions() override;

  int ask(const Message& message) override;
  void reportError(const QString& numberAndLocation) override;

 private:
  Desktop& desktop_;
  QPointer<bb_msg> errorWindow_;
};

}  // namespace calvora
