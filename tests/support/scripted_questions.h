#pragma once

#include <QTest>
#include <functional>

#include "support/files.h"

namespace calvora {

using namespace Qt::StringLiterals;

/// The program's messages, one a line: key|symbol|buttons|title|left, top and style|text. The text
/// has ¶ for a line break and %1 for what is built in, the style / for its bar.
inline QStringList messageLines() {
  static const QStringList lines =
      QString::fromUtf8(bytesOf(QFINDTESTDATA("support/messages.txt"))).split('\n'_L1);
  return lines;
}

/// The text of a message, given as its key and what is built in, ␣ a blank at its end.
inline QString says(const QString& message) {
  const QString key = message.section(' '_L1, 0, 0);
  const QString built = message.section(' '_L1, 1).replace(u"␣"_s, u" "_s);
  for (const QString& line : messageLines()) {
    if (!line.startsWith(key + '|'_L1)) continue;
    return line.section('|'_L1, 5, 5).replace(u"¶"_s, u"\n\r"_s).replace(u"%1"_s, built);
  }
  return u"no message: "_s + key;
}

/// Whether a message is one of the program's, in all that it shows.
inline bool isKnown(const Message& message) {
  const QString place = u"%1 %2 "_s.arg(message.left).arg(message.top);
  const QStringList shownParts{QString::number(static_cast<int>(message.symbol)),
                               QString::number(message.buttons.toInt()), message.title,
                               place + QString(message.style).replace('|'_L1, '/'_L1),
                               QString(message.text).replace(u"\n\r"_s, u"¶"_s)};
  const QString shown = shownParts.join('|'_L1);
  return std::ranges::any_of(messageLines(), [&](const QString& line) {
    const QStringList parts = line.section('|'_L1, 1, 5).split(u"%1"_s);
    return shown.startsWith(parts.front()) && shown.endsWith(parts.back()) &&
           (parts.size() > 1 || shown == parts.front());
  });
}

/// Answers questions by a script. What was not expected, what was expected and did not come, and
/// runtime errors are complaints; a test ends with comparing them to none.
class ScriptedQuestions : public Questions {
 public:
  /// Expects a message with exactly this text next, and presses that button, which it must offer.
  /// Or raises a fault of the test's choice before.
  void expect(const QString& text, Button answer = Button::kOk,
              std::function<void()> raise = nullptr) {
    script_.push_back({text, answer, std::move(raise)});
  }

  Button ask(const Message& message) override {
    asked.push_back(message);
    if (!isKnown(message)) wrong_ += u"not in messages.txt: "_s + message.text;
    const Step step = script_.isEmpty() ? Step() : script_.takeFirst();
    if (step.text != message.text) wrong_ += u"unexpected: "_s + message.text;
    if (step.raise) step.raise();
    if (!message.buttons.testFlag(step.answer)) wrong_ += u"no such button to "_s + message.text;
    return step.answer;
  }

  void reportError(const QString& numberAndLocation) override { errors += numberAndLocation; }

  /// What is wrong so far. Empty when all went as scripted.
  [[nodiscard]] QString complaints() const {
    QStringList list = wrong_;
    for (const Step& step : script_) list += u"not shown: "_s + step.text;
    for (const QString& error : errors) list += u"runtime error: "_s + error;
    return list.join('|'_L1);
  }

  std::vector<Message> asked;
  QStringList errors;

 private:
  struct Step {
    QString text;
    Button answer = Button::kOk;
    std::function<void()> raise;
  };
  QList<Step> script_;
  QStringList wrong_;
};

}  // namespace calvora
