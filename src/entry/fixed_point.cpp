#include "entry/fixed_point.h"

#include <algorithm>
#include <cmath>

#include "base/runtime_error.h"

namespace calvora {

namespace {

__extension__ using Wide = __int128;  ///< holds every product of two raw values

FixedPoint saturated(Wide raw) {
  const Wide lowest = FixedPoint::lowest().raw();
  const Wide highest = FixedPoint::highest().raw();
  return FixedPoint::fromRaw(static_cast<qint64>(std::clamp(raw, lowest, highest)));
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
  return saturated(Wide{a.raw()} + b.raw());
}

FixedPoint saturatedDifference(FixedPoint a, FixedPoint b) {
  return saturated(Wide{a.raw()} - b.raw());
}

FixedPoint saturatedProduct(FixedPoint a, FixedPoint b) {
  const Wide product = Wide{a.raw()} * b.raw();
  Wide quotient = product / FixedPoint::kScale;
  const Wide twice = 2 * (product % FixedPoint::kScale);
  const Wide size = twice < 0 ? -twice : twice;
  const bool away = size > FixedPoint::kScale || (size == FixedPoint::kScale && quotient % 2 != 0);
  if (away) quotient += product < 0 ? -1 : 1;
  return saturated(quotient);
}

bool productExceeds(FixedPoint a, FixedPoint b, FixedPoint limit) {
  return Wide{a.raw()} * b.raw() > Wide{limit.raw()} * FixedPoint::kScale;
}

}  // namespace calvora
