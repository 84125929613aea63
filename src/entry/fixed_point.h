#pragma once

#include <QtGlobal>
#include <compare>
#include <limits>
#include <optional>

namespace calvora {

/// A measured or computed value: signed 64 bit, four decimals (value × 10000).
class FixedPoint {
 public:
  static constexpr qint64 kScale = 10000;

  constexpr FixedPoint() = default;

  /// The value that is `raw` ten-thousandths.
  static constexpr FixedPoint fromRaw(qint64 raw) { return FixedPoint(raw); }

  /// Rounds to the nearest four decimals, ties to even. Runtime error 6 if the value does not fit
  /// or is no number.
  static FixedPoint fromDouble(double value);

  /// As fromDouble, but empty where that would fail.
  static std::optional<FixedPoint> tryFromDouble(double value);

  static constexpr FixedPoint lowest() { return FixedPoint(std::numeric_limits<qint64>::min()); }
  static constexpr FixedPoint highest() { return FixedPoint(std::numeric_limits<qint64>::max()); }

  [[nodiscard]] constexpr qint64 raw() const { return raw_; }

  /// The ten-thousandths without their sign; also those of the lowest value fit.
  [[nodiscard]] constexpr quint64 magnitude() const {
    return raw_ < 0 ? ~static_cast<quint64>(raw_) + 1 : static_cast<quint64>(raw_);
  }

  [[nodiscard]] constexpr double toDouble() const {
    return static_cast<double>(raw_) / static_cast<double>(kScale);
  }
  [[nodiscard]] constexpr bool isZero() const { return raw_ == 0; }

  friend constexpr auto operator<=>(FixedPoint, FixedPoint) = default;

 private:
  explicit constexpr FixedPoint(qint64 raw) : raw_(raw) {}

  qint64 raw_ = 0;
};

/// Sum, difference and product, exact to four decimals (the product's ties to even). A result out
/// of range stays at the end of the range: these are for comparisons and for quantities that are
/// then checked, never a wrapped number.
FixedPoint saturatedSum(FixedPoint a, FixedPoint b);
FixedPoint saturatedDifference(FixedPoint a, FixedPoint b);
FixedPoint saturatedProduct(FixedPoint a, FixedPoint b);

/// Whether the exact product, with all its decimals, is greater than the limit.
bool productExceeds(FixedPoint a, FixedPoint b, FixedPoint limit);

namespace detail {
/// Reads a literal such as 8.2 exactly; more than four decimals do not compile.
consteval qint64 rawOfLiteral(const char* digits) {
  qint64 raw = 0;
  int decimals = -1;
  for (const char* c = digits; *c != '\0'; ++c) {
    if (*c == '\'') continue;
    if (*c == '.') {
      decimals = 0;
      continue;
    }
    if (*c < '0' || *c > '9' || decimals == 4) throw "not a fixed-point literal";
    raw = raw * 10 + (*c - '0');
    if (decimals >= 0) ++decimals;
  }
  for (int i = decimals < 0 ? 0 : decimals; i < 4; ++i) raw *= 10;
  return raw;
}
}  // namespace detail

/// 8.2_fp is the fixed-point value 8.2, without a detour over floating point.
consteval FixedPoint operator""_fp(const char* digits) {
  return FixedPoint::fromRaw(detail::rawOfLiteral(digits));
}

}  // namespace calvora
