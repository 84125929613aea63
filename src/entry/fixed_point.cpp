#include "entry/fixed_point.h"

#include <cmath>

#include "base/runtime_error.h"

namespace calvora {

namespace {

/// a × b / 10000 with ties to even, for magnitudes whose result fits in 64 bits.
quint64 scaledProduct(quint64 a, quint64 b) {
  constexpr quint64 kScale = FixedPoint::kScale;
  const quint64 low = (a % kScale) * (b % kScale);
  const quint64 whole = (a / kScale) * b + (a % kScale) * (b / kScale) + low / kScale;
  const quint64 remainder = low % kScale;
  const bool up = remainder > kScale / 2 || (remainder == kScale / 2 && whole % 2 == 1);
  return whole + (up ? 1 : 0);
}

}  // namespace

std::optional<FixedPoint> FixedPoint::tryFromDouble(double value) {
  const double scaled = std::nearbyint(value * static_cast<double>(kScale));
  constexpr double kEnd = 9223372036854775808.0;  // 2^63; also false for NaN
  if (!(scaled >= -kEnd && scaled < kEnd)) return std::nullopt;
  return FixedPoint(static_cast<qint64>(scaled));
}

FixedPoint FixedPoint::fromDouble(double value) {
  if (const auto fixed = tryFromDouble(value)) return *fixed;
  throw RuntimeError(ErrorNumber::kOverflow, QStringLiteral("value out of the fixed-point range"));
}

FixedPoint saturatedSum(FixedPoint a, FixedPoint b) {
  if (b.raw_ > 0 && a.raw_ > FixedPoint::highest().raw_ - b.raw_) return FixedPoint::highest();
  if (b.raw_ < 0 && a.raw_ < FixedPoint::lowest().raw_ - b.raw_) return FixedPoint::lowest();
  return FixedPoint(a.raw_ + b.raw_);
}

FixedPoint saturatedDifference(FixedPoint a, FixedPoint b) {
  if (b.raw_ < 0 && a.raw_ > FixedPoint::highest().raw_ + b.raw_) return FixedPoint::highest();
  if (b.raw_ > 0 && a.raw_ < FixedPoint::lowest().raw_ + b.raw_) return FixedPoint::lowest();
  return FixedPoint(a.raw_ - b.raw_);
}

FixedPoint saturatedProduct(FixedPoint a, FixedPoint b) {
  const bool negative = (a.raw_ < 0) != (b.raw_ < 0);
  const FixedPoint end = negative ? FixedPoint::lowest() : FixedPoint::highest();
  // Below this estimate the product fits 64 bits without sign and can be compared exactly.
  if (std::abs(a.toDouble() * b.toDouble()) > 1e15) return end;
  const quint64 product = scaledProduct(a.magnitude(), b.magnitude());
  if (product > static_cast<quint64>(FixedPoint::highest().raw_)) return end;
  const auto raw = static_cast<qint64>(product);
  return FixedPoint(negative ? -raw : raw);
}

}  // namespace calvora
