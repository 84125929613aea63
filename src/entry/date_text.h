#pragma once

#include <QDate>
#include <QString>

namespace calvora {

/// How every date is shown, stored and printed: day, month and year with all their digits.
inline const QString kDateFormat = QStringLiteral("dd.MM.yyyy");

/// The first date that can be stored; the toolkit's date field knows no earlier one.
inline const QDate kFirstDate(100, 1, 1);

/// A date as text, 22.11.2026; empty for none.
QString dateText(const QDate& date);

/// The date of a text of ten characters: day, month and year by their positions, whatever parts
/// them, blanks around them left out. Not valid for any other text, a day that does not exist, or
/// one before the first date.
QDate dateOf(const QString& text);

}  // namespace calvora
