// Two doubles, a fixed-point value and a text, against independent arithmetic.
#include <QRegularExpression>
#include <cmath>
#include <cstring>

#include "entry/decimal.h"
#include "entry/fixed_point.h"
#include "fuzz_support.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

void checkFixedPoint(FixedPoint value) {
  const QString what = invariantNumber(value);
  fuzz::require(readInvariantNumber(what) == value, "a file keeps the value", what);
  if (std::abs(value.toDouble()) < 1e11) {  // beyond, a double holds fewer than four decimals
    fuzz::require(FixedPoint::fromDouble(value.toDouble()) == value, "to double and back", what);
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

/// Reading a number against the toolkit's reader, wherever that takes the whole text.
void checkReading(const QString& text) {
  static const QRegularExpression kStart(u"^-?[0-9.]"_s);
  const double number = readNumber(text);
  bool whole = false;
  const double expected = text.toDouble(&whole);
  if (!kStart.match(text).hasMatch()) {
    fuzz::require(number == 0, "what is no number reads as zero", text);
  } else if (whole) {
    fuzz::require(number == expected, "a number is read as it stands", text);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  struct {
    double a, b;
    qint64 x;
  } input{};
  std::memcpy(&input, data, std::min(size, sizeof input));
  checkDecimal(input.a);
  checkDecimal(static_cast<double>(input.x) / 1e4);
  checkOrder(input.a, input.b);
  checkFixedPoint(FixedPoint::fromRaw(input.x));
  if (size > sizeof input) {
    checkReading(QString::fromLatin1(fuzz::bytes(data + sizeof input, size - sizeof input)));
  }
  return 0;
}
