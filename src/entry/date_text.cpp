#include "entry/date_text.h"

#include <QRegularExpression>

namespace calvora {

QString dateText(const QDate& date) {
  return date.toString(kDateFormat);
}

QDate dateOf(const QString& text) {
  static const QRegularExpression kDate(QStringLiteral("^([0-9]{2}).([0-9]{2}).([0-9]{4})$"));
  const auto match = kDate.match(text.trimmed());
  const QDate date(match.captured(3).toInt(), match.captured(2).toInt(), match.captured(1).toInt());
  return date >= kFirstDate ? date : QDate();
}

}  // namespace calvora
