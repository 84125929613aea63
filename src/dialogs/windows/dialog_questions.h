#pragma once

#include <QPointer>

#include "base/questions.h"
#include "dialogs/windows/bb_msg.h"

namespace calvora {

/// Asks and tells through the program's own windows.
class DialogQuestions final : public Questions {
 public:
  explicit DialogQuestions(Desktop& desktop);
  ~DialogQuestions() override;

  Button ask(const Message& message) override;
  void reportError(const QString& numberAndLocation) override;

 private:
  [[nodiscard]] QWidget* askingWindow() const;

  Desktop& desktop_;
  QObject context_;               ///< ends the connections
  QPointer<QWidget> lastWindow_;  ///< in use last, of those that belong to no other
  QPointer<bb_msg> errorWindow_;
};

}  // namespace calvora
