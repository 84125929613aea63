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

struct Scientific {
  std::string digits;
  int exponent;
};

/// Splits what to_chars writes in scientific form: d.dddde±xx.
Scientific split(std::string_view written) {
  const size_t e = written.find('e');
  std::string digits(written.substr(0, e));
  std::erase(digits, '.');
  return {digits, QByteArrayView(written.substr(e + 1)).toInt()};
}

Scientific shortestForm(double magnitude) {
  std::array<char, 40> buffer{};
  const auto write = [&](auto... precision) {
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                      std::chars_format::scientific, precision...);
    return split(std::string_view(buffer.data(), static_cast<size_t>(result.ptr - buffer.data())));
  };
  Scientific form = write();
  if (form.digits.size() > kSignificantDigits) form = write(kSignificantDigits - 1);
  return form;
}

void dropTrailingZeros(std::string& digits) {
  while (!digits.empty() && digits.back() == '0') digits.pop_back();
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

Decimal::Decimal(double value) : negative_(value < 0) {
  if (!std::isfinite(value)) {
    throw RuntimeError(ErrorNumber::kOverflow, QStringLiteral("number is not finite"));
  }
  if (value == 0) return;
  Scientific form = shortestForm(std::abs(value));
  digits_ = std::move(form.digits);
  dropTrailingZeros(digits_);
  point_ = form.exponent + 1;
}

Decimal Decimal::rounded(int decimals) const {
  const int kept = point_ + decimals;
  const int available = static_cast<int>(digits_.size());
  if (kept >= available) return *this;
  if (kept < 0) return {};
  Decimal result;
  result.point_ = point_;
  result.digits_ = digits_.substr(0, static_cast<size_t>(kept));
  if (digits_[static_cast<size_t>(kept)] >= '5') {
    size_t carry = result.digits_.size();
    while (carry > 0 && result.digits_[carry - 1] == '9') --carry;
    result.digits_.resize(carry);
    if (carry > 0) {
      ++result.digits_.back();
    } else {
      result.digits_.assign(1, '1');
      ++result.point_;
    }
  }
  dropTrailingZeros(result.digits_);
  if (result.digits_.empty()) return {};
  result.negative_ = negative_;
  return result;
}

QString Decimal::fixedText(int decimals, LeadingZero zero) const {
  const Decimal number = rounded(decimals);
  const auto digitAt = [&](int position) {
    const bool known = position >= 0 && position < static_cast<int>(number.digits_.size());
    return QLatin1Char(known ? number.digits_[static_cast<size_t>(position)] : '0');
  };
  QString text;
  text.reserve(std::max(number.point_, 1) + decimals + 2);
  for (int i = 0; i < number.point_; ++i) text += digitAt(i);
  if (text.isEmpty() && (zero == LeadingZero::kWritten || decimals == 0)) text = QLatin1Char('0');
  if (decimals > 0) {
    text += QLatin1Char(',');
    const int start = number.isZero() ? 0 : number.point_;
    for (int i = 0; i < decimals; ++i) text += digitAt(start + i);
  }
  return signedText(number.negative_, text);
}

QString Decimal::scientificText() const {
  if (isZero()) return QStringLiteral("0,00E+00");
  Decimal mantissa = *this;
  mantissa.point_ = 1;
  mantissa = mantissa.rounded(2);
  const int exponent = point_ - 1 + (mantissa.point_ - 1);
  mantissa.point_ = 1;  // 9,999 became 10,0: the digit is the same, the exponent is one more
  return mantissa.fixedText(2) + exponentText(exponent);
}

QString Decimal::fullText() const {
  if (isZero()) return QStringLiteral("0");
  const int decimals = std::max(0, static_cast<int>(digits_.size()) - point_);
  if (point_ <= kSignificantDigits && decimals <= kSignificantDigits) return fixedText(decimals);
  Decimal mantissa = *this;
  mantissa.point_ = 1;
  return mantissa.fixedText(static_cast<int>(digits_.size()) - 1) + exponentText(point_ - 1);
}

double readNumber(QStringView text) {
  const QByteArray written = text.toLatin1();
  const qsizetype start = written.startsWith('-') ? 1 : 0;
  const bool isNumber = written.size() > start && (written[start] == '.' || isDigit(text[start]));
  if (!isNumber) return 0;  // from_chars would read "nan" and "inf" too
  double number = 0;
  const auto [end, error] = std::from_chars(written.begin(), written.end(), number);
  if (error != std::errc::result_out_of_range) return number;
  // The toolkit makes it infinite if it is too large, zero if it is too small.
  return text.first(end - written.begin()).toDouble();
}

bool isDigit(QChar c) {
  return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isNumberText(const QString& text) {
  static const QRegularExpression kNumber(QStringLiteral("\\A-?([0-9]+[,.]?[0-9]*|[,.][0-9]+)\\z"));
  return kNumber.match(text).hasMatch();
}

}  // namespace calvora
