#pragma once

#include <QString>
#include <variant>

namespace calvora {

/// What a number procedure leaves in its caller's variable: nothing, a number, or the text of a
/// number (scientific notation).
using NumberCell = std::variant<std::monostate, double, QString>;

/// The number in a cell: 0 for an empty one, the number that a text shows. Runtime error 13 for a
/// text that is no number.
double numberOf(const NumberCell& cell);

/// Display formats; the values are the kinds of `formz` and `wertformat`.
enum class Format {
  kAutomatic = 1,  ///< whole numbers without decimals, 1 or more with two, below two digits
  kWhole = 2,
  kOneDecimal = 3,
  kTwoDecimals = 4,
  kThreeDecimals = 5,
  kSixDecimals = 8,
  kScientific = 9,
  kPlain = 10,          ///< `reformatted` only: all digits of the number
  kAutomaticZero = 11,  ///< `numberText` only: automatic, but with decimals, a zero as "0,00"
  kThreeDigits = 12,    ///< `numberText` only: three decimals, below 1 three significant digits
};

/// Results of the checks of a typed number.
enum class Check {
  kValid = 0,
  kEmpty = 1,
  kInvalid = 2,
  kOutOfRange = 3,
  kBelowLimit = 9,  ///< a valid "<" value; as a code on entry: a leading "<" is allowed
};

/// Checks a typed number and normalises it to the decimal comma; "5," becomes "5 ". Valid, empty,
/// or invalid with the text unchanged. A leading "<" is part of the number where it is allowed.
Check checkTyped(QString& text, bool belowAllowed = false);

/// Checks a number against limits (empty: none) and normalises it to the decimal point. An allowed
/// "<" is taken off, the result is then kBelowLimit and an empty maximum becomes "0.1".
Check checkLimits(QString& text, const QString& minimum, QString& maximum, bool belowAllowed);

/// What a text with decimal comma shows: nothing for an empty text, scientific text for one with an
/// exponent. Runtime error 13 for an exponent in what is no number.
NumberCell cellOf(QString text);

/// The same as a number, 0 for an empty text.
double numberIn(const QString& text);

/// The format that a number is really shown in: kThreeDigits is scientific outside 1e-9 to 1e9.
Format usedFormat(double number, Format format);

/// Display text of a finite number (else runtime error 6). A magnitude below 5e-10 has no text.
QString numberText(double number, Format format);

/// A typed text in another format.
QString reformatted(const QString& text, Format format);

/// A text with a fixed number of decimals, 0 (cut) to 4 (rounded); any other number of them, and
/// what is no number, leaves the text. An empty text and "0" become "0,00" first.
QString withDecimals(QString text, int decimals);

}  // namespace calvora
