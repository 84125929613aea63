#include "entry/number_text.h"

#include <QRegularExpression>
#include <cmath>

#include "base/runtime_error.h"
#include "entry/decimal.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

/// Digits after the comma to which a number is laid out before its format is applied; a number that
/// shows only zeros there counts as none. A typed text is laid out to one less.
constexpr int kWorkingDecimals = 9;

/// Takes an allowed "<" off a text; returns whether there was one.
bool takeBelowMark(QString& text, bool allowed) {
  text = text.trimmed();
  const bool below = allowed && text.startsWith('<'_L1);
  if (below) text = text.mid(1).trimmed();
  return below;
}

double readCommaNumber(QString text) {
  const qsizetype comma = text.indexOf(','_L1);
  if (comma >= 0) text[comma] = '.'_L1;
  return readNumber(text);
}

QString zeroText(Format format) {
  if (format == Format::kAutomaticZero) return u"0,00"_s;
  return format > Format::kWhole ? u"0,0000000"_s.left(static_cast<int>(format)) : u"0"_s;
}

/// The formats from kAutomatic to kThreeDigits but kPlain and kScientific; any other is all working
/// decimals.
QString laidOutText(const Decimal& number, Format format, int workingDecimals) {
  // How an automatic number looks is decided by its working decimals.
  const Decimal laidOut = number.rounded(workingDecimals);
  const bool wholePart = laidOut.hasWholePart();
  switch (format) {
    case Format::kWhole:
      return number.fixedText(0);
    case Format::kAutomatic:
      if (laidOut.isWhole()) return number.fixedText(0);
      [[fallthrough]];
    case Format::kAutomaticZero:
      return number.fixedText(wholePart ? 2 : laidOut.zerosAfterComma() + 2);
    case Format::kThreeDigits:
      return number.fixedText(wholePart ? 3 : laidOut.zerosAfterComma() + 3);
    default:
      if (format >= Format::kOneDecimal && format <= Format::kSixDecimals) {
        return number.fixedText(static_cast<int>(format) - 2);
      }
      return number.fixedText(workingDecimals, Decimal::LeadingZero::kOmitted);
  }
}

}  // namespace

double numberOf(const NumberCell& cell) {
  if (const auto* number = std::get_if<double>(&cell)) return *number;
  const auto* text = std::get_if<QString>(&cell);
  if (text == nullptr) return 0;
  bool ok = false;
  const double number = QString(*text).replace(','_L1, '.'_L1).toDouble(&ok);
  if (!ok || !std::isfinite(number)) throw RuntimeError(ErrorNumber::kType, *text);
  return number;
}

Check checkTyped(QString& text, bool belowAllowed) {
  QString typed = text;
  const bool below = takeBelowMark(typed, belowAllowed);
  if (typed.isEmpty()) {
    text.clear();
    return Check::kEmpty;
  }
  static const QRegularExpression kNumber(u"^-?[0-9]*,?[0-9]*$"_s);
  typed.replace('.'_L1, ','_L1);
  const bool alone = typed == ","_L1 || typed == "-"_L1;
  const bool negative = typed.startsWith('-'_L1);
  if (alone || (below && negative) || !kNumber.match(typed).hasMatch()) return Check::kInvalid;
  const qsizetype start = negative ? 1 : 0;
  if (typed.indexOf(','_L1) == start) typed.insert(start, '0'_L1);
  if (typed.endsWith(','_L1)) typed.back() = ' '_L1;
  text = below ? '<'_L1 + typed : typed;
  return Check::kValid;
}

Check checkLimits(QString& text, const QString& minimum, QString& maximum, bool belowAllowed) {
  const bool below = takeBelowMark(text, belowAllowed);
  if (below && maximum.isEmpty()) maximum = u"0.1"_s;
  if (text.isEmpty()) return Check::kEmpty;
  static const QRegularExpression kSeparator(u"[,.]"_s);
  static const QRegularExpression kForeign(u"[^-0-9,.]"_s);
  static const QRegularExpression kForeignBelow(u"[^0-9,.]"_s);
  const qsizetype foreign = text.indexOf(below ? kForeignBelow : kForeign);
  const qsizetype separator = text.indexOf(kSeparator);
  const bool separated = separator >= 0 && (foreign < 0 || separator < foreign);
  if (separated) text[separator] = '.'_L1;
  if (foreign >= 0) return Check::kInvalid;
  const bool second = separated && text.indexOf(kSeparator, separator + 1) >= 0;
  Check result = second ? Check::kInvalid : Check::kValid;
  const double number = readNumber(text);
  const bool tooSmall = !minimum.isEmpty() && number < readCommaNumber(minimum);
  const bool tooLarge = !maximum.isEmpty() && number > readCommaNumber(maximum);
  if (tooSmall || tooLarge) result = Check::kOutOfRange;
  return below && result == Check::kValid ? Check::kBelowLimit : result;
}

NumberCell cellOf(QString text) {
  text = text.trimmed();
  if (text.contains('E'_L1)) return Decimal(numberOf(text)).scientificText();
  if (text.startsWith('<'_L1)) text = text.mid(1).trimmed();
  if (text.isEmpty()) return std::monostate{};
  // A comma in front has no digits to be the decimals of; checked texts never have one.
  return text.startsWith(','_L1) ? readNumber(text) : readCommaNumber(text);
}

double numberIn(const QString& text) {
  return numberOf(cellOf(text));
}

Format usedFormat(double number, Format format) {
  const double magnitude = std::abs(number);
  const bool fits = number == 0 || (magnitude >= 1e-9 && magnitude <= 1e9);
  return format == Format::kThreeDigits && !fits ? Format::kScientific : format;
}

QString numberText(double number, Format format) {
  const Decimal decimal(number);
  if (decimal.isZero()) return zeroText(format);
  if (usedFormat(number, format) == Format::kScientific) return decimal.scientificText();
  if (decimal.rounded(kWorkingDecimals).isZero()) return {};
  return laidOutText(decimal, format, kWorkingDecimals);
}

QString reformatted(const QString& text, Format format) {
  const Decimal number(numberIn(text));
  if (format == Format::kScientific) return number.scientificText();
  if (format == Format::kPlain) return number.fullText();
  constexpr auto kWorking = static_cast<Format>(0);
  const Format known = format <= Format::kThreeDecimals ? format : kWorking;
  return laidOutText(number, known, kWorkingDecimals - 1);
}

QString withDecimals(QString text, int decimals) {
  if (text.isEmpty() || text == "0"_L1) text = u"0,00"_s;
  if (decimals == 0) return text.section(','_L1, 0, 0);
  const bool known = decimals >= 1 && decimals <= 4 && isNumberText(text.trimmed());
  return known ? Decimal(readCommaNumber(text.trimmed())).fixedText(decimals) : text;
}

}  // namespace calvora
