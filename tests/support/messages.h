#pragma once

#include <QTest>

#include "base/questions.h"
#include "support/files.h"

namespace calvora {

/// The program's messages, one a line: key|symbol|buttons|title|left, top and style|text. The text
/// has ¶ for a line break and %1 for what is built in, the style / for its bar.
inline QStringList messageLines() {
  static const QStringList lines =
      QString::fromUtf8(bytesOf(QFINDTESTDATA("support/messages.txt"))).split(QLatin1Char('\n'));
  return lines;
}

/// The text of a message, given as its key and what is built in, ␣ a blank at its end.
inline QString says(const QString& message) {
  const QString key = message.section(QLatin1Char(' '), 0, 0);
  const QString built = message.section(QLatin1Char(' '), 1);
  for (const QString& line : messageLines()) {
    if (!line.startsWith(key + QLatin1Char('|'))) continue;
    return line.section(QLatin1Char('|'), 5, 5)
        .replace(QStringLiteral("¶"), QStringLiteral("\n\r"))
        .replace(QStringLiteral("%1"),
                 QString(built).replace(QStringLiteral("␣"), QStringLiteral(" ")));
  }
  return QStringLiteral("no message: ") + key;
}

/// Whether a message is one of the program's, in all that it shows.
inline bool isKnown(const Message& message) {
  const QString shown =
      QStringLiteral("%1|%2|%3|%4 %5 %6|%7")
          .arg(static_cast<int>(message.symbol))
          .arg(message.buttons.toInt())
          .arg(message.title)
          .arg(message.left)
          .arg(message.top)
          .arg(QString(message.style).replace(QLatin1Char('|'), QLatin1Char('/')),
               QString(message.text).replace(QStringLiteral("\n\r"), QStringLiteral("¶")));
  return std::ranges::any_of(messageLines(), [&](const QString& line) {
    const QStringList parts = line.section(QLatin1Char('|'), 1, 5).split(QStringLiteral("%1"));
    return shown.startsWith(parts.front()) && shown.endsWith(parts.back()) &&
           (parts.size() > 1 || shown == parts.front());
  });
}

}  // namespace calvora
