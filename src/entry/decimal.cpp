#include "entry/decimal.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "base/runtime_error.h"

namespace calvora {

namespace {

constexpr int kSignificantDigits = 15;

/// 10^exponent for the exponents that a number of 15 digits can be divided by.
quint64 powerOfTen(int exponent) {
  quint64 power = 1;
  for (; exponent > 0; --exponent) power *= 10;
  return power;
}

QString signedText(bool negative, const QString& magnitude) {
  return negative ? QLatin1Char('-') + magnitude : magnitude;
}

/// E, sign, at least two digits.
QString exponentText(int exponent) {
  return QLatin1String(exponent < 0 ? "E-" : "E+") +
         QString::number(std::abs(exponent)).rightJustified(2, QLatin1Char('0'));
}

}  // namespace

Decimal::Decimal(double value) {
  if (!std::isfinite(value)) {
    throw RuntimeError(ErrorNumber::kOverflow, QStringLiteral("number is not finite"));
  }
  std::array<char, 40> buffer{};  // d.dddde±xx
  const auto write = [&](auto... precision) {
    const auto written =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                      std::chars_format::scientific, precision...);
    return std::string_view(buffer.data(), static_cast<size_t>(written.ptr - buffer.data()));
  };
  std::string_view text = write();
  if (text.find('e') > kSignificantDigits + 1) text = write(kSignificantDigits - 1);
  quint64 digits = 0;
  int exponent = 0;
  const size_t e = text.find('e');
  std::from_chars(&text[text[e + 1] == '+' ? e + 2 : e + 1], text.end(), exponent);
  for (size_t i = 0; i < e; ++i) {
    if (text[i] != '.') digits = digits * 10 + static_cast<quint64>(text[i] - '0');
    if (i > 1) --exponent;
  }
  *this = Decimal(value < 0, digits, exponent);
}

Decimal::Decimal(bool negative, quint64 digits, int exponent) {
  if (digits == 0) return;
  for (; digits % 10 == 0; digits /= 10) ++exponent;
  negative_ = negative;
  digits_ = digits;
  exponent_ = exponent;
  point_ = exponent;
  for (; digits > 0; digits /= 10) ++point_;
}

Decimal Decimal::rounded(int decimals) const {
  const int dropped = -exponent_ - decimals;
  if (dropped <= 0) return *this;
  if (dropped > kSignificantDigits) return {};
  const quint64 power = powerOfTen(dropped);
  return {negative_, (digits_ + power / 2) / power, -decimals};
}

QString Decimal::fixedText(int decimals, LeadingZero zero) const {
  const Decimal number = rounded(decimals);
  QString text =
      QString::number(number.digits_) + QString(number.exponent_ + decimals, QLatin1Char('0'));
  text = text.rightJustified(decimals + 1, QLatin1Char('0'));
  if (decimals > 0) text.insert(text.size() - decimals, QLatin1Char(','));
  const bool omitted = zero == LeadingZero::kOmitted && text.startsWith(QLatin1String("0,"));
  return signedText(number.negative_, omitted ? text.mid(1) : text);
}

QString Decimal::scientificText() const {
  Decimal mantissa = Decimal(negative_, digits_, exponent_ - point_ + 1).rounded(2);
  if (isZero()) return mantissa.fixedText(2) + exponentText(0);
  const int carry = mantissa.point_ - 1;  // 9,999 became 10,0
  mantissa = Decimal(negative_, mantissa.digits_, mantissa.exponent_ - carry);
  return mantissa.fixedText(2) + exponentText(point_ - 1 + carry);
}

QString Decimal::fullText() const {
  const int decimals = std::max(0, -exponent_);
  if (point_ <= kSignificantDigits && decimals <= kSignificantDigits) return fixedText(decimals);
  const Decimal mantissa(negative_, digits_, exponent_ - point_ + 1);
  return mantissa.fixedText(point_ - exponent_ - 1) + exponentText(point_ - 1);
}

double readNumber(QStringView text) {
  static const QRegularExpression kStart(QStringLiteral("\\A-?[.0-9]"));
  if (!kStart.match(text).hasMatch()) return 0;  // from_chars would read "nan" and "inf" too
  const QByteArray written = text.toLatin1();
  double number = 0;
  const auto [end, error] = std::from_chars(written.begin(), written.end(), number);
  if (error != std::errc::result_out_of_range) return number;
  // The toolkit makes it infinite if it is too large, zero if it is too small.
  return text.first(end - written.begin()).toDouble();
}

bool isNumberText(const QString& text) {
  static const QRegularExpression kNumber(QStringLiteral("\\A-?([0-9]+[,.]?[0-9]*|[,.][0-9]+)\\z"));
  return kNumber.match(text).hasMatch();
}

}  // namespace calvora
