// Two doubles, two fixed-point values and a text, against independent arithmetic.
#include <charconv>
#include <cmath>
#include <cstring>

#include "entry/decimal.h"
#include "entry/fixed_point.h"
#include "fuzz_support.h"

using namespace calvora;

namespace {

__extension__ using Wide = __int128;

FixedPoint saturated(Wide raw) {
  if (raw > FixedPoint::highest().raw()) return FixedPoint::highest();
  if (raw < FixedPoint::lowest().raw()) return FixedPoint::lowest();
  return FixedPoint::fromRaw(static_cast<qint64>(raw));
}

Wide dividedToEven(Wide number, Wide divisor) {
  const bool negative = number < 0;
  const Wide magnitude = negative ? -number : number;
  Wide quotient = magnitude / divisor;
  const Wide twice = 2 * (magnitude % divisor);
  if (twice > divisor || (twice == divisor && quotient % 2 != 0)) ++quotient;
  return negative ? -quotient : quotient;
}

void checkArithmetic(FixedPoint a, FixedPoint b) {
  const Wide x = a.raw();
  const Wide y = b.raw();
  const QString what = invariantNumber(a) + u' ' + invariantNumber(b);
  fuzz::require(saturatedSum(a, b) == saturated(x + y), "sum", what);
  fuzz::require(saturatedDifference(a, b) == saturated(x - y), "difference", what);
  const Wide product = dividedToEven(x * y, FixedPoint::kScale);
  fuzz::require(saturatedProduct(a, b) == saturated(product), "product", what);
  fuzz::require(readInvariantNumber(invariantNumber(a)) == a, "a file keeps the value", what);
  if (std::abs(a.toDouble()) < 1e11) {  // beyond, a double holds fewer than four decimals
    fuzz::require(FixedPoint::fromDouble(a.toDouble()) == a, "to double and back", what);
  }
}

void checkDecimal(double value) {
  const QString what = QString::number(value, 'g', 17);
  if (const auto fixed = FixedPoint::tryFromDouble(value)) {
    const double error = std::abs(fixed->toDouble() - value);
    fuzz::require(error <= 0.5001e-4 + std::abs(value) * 4e-16, "rounds to nearest", what);
  } else {
    fuzz::require(!(std::abs(value) < 9e14), "only what does not fit is refused", what);
  }
  if (!std::isfinite(value) || std::abs(value) > 1.79e308) return;
  const Decimal number(value);
  const double tolerance = std::abs(value) * 6e-15;
  fuzz::require(std::abs(fuzz::shown(number.fullText()) - value) <= tolerance, "full text", what);
  const double inScience = std::abs(fuzz::shown(number.scientificText()) - value);
  fuzz::require(inScience <= std::abs(value) * 0.00501 || std::abs(value) < 1e-300,
                "scientific text", what + number.scientificText());
  for (int decimals = 0; decimals <= 9; ++decimals) {
    const QString text = number.fixedText(decimals);
    const qsizetype after = text.contains(u',') ? text.size() - text.indexOf(u',') - 1 : 0;
    fuzz::require(after == decimals, "as many decimals as asked for", what + u' ' + text);
    const double unit = std::pow(10.0, -decimals);
    fuzz::require(std::abs(fuzz::shown(text) - value) <= 0.5 * unit + tolerance, "fixed text",
                  text);
    fuzz::require(fuzz::shown(text) != 0 || !text.startsWith(u'-'), "zero has no minus", text);
    const Decimal once = number.rounded(decimals);
    fuzz::require(once.rounded(decimals).fullText() == once.fullText(), "rounded twice", text);
  }
}

void checkOrder(double a, double b) {
  if (!(a < b) || !std::isfinite(a) || !std::isfinite(b)) return;
  for (const int decimals : {0, 2, 4}) {
    const double below = fuzz::shown(Decimal(a).fixedText(decimals));
    const double above = fuzz::shown(Decimal(b).fixedText(decimals));
    fuzz::require(below <= above, "rounding keeps the order",
                  QString::number(a, 'g', 17) + u' ' + QString::number(b, 'g', 17));
  }
}

/// Reading a number against the standard library's reader, wherever that reads the same notation.
void checkReading(const QByteArray& text) {
  const QString asText = QString::fromLatin1(text);
  const double number = readNumber(asText);
  const qsizetype first = text.startsWith('-') ? 1 : 0;
  const bool plain =
      first < text.size() && (text[first] == '.' || (text[first] >= '0' && text[first] <= '9'));
  if (!plain) {
    fuzz::require(number == 0, "what is no number reads as zero", asText);
    return;
  }
  double expected = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), expected);
  if (result.ec == std::errc::result_out_of_range) {
    fuzz::require(std::isinf(number) || std::abs(number) < 1e-300, "out of a double", asText);
  } else {
    fuzz::require(number == expected, "a number is read as it stands", asText);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  struct {
    double a, b;
    qint64 x, y;
  } input{};
  std::memcpy(&input, data, std::min(size, sizeof input));
  checkDecimal(input.a);
  checkDecimal(static_cast<double>(input.x) / 1e4);
  checkOrder(input.a, input.b);
  checkArithmetic(FixedPoint::fromRaw(input.x), FixedPoint::fromRaw(input.y));
  if (size > sizeof input) checkReading(fuzz::bytes(data + sizeof input, size - sizeof input));
  return 0;
}
