// The carbonic acid system: constants, species, pH at 25 °C, saturation index.
#include "chem/karbonat.h"

#include <cmath>

#include "chem/subcalc.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr double kZeroCelsius = 273.15;  // K
constexpr double kReference = 298.15;    // K

/// A pK and the thermodynamic data that carry it to another temperature.
struct Equilibrium {
  int slot;
  double pk25;
  double enthalpy;      // J/mol
  double heatCapacity;  // J/(mol·K)
};

constexpr std::array kEquilibria{
    Equilibrium{pk::kCalcit, 8.481, 10000, 250},
    Equilibrium{pk::kWasser, 13.996, -56532, 197},
    Equilibrium{pk::kSäure1, 6.356, -9250, 330},
    Equilibrium{pk::kSäure2, 10.329, -14950, 290},
};

// Molar masses in g/mol.
constexpr double kHydrogencarbonat = 61.017;
constexpr double kCarbonat = 60.009;
constexpr double kKohlendioxid = 44.01;

}  // namespace

void subcalc::konst_k() {
  const double gasConstant = 8.314 * std::log(10.0);  // J/(mol·K), for decimal logarithms
  const double t = value(feld::kTemperatur) + kZeroCelsius;
  const double enthalpyTerm = (1 / kReference - 1 / t) / gasConstant;
  const double heatCapacityTerm = (kReference / t - 1 + std::log(t / kReference)) / gasConstant;
  for (const Equilibrium& e : kEquilibria) {
    constants_.at(static_cast<size_t>(e.slot)) =
        e.pk25 + e.enthalpy * enthalpyTerm + e.heatCapacity * heatCapacityTerm;
  }
}

/// Hydrogencarbonate in mmol/l from the titrated alkalinity: what carbonate and, in caustic water,
/// hydroxide took of the acid does not count.
double subcalc::hydrogencarbonateEquivalent() const {
  const FixedPoint ph = record_.value[feld::kPh];
  if (ph < 8.2_fp) return value(feld::kKs43);
  const double equivalent = value(feld::kKs43) - 2 * value(feld::kKs82);
  return ph > 9.5_fp ? equivalent + hydroxideAt(ph.toDouble()) : equivalent;
}

void subcalc::c_formen() {
  const FixedPoint ph = record_.value[feld::kPh];
  const bool belowSwitch = ph < 8.2_fp;
  const auto clearResults = [&] {
    clear({feld::kHydrogencarbonat, feld::kCarbonat, feld::kCo2Frei, feld::kCo2Überschüssig});
  };
  if (record_.value[feld::kTemperatur].isZero() || ph.isZero()) return;
  // A typed zero means a capacity below what titration resolves, not a missing one.
  if (record_.value[feld::kKs82].isZero() && !isEmpty(feld::kKs82)) {
    record_.value[feld::kKs82] = 0.001_fp;
  }
  if (record_.value[feld::kKs43].isZero()) return;
  if (belowSwitch && record_.value[feld::kKb82].isZero()) return;
  konst_k();
  if (!belowSwitch && record_.value[feld::kKs82].isZero()) return clearResults();

  const double equivalent = hydrogencarbonateEquivalent();
  const double hco3 = kHydrogencarbonat * equivalent;
  const double co3 = kCarbonat * carbonateAt(ph.toDouble(), constant(pk::kSäure2), equivalent);
  const double co2 =
      kKohlendioxid * equivalent * std::pow(10.0, constant(pk::kSäure1) - ph.toDouble());
  const bool stored = store(feld::kHydrogencarbonat, hco3, Format::kOneDecimal) &&
                      store(feld::kCarbonat, co3, Format::kTwoDecimals) &&
                      store(feld::kCo2Frei, co2, Format::kOneDecimal);
  if (!stored) return clearResults();
  if (hco3 < 0) record_.clearField(feld::kHydrogencarbonat);
  if (co3 < 0.01) record_.text[feld::kCarbonat] = u"<0,01"_s;
  if (co2 < 0.1) record_.text[feld::kCo2Frei] = u"<0,1"_s;
  if (ph < 8.21_fp) {
    store(feld::kCo2Frei, value(feld::kKb82) * kKohlendioxid, Format::kOneDecimal);
  }
}

void subcalc::ph_beit() {
  if (record_.value[feld::kPh].isZero() || record_.value[feld::kTemperatur].isZero()) {
    record_.text[feld::kPhBei25].clear();
    return;
  }
  const FixedPoint difference = saturatedDifference(record_.value[feld::kTemperatur], 25_fp);
  store(feld::kPhBei25, value(feld::kPh) + 0.01 * difference.toDouble(), Format::kTwoDecimals);
}

void subcalc::s_index() {
  const FixedPoint product = saturatedProduct(
      saturatedProduct(record_.value[feld::kCalcium], record_.value[feld::kHydrogencarbonat]),
      record_.value[feld::kPh]);
  if (product < 0.01_fp) return record_.clearField(feld::kSättigungsindex);
  const double a = std::pow(10.0, -value(feld::kPh));
  const double b = value(feld::kCalcium) * value(feld::kHydrogencarbonat) / 2440;  // (mmol/l)²
  const double l = std::log10(0.000001 * b / a);
  store(feld::kSättigungsindex, l - constant(pk::kSäure2) + constant(pk::kCalcit),
        Format::kOneDecimal);
}

}  // namespace calvora
