#pragma once

#include "base/questions.h"
#include "entry/number_text.h"

namespace calvora {

/// The number procedures by their names: what number_text.h computes, written into the caller's
/// variables. A fault inside a procedure is reported through the door, and the arguments stay as
/// they stood.
class Werteingabe {
 public:
  explicit Werteingabe(Questions& questions) : questions_(questions) {}

  /// Checks a typed number as `checkTyped`; with code 9 on entry a leading "<" is allowed. Code 0
  /// valid, 1 empty, 2 invalid.
  void wertprüf(QString& text, int& code) const;

  /// Checks a number against limits as `checkLimits`; with code 9 on entry a leading "<" is
  /// allowed. Code 0 valid, 1 empty, 2 invalid, 3 out of range, 9 a valid "<" value.
  void werteingabe(QString& text, const QString& minimum, QString& maximum, int& code) const;

  /// The number that a text with decimal comma shows, as `cellOf`.
  void strzahl(const QString& text, NumberCell& value) const;

  /// Display text of a number. A negative kind loses its sign and also replaces the value by what
  /// the text shows, as kinds 2 and 9 always do; a magnitude below 5e-10 leaves text and value
  /// empty, and kind 12 becomes 9 outside 1e-9 to 1e9.
  void formz(NumberCell& value, QString& text, int& kind) const;

  /// Reformats a typed text in place; a kind below 1 becomes 1. A text "0" is left alone.
  void wertformat(QString& text, int& kind) const;

  /// Fixes the number of decimals of a text, as `withDecimals`.
  void formstr(QString& text, int decimals) const;

 private:
  Questions& questions_;
};

}  // namespace calvora
