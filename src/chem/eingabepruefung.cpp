// The checks of a typed value: range, and agreement with the other entries.
#include <cmath>

#include "chem/karbonat.h"
#include "chem/subcalc.h"

namespace calvora {

namespace {

/// The results that an emptied Kb8,2 takes along.
constexpr auto kFromKb82 = {feld::kCo2Frei, feld::kCo2Überschüssig, feld::kSättigungsindex};

}  // namespace

int ruledOutCapacity(const AnalysisRecord& record) {
  const FixedPoint ph = record.value[feld::kPh];
  if (ph < 1_fp) return 0;
  return ph < 8.2_fp ? feld::kKs82 : feld::kKb82;
}

void subcalc::clearRuledOutCapacity() {
  const int capacity = ruledOutCapacity(record_);
  if (capacity == 0 || isEmpty(capacity)) return;
  if (capacity == feld::kKs82) return resetKs82();
  clear({feld::kKb82, feld::kPhAusKapazitäten});
  clear(kFromKb82);
}

void subcalc::checkeingabe(int index, const QString& text, int& status) {
  QString typed = text;
  const Check result = checkTyped(typed);
  status = result == Check::kEmpty ? kFocusBack : 0;
  bool representable = true;
  record_.clearField(index);
  if (result == Check::kValid) {
    representable = FixedPoint::tryFromDouble(numberIn(typed)).has_value();
    if (representable) {
      // The value is that of the text shown, so that a file gives back what was computed with.
      typed = withDecimals(typed, 4);
      record_.value[index] = FixedPoint::fromDouble(numberIn(typed));
    }
    record_.text[index] = typed;
  }
  const bool rejected = !isEmpty(index) && rejectOutOfRange(index, representable, status);
  // Only a rejected pH clears what depends on it at once.
  if (!rejected || index == feld::kPh) checkAgainstOthers(index, status);
}

/// Tests a value that is given against its field's range; a number too large for the fixed-point
/// value is out of every range. A rejected one is deleted, and the user told the range.
bool subcalc::rejectOutOfRange(int index, bool representable, int& status) {
  const auto& range = fieldOf(index).range;
  if (!fieldOf(index).isTyped()) return false;
  const FixedPoint value = record_.value[index];
  if (representable && value >= range.minimum && value <= range.maximum) return false;
  record_.clearField(index);
  if (range.focusBack) status = kFocusBack;
  show(range.fault, range.text);
  return true;
}

void subcalc::checkAgainstOthers(int index, int& status) {
  switch (index) {
    case feld::kLeitfähigkeit:
      if (!isEmpty(index)) return;
      narrow_.leitfähigkeitAusIonen.clear();
      return clear({feld::kPhAusLf});
    case feld::kPh:
      return checkPh();
    case feld::kTemperatur:
      return isEmpty(index) ? resetKs82() : void();
    case feld::kKs82:
      return checkKs82(status);
    case feld::kKs43:
      return checkKs43(status);
    case feld::kKb82:
      return checkKb82();
    default:
      return;
  }
}

void subcalc::checkPh() {
  if (!isEmpty(feld::kPh) && record_.value[feld::kKs82] > 0_fp && phExceedsKs82()) {
    record_.clearField(feld::kPh);
  }
  if (isEmpty(feld::kPh)) {
    clear({feld::kHydrogencarbonat, feld::kCarbonat, feld::kCo2Frei, feld::kCo2Überschüssig});
  }
}

void subcalc::checkKs82(int& status) {
  if (isEmpty(feld::kKs82)) return resetKs82();
  if (record_.value[feld::kPh] > 0_fp && ks82TooSmallForPh()) return resetKs82();
  if (record_.value[feld::kKb82] > 0_fp) {
    show(InputFault::kBothKs82AndKb82);
    return resetKs82();
  }
  if (record_.value[feld::kKs43].isZero()) return;
  if (2 * value(feld::kKs82) > value(feld::kKs43)) {
    show(InputFault::kKs82AboveHalfKs43);
    status = kFocusBack;
    resetKs82();
  }
}

void subcalc::checkKs43(int& status) {
  // A negative capacity can only be pasted; it is refused like the zero that it cannot exceed.
  if (!isEmpty(feld::kKs43) && record_.value[feld::kKs43] <= 0_fp) {
    show(InputFault::kNotPositive, QStringLiteral("Ks4,3"));
    record_.clearField(feld::kKs43);
  }
  if (isEmpty(feld::kKs43)) {
    clear({feld::kPhAusKapazitäten, feld::kHydrogencarbonat, feld::kCarbonat, feld::kCo2Frei,
           feld::kCo2Überschüssig, feld::kSättigungsindex, feld::kKarbonathärte});
    return;
  }
  const double minimum = 2 * value(feld::kKs82);
  if (isEmpty(feld::kKs82) || value(feld::kKs43) >= minimum) return;
  show(InputFault::kKs43BelowTwiceKs82,
       numberText(minimum, minimum < 0.009 ? Format::kThreeDecimals : Format::kTwoDecimals));
  record_.clearField(feld::kKs43);
  status = kFocusBack;
}

void subcalc::checkKb82() {
  if (isEmpty(feld::kKb82)) return clear(kFromKb82);
  if (record_.value[feld::kKs82] <= 0_fp) return;
  show(InputFault::kBothKs82AndKb82);
  record_.clearField(feld::kKb82);
  clear(kFromKb82);
}

/// Whether the measured pH needs more hydroxide than the given Ks8,2 holds; then the user is told
/// the highest pH that it admits.
bool subcalc::phExceedsKs82() {
  const double ks82 = value(feld::kKs82);
  if (ks82 >= hydroxideAt(record_.value[feld::kPh])) return false;
  const double limit = (std::log10(ks82) - 3) + 14;
  show(InputFault::kPhTooHighForKs82, numberText(limit, Format::kOneDecimal));
  return true;
}

/// Whether Ks8,2 holds less hydroxide than the measured pH needs, with a tolerance; then the user
/// is told the least Ks8,2 that the pH admits.
bool subcalc::ks82TooSmallForPh() {
  constexpr double kFixedTolerance = 0.06;    // mmol/l
  constexpr double kRelativeTolerance = 0.2;  // of the hydroxide, from pH 9.9
  const FixedPoint ph = record_.value[feld::kPh];
  const double needed = hydroxideAt(ph);
  const double tolerance = ph >= 9.9_fp ? kRelativeTolerance * needed : kFixedTolerance;
  if (value(feld::kKs82) + tolerance >= needed) return false;
  show(InputFault::kKs82TooLowForPh, numberText(needed, Format::kTwoDecimals));
  return true;
}

/// Empties Ks8,2 and what depends on it.
void subcalc::resetKs82() {
  clear({feld::kKs82, feld::kPhAusKapazitäten, feld::kHydrogencarbonat, feld::kCarbonat,
         feld::kCo2Frei, feld::kCo2Überschüssig, feld::kSättigungsindex, feld::kKarbonathärte});
  narrow_.phNäherung.clear();
}

}  // namespace calvora
