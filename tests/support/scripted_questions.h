#pragma once

#include <QStringList>
#include <QTest>
#include <deque>
#include <functional>

#include "support/messages.h"

namespace calvora {

/// Answers questions by a script. What was not expected, what was expected and did not come, and
/// runtime errors are complaints; a test ends with comparing them to none.
class ScriptedQuestions : public Questions {
 public:
  /// Expects a message with exactly this text next, and presses that button, which it must offer.
  void expect(const QString& text, Button answer = Button::kOk) {
    script_.push_back({text, answer, nullptr});
  }

  /// As `expect`, but raises a fault of the test's choice instead of answering.
  void expectAndRaise(const QString& text, std::function<void()> raise) {
    script_.push_back({text, Button::kOk, std::move(raise)});
  }

  Button ask(const Message& message) override {
    asked.push_back(message);
    if (!isKnown(message)) unexpected_ += QStringLiteral("not in messages.txt: ") + message.text;
    if (script_.empty()) {
      unexpected_ += message.text;
      return Button::kOk;
    }
    const Step step = script_.front();
    script_.pop_front();
    if (step.text != message.text) unexpected_ += message.text;
    if (step.raise) step.raise();
    if (!message.buttons.testFlag(step.answer)) {
      unexpected_ += QStringLiteral("no such button to ") + message.text;
    }
    return step.answer;
  }

  void reportError(const QString& numberAndLocation) override { errors += numberAndLocation; }

  /// What is wrong so far: messages that were not expected, or expected and never shown, and
  /// runtime errors. Empty when all went as scripted.
  [[nodiscard]] QString complaints() const {
    QStringList list;
    for (const QString& text : unexpected_) list += QStringLiteral("unexpected: ") + text;
    for (const Step& step : script_) list += QStringLiteral("not shown: ") + step.text;
    for (const QString& error : errors) list += QStringLiteral("runtime error: ") + error;
    return list.join(QLatin1Char('|'));
  }

  std::vector<Message> asked;
  QStringList errors;

 private:
  struct Step {
    QString text;
    Button answer;
    std::function<void()> raise;
  };
  std::deque<Step> script_;
  QStringList unexpected_;
};

}  // namespace calvora
