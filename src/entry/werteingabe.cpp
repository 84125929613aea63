#include "entry/werteingabe.h"

#include <cmath>
#include <optional>

#include "base/guarded.h"
#include "entry/decimal.h"

namespace calvora {

namespace {

constexpr QLatin1Char kComma(',');
constexpr QLatin1Char kPoint('.');
constexpr QLatin1Char kMinus('-');
constexpr QLatin1Char kBelow('<');

/// Digits after the comma to which a number is laid out before its kind is applied; a number that
/// shows only zeros there counts as none.
constexpr int kWorkingDecimals = 9;

bool isSeparator(QChar c) {
  return c == kComma || c == kPoint;
}

/// Takes the "<" off a text whose caller allows it; returns whether there was one.
bool takeBelowMark(QString& text, int code) {
  text = text.trimmed();
  const bool below = code == check::kBelowLimit && text.startsWith(kBelow);
  if (below) text = text.mid(1).trimmed();
  return below;
}

/// The text with its separators turned into commas; empty if it is not a number.
std::optional<QString> commaNotation(QString text, bool below) {
  qsizetype comma = -1;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (isSeparator(text[i])) {
      if (text.size() == 1 || comma >= 0) return std::nullopt;
      text[i] = kComma;
      comma = i;
    } else if (text[i] == kMinus) {
      if (below || text.size() == 1 || i != 0) return std::nullopt;
    } else if (!isDigit(text[i])) {
      return std::nullopt;
    }
  }
  if (comma == 0) text.prepend(QLatin1Char('0'));
  if (comma == 1 && text.startsWith(kMinus)) text.replace(0, 2, QStringLiteral("-0,"));
  if (comma >= 0 && text.endsWith(kComma)) text[text.size() - 1] = QLatin1Char(' ');
  return text;
}

/// Turns the first separator into a point; a second one makes the code 2. False, and the walk ends,
/// at a character that no number has.
bool toPointNotation(QString& text, bool below, int& code) {
  bool separatorSeen = false;
  for (QChar& c : text) {
    if (isSeparator(c)) {
      if (separatorSeen) {
        code = check::kInvalid;
      } else {
        c = kPoint;
        separatorSeen = true;
      }
    } else if (!isDigit(c) && (c != kMinus || below)) {
      code = check::kInvalid;
      return false;
    }
  }
  return true;
}

double readCommaNumber(QString text) {
  const qsizetype comma = text.indexOf(kComma);
  if (comma >= 0) text[comma] = kPoint;
  return readNumber(text);
}

/// What `strzahl` makes of a text; runtime error 13 where an exponent stands in no number.
NumberCell cellOf(QString text) {
  text = text.trimmed();
  if (text.contains(QLatin1Char('E'))) return Decimal(numberOf(text)).scientificText();
  if (text.startsWith(kBelow)) text = text.mid(1).trimmed();
  if (text.isEmpty()) return std::monostate{};
  // A comma in front has no digits to be the decimals of; checked texts never have one.
  return text.startsWith(kComma) ? readNumber(text) : readCommaNumber(text);
}

/// Kinds 1 and 11: whole numbers without decimals, 1 or more with two, below with two digits. How
/// the number looks is decided by its working decimals.
QString automaticText(const Decimal& number, const Decimal& laidOut, bool wholeWithDecimals) {
  if (laidOut.isWhole() && !wholeWithDecimals) return number.fixedText(0);
  if (laidOut.hasWholePart()) return number.fixedText(2);
  return number.fixedText(laidOut.zerosAfterComma() + 2);
}

/// Kind 12: three decimals, below 1 three significant digits.
QString threeDigitText(const Decimal& number, const Decimal& laidOut) {
  return number.fixedText(laidOut.hasWholePart() ? 3 : laidOut.zerosAfterComma() + 3);
}

QString zeroText(int kind, bool zeroWithDecimals) {
  if (zeroWithDecimals) return QStringLiteral("0,00");
  return kind > kind::kWhole ? QStringLiteral("0,0000000").left(kind) : QStringLiteral("0");
}

/// The kinds of `formz` for a number that is not zero; kinds 2 and 9 are done by the caller.
QString textOfKind(const Decimal& number, int kind, bool zeroWithDecimals) {
  const Decimal laidOut = number.rounded(kWorkingDecimals);
  if (kind == kind::kAutomatic) return automaticText(number, laidOut, zeroWithDecimals);
  if (kind == kind::kThreeDigits) return threeDigitText(number, laidOut);
  if (kind >= kind::kOneDecimal && kind < kind::kScientific) return number.fixedText(kind - 2);
  return laidOut.fixedText(kWorkingDecimals, Decimal::LeadingZero::kOmitted);
}

void formatNumber(NumberCell& cell, QString& text, int& kindArgument) {
  const double value = numberOf(cell);
  const Decimal number(value);
  const bool writeBack = kindArgument < 0;
  if (writeBack) kindArgument = -kindArgument;
  const bool zeroWithDecimals = kindArgument == kind::kAutomaticZero;
  int kind = zeroWithDecimals ? kind::kAutomatic : kindArgument;

  if (value == 0) {
    text = zeroText(kind, zeroWithDecimals);
    return;
  }
  const double magnitude = std::abs(value);
  if (kind == kind::kThreeDigits && (magnitude < 1e-9 || magnitude > 1e9)) {
    kind = kindArgument = kind::kScientific;
  }
  if (kind == kind::kScientific) {
    text = number.scientificText();
    cell = text;
    return;
  }
  if (number.rounded(kWorkingDecimals).isZero()) {
    text.clear();
    cell = std::monostate{};
    return;
  }
  if (kind == kind::kWhole) {
    text = number.fixedText(0);
    cell = readCommaNumber(text);
    return;
  }
  text = textOfKind(number, kind, zeroWithDecimals);
  if (writeBack) cell = readCommaNumber(text);
}

void reformat(QString& text, int& kind, double value) {
  if (kind < kind::kAutomatic) kind = kind::kAutomatic;
  const Decimal number(value);
  if (kind == kind::kWhole) {
    text = number.fixedText(0);
  } else if (kind == kind::kPlain) {
    text = number.fullText();
  } else if (kind == kind::kScientific) {
    text = number.scientificText();
  } else if (kind == kind::kAutomatic) {
    text = automaticText(number, number.rounded(kWorkingDecimals - 1), false);
  } else if (kind <= kind::kThreeDecimals) {
    text = number.fixedText(kind - 2);
  } else {
    text = number.fixedText(kWorkingDecimals - 1, Decimal::LeadingZero::kOmitted);
  }
}

}  // namespace

double numberOf(const NumberCell& cell) {
  if (const auto* number = std::get_if<double>(&cell)) return *number;
  const auto* text = std::get_if<QString>(&cell);
  if (text == nullptr) return 0;
  bool ok = false;
  const double number = QString(*text).replace(kComma, kPoint).toDouble(&ok);
  if (!ok || !std::isfinite(number)) throw RuntimeError(ErrorNumber::kType, *text);
  return number;
}

void Werteingabe::wertprüf(QString& text, int& code) const {
  guarded(questions_, QStringLiteral(" werteingabe\\wertprüf"), [&] {
    QString typed = text;
    const bool below = takeBelowMark(typed, code);
    code = check::kValid;
    if (typed.isEmpty()) {
      text.clear();
      code = check::kEmpty;
      return;
    }
    const auto normalised = commaNotation(typed, below);
    if (!normalised) {
      code = check::kInvalid;
      return;
    }
    text = below ? kBelow + *normalised : *normalised;
  });
}

void Werteingabe::werteingabe(QString& text, const QString& minimum, QString& maximum,
                              int& code) const {
  guarded(questions_, QStringLiteral(" werteingabe\\werteingabe"), [&] {
    const bool below = takeBelowMark(text, code);
    if (below && maximum.isEmpty()) maximum = QStringLiteral("0.1");
    code = check::kValid;
    if (text.isEmpty()) {
      code = check::kEmpty;
      return;
    }
    if (!toPointNotation(text, below, code)) return;
    const double number = readNumber(text);
    if (!minimum.isEmpty() && readCommaNumber(minimum) > number) code = check::kOutOfRange;
    if (!maximum.isEmpty() && number > readCommaNumber(maximum)) code = check::kOutOfRange;
    if (below && code == check::kValid) code = check::kBelowLimit;
  });
}

void Werteingabe::strzahl(const QString& text, NumberCell& value) const {
  guarded(questions_, QStringLiteral(" werteingabe\\strzahl"), [&] { value = cellOf(text); });
}

void Werteingabe::formz(NumberCell& value, QString& text, int& kind) const {
  guarded(questions_, QStringLiteral(" werteingabe\\formz"),
          [&] { formatNumber(value, text, kind); });
}

QString Werteingabe::formz(double value, int kind) const {
  NumberCell cell = value;
  QString text;
  formz(cell, text, kind);
  return text;
}

void Werteingabe::wertformat(QString& text, int& kind) const {
  guarded(questions_, QStringLiteral(" werteingabe\\wertformat"), [&] {
    if (text == QLatin1String("0")) return;
    reformat(text, kind, numberOf(cellOf(text)));
  });
}

void Werteingabe::formstr(QString& text, int decimals) const {
  guarded(questions_, QStringLiteral(" werteingabe\\formstr"), [&] {
    if (text.isEmpty() || text == QLatin1String("0")) text = QStringLiteral("0,00");
    if (decimals == 0) {
      const qsizetype comma = text.indexOf(kComma);
      if (comma >= 0) text.truncate(comma);
      return;
    }
    const bool known = decimals >= 1 && decimals <= 4 && isNumberText(text.trimmed());
    if (known) text = Decimal(readCommaNumber(text.trimmed())).fixedText(decimals);
  });
}

}  // namespace calvora
