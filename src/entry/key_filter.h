#pragma once

#include <QString>
#include <QStringList>

namespace calvora {

/// Character codes of the keys that have a rule of their own.
namespace key {
inline constexpr int kBackspace = 8;
inline constexpr int kEnter = 13;
inline constexpr int kSpace = 32;
inline constexpr int kUp = 38;
inline constexpr int kDown = 40;
}  // namespace key

/// Whether a typed character belongs into a number box: a digit, comma, period, "<" or backspace.
bool isNumberKey(int code);

/// The numbers of a pasted text: one, or those of a spreadsheet's column or row, whose cells end
/// with a line or a tab. Whitespace around a number does not count. Empty if the text holds
/// anything else, an empty cell between two numbers included.
QStringList pastedNumbers(const QString& text);

/// Filters a key typed into a header or company line field: `code` becomes 0 where it is to be
/// swallowed, as control characters, the double quote and all that no German keyboard has are.
void text_check(int& code);

/// The text on one line, as header, file and report have it: each carriage return and line feed is
/// a blank, and so is a null character; Qt's paragraph separator stands for both and is two.
QString onOneLine(QString text);

/// What a field of one line keeps of a pasted text: all that the files can hold except the double
/// quote. It comes on one line, tabs become blanks, and a character that the files' set lacks "?",
/// as it would in the file.
QString filteredText(const QString& text);

/// The same of a text whose line breaks stay.
QString filteredLines(QString text);

}  // namespace calvora
