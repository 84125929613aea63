#pragma once

#include <QString>

namespace calvora {

/// A finite number as decimal digits: its shortest decimal form of at most 15 significant digits.
/// Every display text is made from this form, so that no text depends on the locale or on the
/// binary representation (2.675 with two decimals is 2,68).
class Decimal {
 public:
  /// Runtime error 6 for a number that is not finite.
  explicit Decimal(double value);

  [[nodiscard]] bool isZero() const { return digits_ == 0; }

  /// Whether the magnitude is 1 or more.
  [[nodiscard]] bool hasWholePart() const { return point_ > 0; }

  [[nodiscard]] bool isWhole() const { return exponent_ >= 0; }

  /// The zeros that stand right after the decimal comma of a magnitude below 1.
  [[nodiscard]] int zerosAfterComma() const { return point_ < 0 ? -point_ : 0; }

  /// Rounded to that many decimals, ties away from zero. Zero has no sign.
  [[nodiscard]] Decimal rounded(int decimals) const;

  enum class LeadingZero { kWritten, kOmitted };

  /// The number with exactly that many decimals and a decimal comma; without decimals, without
  /// comma. Rounds as `rounded` does.
  [[nodiscard]] QString fixedText(int decimals, LeadingZero zero = LeadingZero::kWritten) const;

  /// Mantissa with two decimals, E, sign, at least two exponent digits: 1,50E+03.
  [[nodiscard]] QString scientificText() const;

  /// All digits of the number: without exponent up to 15 digits before or after the comma, beyond
  /// that as 1,5E+15.
  [[nodiscard]] QString fullText() const;

 private:
  Decimal() = default;
  Decimal(bool negative, quint64 digits, int exponent);

  bool negative_ = false;
  quint64 digits_ = 0;  // without zeros at the end
  int exponent_ = 0;    // of the last digit: the number is digits × 10^exponent
  int point_ = 0;       // digits before the decimal comma; negative: zeros after it
};

/// The number at the start of a text in invariant (point) notation, digits, one point and an
/// exponent; 0 if there is none, infinite if it is too large for a double.
double readNumber(QStringView text);

/// Whether the whole text is a number with digits, at most one comma or point and an optional
/// leading minus.
bool isNumberText(const QString& text);

}  // namespace calvora
