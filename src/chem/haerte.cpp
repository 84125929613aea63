// Ionic strength, excess carbon dioxide and everything about hardness.
#include <cmath>
#include <optional>

#include "chem/haerte.h"
#include "chem/subcalc.h"

namespace calvora {

namespace {

/// Working copies of the three values that describe one hardness; 0 where one is not given.
struct HardnessSet {
  FixedPoint total;      // °d
  FixedPoint calcium;    // mg/l
  FixedPoint magnesium;  // mg/l

  /// Whether the hardness of the calcium or the magnesium alone exceeds the total hardness.
  [[nodiscard]] bool calciumExceeds() const { return productExceeds(0.1397_fp, calcium, total); }
  [[nodiscard]] bool magnesiumExceeds() const { return productExceeds(0.23_fp, magnesium, total); }
};

/// Applies the rule of the field entered last. Returns a contradiction, whose value is then taken
/// out of the set.
std::optional<InputFault> contradiction(int lastEntered, HardnessSet& set) {
  using enum InputFault;
  const auto reject = [](InputFault fault, FixedPoint& rejected) {
    rejected = {};
    return fault;
  };
  const bool hasCalcium = !set.calcium.isZero();
  const bool hasMagnesium = !set.magnesium.isZero();
  if (lastEntered == feld::kGesamthärte) {
    if (hasCalcium && hasMagnesium) {
      set.calcium = set.magnesium = {};  // the typed total replaces both
    } else if (!set.total.isZero()) {
      if (hasMagnesium && set.magnesiumExceeds()) return reject(kTotalBelowMagnesium, set.total);
      if (hasCalcium && set.calciumExceeds()) return reject(kTotalBelowCalcium, set.total);
    }
    return {};
  }
  if (set.total.isZero()) return {};
  if (lastEntered == feld::kCalcium) {
    if (!hasMagnesium && set.calciumExceeds()) return reject(kCalciumAboveTotal, set.calcium);
    if (hasCalcium == hasMagnesium) set.total = {};  // recomputed from both, or gone with calcium
  } else if (lastEntered == feld::kMagnesium) {
    if (!hasCalcium && set.magnesiumExceeds()) return reject(kMagnesiumAboveTotal, set.magnesium);
    if (hasCalcium == hasMagnesium) set.total = {};
  }
  return {};
}

/// Fills in whichever of the three is missing from the other two.
void completeHardness(HardnessSet& set) {
  constexpr double kLeast = 0.002;  // mg/l; less than that, or a negative rest, counts as a trace
  const auto rest = [](double concentration) {
    return FixedPoint::tryFromDouble(concentration < kLeast ? 0.001 : concentration)
        .value_or(FixedPoint{});
  };
  const double calcium = set.calcium.toDouble() / kMolarMassCa;      // mmol/l
  const double magnesium = set.magnesium.toDouble() / kMolarMassMg;  // mmol/l
  const double total = set.total.toDouble() / kDegreePerMmol;        // mmol/l
  if (set.total.isZero()) {
    set.total =
        FixedPoint::tryFromDouble(kDegreePerMmol * (calcium + magnesium)).value_or(FixedPoint{});
  } else if (set.calcium.isZero() && !set.magnesium.isZero()) {
    set.calcium = rest(kMolarMassCa * (total - magnesium));
  } else if (set.magnesium.isZero() && !set.calcium.isZero()) {
    set.magnesium = rest(kMolarMassMg * (total - calcium));
  }
}

}  // namespace

void subcalc::ionstrong() {
  double strength = record_.value[feld::kGesamthärte].isZero()
                        ? value(feld::kCalcium) / 20.04 + value(feld::kMagnesium) / 12.15
                        : 2 * value(feld::kGesamthärte) / kDegreePerMmol;
  strength += value(feld::kNatrium) / 45.98 + value(feld::kChlorid) / 70.906 +
              value(feld::kHydrogencarbonat) / 122.046 + value(feld::kCarbonat) / 30.005;
  storeValue(feld::kIonenstärke, std::abs(strength));
}

void subcalc::co2agg() {
  ionstrong();
  const double ionicStrength = value(feld::kIonenstärke);
  double hydrogencarbonate = value(feld::kHydrogencarbonat) / 61.0;  // mmol/l
  const double calcium = value(feld::kCalcium) / 40.1;               // mmol/l
  const double t = value(feld::kTemperatur);                         // °C
  const bool incomplete = hydrogencarbonate == 0 || t == 0 || calcium == 0 || ionicStrength == 0;
  if (incomplete || isEmpty(feld::kKb82)) return record_.clearField(feld::kCo2Überschüssig);
  if (record_.value[feld::kPh] > 9.4_fp) {
    hydrogencarbonate += value(feld::kCarbonat) / 30.0;  // counts twice
  }
  const double strength = ionicStrength / 1000;  // mol/l
  const double root = std::sqrt(strength);
  const double activity =
      std::pow(10.0, (3 * root + 1.7 * strength) / (1 + 5.3 * root + 5.5 * strength));
  const double coefficient = (0.0015 * t * t + 0.0159 * t + 0.9921) / 100;
  const double associated =
      44.01 * coefficient * calcium * hydrogencarbonate * hydrogencarbonate / activity;  // mg/l
  store(feld::kCo2Überschüssig, value(feld::kCo2Frei) - associated, Format::kOneDecimal);
}

void subcalc::secamg() {
  HardnessSet set{record_.value[feld::kGesamthärte], record_.value[feld::kCalcium],
                  record_.value[feld::kMagnesium]};
  if (const auto fault = contradiction(lastField_, set)) {
    show(*fault);
  } else {
    completeHardness(set);
  }
  const auto writeBack = [&](int index, FixedPoint value) {
    record_.value[index] = value;
    record_.text[index] =
        value.isZero() ? QString() : numberText(value.toDouble(), Format::kOneDecimal);
  };
  writeBack(feld::kGesamthärte, set.total);
  writeBack(feld::kCalcium, set.calcium);
  writeBack(feld::kMagnesium, set.magnesium);
}

void subcalc::khnkh() {
  clear({feld::kNichtkarbonathärte});
  if (record_.value[feld::kHydrogencarbonat].isZero()) return clear({feld::kKarbonathärte});
  const FixedPoint total = record_.value[feld::kGesamthärte];
  store(feld::kKarbonathärte, value(feld::kHydrogencarbonat) * 2.8 / 61.01, Format::kOneDecimal);
  if (record_.value[feld::kKarbonathärte] > total) {
    record_.value[feld::kKarbonathärte] = total;
    record_.text[feld::kKarbonathärte] = record_.text[feld::kGesamthärte];
  }
  if (total.isZero()) return;
  const FixedPoint rest = saturatedDifference(total, record_.value[feld::kKarbonathärte]);
  store(feld::kNichtkarbonathärte, rest.toDouble(), Format::kOneDecimal);
}

}  // namespace calvora
