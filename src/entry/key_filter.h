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

/// What is left of a pasted text after the same filter, character by character. A minus is kept in
/// front, since a negative base capacity is valid.
QString filteredNumber(const QString& text);

}  // namespace calvora
