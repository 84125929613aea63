#pragma once

#include <QByteArray>
#include <QString>

namespace calvora {

/// The character set of all files. A character that the set lacks becomes "?".
QByteArray toWindows1252(const QString& text);

/// Every byte is a character; the five that the set does not define read as the control characters
/// of the same number.
QString fromWindows1252(const QByteArray& bytes);

}  // namespace calvora
