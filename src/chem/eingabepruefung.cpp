// The checks of a typed value: range, and agreement with the other entries.
#include <algorithm>
#include <cmath>

#include "chem/karbonat.h"
#include "chem/subcalc.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

/// What a field admits, bounds included, and what its range message says.
struct RangeRule {
  int index;
  FixedPoint minimum;
  FixedPoint maximum;
  int message;
  QString range;
  bool focusBack;  ///< whether the focus returns into a rejected field
};

/// The rule of a field, or nothing for one that has none.
const RangeRule* rangeRule(int index) {
  // The texts are made by _s: a QStringLiteral leaves a temporary, and clang up to 14 destroys
  // those that stand beside a _fp at the end of the function, also where nothing was initialised.
  static const std::array kRules{
      RangeRule{1, 0.5_fp, 5000_fp, 3, u"0,5 - 5000 µS/cm"_s, false},
      RangeRule{2, 4_fp, 12_fp, 3, u"4- 12"_s, false},
      RangeRule{3, 1_fp, 90_fp, 3, u"1-90 °C"_s, true},
      RangeRule{4, 0_fp, 10_fp, 6, u" 0 - 10"_s, false},
      RangeRule{5, FixedPoint::lowest(), 7.0_fp, 6, u" 0 - 7,0"_s, false},
      RangeRule{6, FixedPoint::lowest(), 2.5_fp, 6, u" 0 - 2,5"_s, false},
      RangeRule{20, 0.05_fp, 100_fp, 3, u"0,05 - 100 °d"_s, true},
      RangeRule{23, 0.1_fp, 700_fp, 3, u"0,1 - 700"_s, true},
      RangeRule{24, 0.1_fp, 420_fp, 3, u"0,1 - 420 "_s, true},
      RangeRule{25, 0.01_fp, 500_fp, 3, u"0,01 - 500"_s, true},
      RangeRule{26, 0.01_fp, 20_fp, 3, u"0,01 - 20"_s, true},
  };
  const auto* rule = std::ranges::find(kRules, index, &RangeRule::index);
  return rule == kRules.end() ? nullptr : rule;
}

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
  clearFromKb82();
}

void subcalc::checkeingabe(int index, const QString& text, int& status) {
  QString typed = text;
  int code = check::kValid;
  entry_.wertprüf(typed, code);
  status = code == check::kEmpty ? kFocusBack : 0;
  bool representable = true;
  record_.clearField(index);
  if (code == check::kValid) {
    NumberCell number;
    entry_.strzahl(typed, number);
    representable = FixedPoint::tryFromDouble(numberOf(number)).has_value();
    if (representable) {
      // The value is that of the text shown, so that a file gives back what was computed with.
      entry_.formstr(typed, 4);
      entry_.strzahl(typed, number);
      record_.value[index] = FixedPoint::fromDouble(numberOf(number));
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
  const RangeRule* rule = rangeRule(index);
  if (rule == nullptr) return false;
  const FixedPoint value = record_.value[index];
  if (representable && value >= rule->minimum && value <= rule->maximum) return false;
  record_.clearField(index);
  if (rule->focusBack) status = kFocusBack;
  show(rule->message, rule->range);
  return true;
}

void subcalc::checkAgainstOthers(int index, int& status) {
  switch (index) {
    case feld::kLeitfähigkeit:
      return checkLeitfähigkeit();
    case feld::kPh:
      return checkPh();
    case feld::kTemperatur:
      return checkTemperatur();
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

void subcalc::checkLeitfähigkeit() {
  if (!isEmpty(feld::kLeitfähigkeit)) return;
  clear({feld::kPhAusLf});
  narrow_.leitfähigkeitAusIonen.clear();
}

void subcalc::checkPh() {
  if (!isEmpty(feld::kPh) && record_.value[feld::kKs82] > 0_fp && phExceedsKs82()) {
    record_.clearField(feld::kPh);
  }
  if (isEmpty(feld::kPh)) {
    clear({feld::kHydrogencarbonat, feld::kCarbonat, feld::kCo2Frei, feld::kCo2Überschüssig});
  }
}

void subcalc::checkTemperatur() {
  if (isEmpty(feld::kTemperatur)) resetKs82();
}

void subcalc::checkKs82(int& status) {
  if (isEmpty(feld::kKs82)) return resetKs82();
  if (record_.value[feld::kPh] > 0_fp && ks82TooSmallForPh()) return resetKs82();
  if (record_.value[feld::kKb82] > 0_fp) {
    show(13);
    return resetKs82();
  }
  if (record_.value[feld::kKs43].isZero()) return;
  if (2 * value(feld::kKs82) > value(feld::kKs43)) {
    show(4);
    status = kFocusBack;
    resetKs82();
  }
}

void subcalc::checkKs43(int& status) {
  // A negative capacity can only be pasted; it is refused like the zero that it cannot exceed.
  if (!isEmpty(feld::kKs43) && record_.value[feld::kKs43] <= 0_fp) {
    show(2, QStringLiteral("Ks4,3"));
    record_.clearField(feld::kKs43);
  }
  if (isEmpty(feld::kKs43)) {
    clear({feld::kPhAusKapazitäten, feld::kHydrogencarbonat, feld::kCarbonat, feld::kCo2Frei,
           feld::kCo2Überschüssig, feld::kSättigungsindex, feld::kKarbonathärte});
    return;
  }
  const double minimum = 2 * value(feld::kKs82);
  if (isEmpty(feld::kKs82) || value(feld::kKs43) >= minimum) return;
  show(5, entry_.formz(minimum, minimum < 0.009 ? kind::kThreeDecimals : kind::kTwoDecimals));
  record_.clearField(feld::kKs43);
  status = kFocusBack;
}

void subcalc::checkKb82() {
  if (isEmpty(feld::kKb82)) return clearFromKb82();
  if (record_.value[feld::kKs82] <= 0_fp) return;
  show(13);
  record_.clearField(feld::kKb82);
  clearFromKb82();
}

void subcalc::clearFromKb82() {
  clear({feld::kCo2Frei, feld::kCo2Überschüssig, feld::kSättigungsindex});
}

/// Whether the measured pH needs more hydroxide than the given Ks8,2 holds; then the user is told
/// the highest pH that it admits.
bool subcalc::phExceedsKs82() {
  const double ks82 = value(feld::kKs82);
  if (ks82 >= hydroxideAt(record_.value[feld::kPh])) return false;
  const double limit = (std::log10(ks82) - 3) + 14;
  show(11, entry_.formz(limit, kind::kOneDecimal));
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
  show(12, entry_.formz(needed, kind::kTwoDecimals));
  return true;
}

/// Empties Ks8,2 and what depends on it.
void subcalc::resetKs82() {
  clear({feld::kKs82, feld::kPhAusKapazitäten, feld::kHydrogencarbonat, feld::kCarbonat,
         feld::kCo2Frei, feld::kCo2Überschüssig, feld::kSättigungsindex, feld::kKarbonathärte});
  narrow_.phNäherung.clear();
}

}  // namespace calvora
