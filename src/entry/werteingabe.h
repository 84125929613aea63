#pragma once

#include <QString>
#include <variant>

#include "base/questions.h"

namespace calvora {

/// What a number procedure leaves in its caller's variable: nothing, a number, or the text of a
/// number (scientific notation).
using NumberCell = std::variant<std::monostate, double, QString>;

/// The number in a cell: 0 for an empty one, the number that a text shows. Runtime error 13 for a
/// text that is no number.
double numberOf(const NumberCell& cell);

/// Display formats of `formz` and `wertformat`.
namespace kind {
inline constexpr int kAutomatic = 1;
inline constexpr int kWhole = 2;
inline constexpr int kOneDecimal = 3;
inline constexpr int kTwoDecimals = 4;
inline constexpr int kThreeDecimals = 5;
inline constexpr int kScientific = 9;
inline constexpr int kPlain = 10;          ///< `wertformat` only: the number's own text
inline constexpr int kAutomaticZero = 11;  ///< `formz` only: automatic, a zero is "0,00"
inline constexpr int kThreeDigits = 12;    ///< `formz` only: three decimals or significant digits
}  // namespace kind

/// Codes of `wertprüf` and `werteingabe`.
namespace check {
inline constexpr int kValid = 0;
inline constexpr int kEmpty = 1;
inline constexpr int kInvalid = 2;
inline constexpr int kOutOfRange = 3;
inline constexpr int kBelowLimit = 9;  ///< on entry: a leading "<" is allowed
}  // namespace check

/// Converts between typed text, numbers and display texts. Stateless; a fault inside a procedure
/// is reported through the door, and the arguments stay as they stood.
class Werteingabe {
 public:
  explicit Werteingabe(Questions& questions) : questions_(questions) {}

  /// Checks a typed number and normalises it to the decimal comma; "5," becomes "5 ". With code 9
  /// on entry a leading "<" is allowed. Code 0 valid, 1 empty, 2 invalid (text unchanged).
  void wertprüf(QString& text, int& code) const;

  /// Checks a number against limits (empty: none) and normalises it to the decimal point. Code 0
  /// valid, 1 empty, 2 invalid, 3 out of range, 9 a valid "<" value, for which an empty maximum
  /// becomes "0.1".
  void werteingabe(QString& text, const QString& minimum, QString& maximum, int& code) const;

  /// The number that a text with decimal comma shows: empty for an empty text, its scientific text
  /// for one with an exponent.
  void strzahl(const QString& text, NumberCell& value) const;

  /// Display text of a number. A negative kind loses its sign and also replaces the value by what
  /// the text shows, as kinds 2 and 9 always do; a magnitude below 5e-10 leaves text and value
  /// empty, and kind 12 becomes 9 outside 1e-9 to 1e9.
  void formz(NumberCell& value, QString& text, int& kind) const;

  /// Display text of a number whose own variable does not matter; `value` must be finite.
  [[nodiscard]] QString formz(double value, int kind) const;

  /// Reformats a typed text in place; a kind below 1 becomes 1. A text "0" is left alone.
  void wertformat(QString& text, int& kind) const;

  /// Fixes the number of decimals of a text, 0 (cut) to 4 (rounded); an empty text and "0" become
  /// "0,00" first.
  void formstr(QString& text, int decimals) const;

 private:
  Questions& questions_;
};

}  // namespace calvora
