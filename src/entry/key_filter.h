#pragma once

#include <QString>

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

/// What is left of a text that comes in otherwise, after the same filter, character by character. A
/// minus is kept in front of it if it comes in at the start, since a negative base capacity is
/// valid.
QString filteredNumber(const QString& text, bool atStart);

/// Filters a key typed into a header or company line field: `code` becomes 0 where it is to be
/// swallowed, as control characters, the double quote and all that no German keyboard has are.
void text_check(int& code);

/// What is left of a text that comes in otherwise; a line break becomes a blank.
QString filteredText(const QString& text);

/// The same of a text whose line breaks stay.
QString filteredLines(QString text);

}  // namespace calvora
