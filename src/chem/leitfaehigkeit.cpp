// What the conductivity implies: a pH, a least conductivity, a conductivity from the ions.
#include "chem/leitfaehigkeit.h"

#include <cmath>

#include "chem/karbonat.h"
#include "chem/subcalc.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr double kMolarMassNa = 23;  // g/mol

constexpr double kFactorWithoutConductivity = 0.98;

}  // namespace

/// Contributions of hydrogen and hydroxide to the conductivity, µS/cm.
struct subcalc::IonConductivity {
  double hydrogen = 0;
  double hydroxide = 0;
};

void subcalc::ph_aus_lf() {
  if (record_.value[feld::kLeitfähigkeit] < 0.5_fp || record_.value[feld::kPh].isZero()) {
    record_.clearField(feld::kPhAusLf);
    record_.text[feld::kPhAusLf] = u"n.b."_s;
    narrow_.leitfähigkeitAusIonen.clear();
    minimumConductivity(kFactorWithoutConductivity);
    return;
  }
  const double conductivity = value(feld::kLeitfähigkeit);
  const double factor = conductivityFactor(conductivity);
  const bool acid = record_.value[feld::kPh] <= 7_fp;
  const double ph = acid ? 3 - std::log10(conductivity / (lambda::kH * factor))
                         : 11 + std::log10(conductivity / (lambda::kNaOH * factor));
  store(feld::kPhAusLf, ph, Format::kTwoDecimals);
  if (acid && ph < 4) record_.text[feld::kPhAusLf] = u"<4,0"_s;
  if (!acid && ph > 12.5) record_.text[feld::kPhAusLf] = u">12,5"_s;
  conductivityFromIons(minimumConductivity(factor), factor);
}

/// The least conductivity that the measured pH implies, reported if the measured one is below it,
/// and the sodium that balances its hydroxide. Returns what hydrogen and hydroxide contribute.
subcalc::IonConductivity subcalc::minimumConductivity(double factor) {
  const FixedPoint ph = record_.value[feld::kPh];
  if (ph < 1_fp) return {};
  const double hydrogen = 1000 * std::pow(10.0, -ph.toDouble());  // mmol/l
  const double hydroxide = hydroxideAt(ph.toDouble());            // mmol/l
  const IonConductivity ions{factor * lambda::kH * hydrogen, factor * lambda::kOH * hydroxide};
  if (ph < 8.3_fp) {
    record_.value[feld::kNatrium] = {};
    return ions;
  }
  storeValue(feld::kNatrium, kMolarMassNa * hydroxide);
  const double minimum = factor * lambda::kNa * hydroxide + ions.hydrogen + ions.hydroxide;
  const bool contradicts =
      !isEmpty(feld::kLeitfähigkeit) && 1.1 * value(feld::kLeitfähigkeit) < minimum;
  if (contradicts && std::isfinite(minimum))
    show(InputFault::kConductivityTooLowForPh, numberText(minimum, Format::kWhole));
  return ions;
}

/// The conductivity as the sum over the ions of the record, from mg/l, in µS/cm.
void subcalc::conductivityFromIons(const IonConductivity& ions, double factor) {
  const double sum = ions.hydrogen + ions.hydroxide +  //
                     value(feld::kHydrogencarbonat) * lambda::kHCO3 / 61 +
                     value(feld::kCarbonat) * lambda::kCO3 * 2 / 60 +    //
                     value(feld::kCalcium) * lambda::kCa * 2 / 40.1 +    //
                     value(feld::kMagnesium) * lambda::kMg * 2 / 24.3 +  //
                     value(feld::kChlorid) * lambda::kCl / 35.5 +        //
                     value(feld::kNatrium) * lambda::kNa / kMolarMassNa;
  const double conductivity = factor * sum;
  narrow_.leitfähigkeitAusIonen =
      std::isfinite(conductivity) ? numberText(conductivity, Format::kWhole) : QString();
}

void subcalc::phausks82() {
  const FixedPoint ks82 = record_.value[feld::kKs82];
  if (ks82.isZero()) return record_.text[feld::kPhAusKs82].clear();
  if (ks82 < 0.002_fp) {
    record_.text[feld::kPhAusKs82] = u"<8,2"_s;
    record_.value[feld::kPhAusKs82] = 8.2_fp;
    return;
  }
  constexpr double kHighest = 12.5;
  const double ph = 14 + std::log10(ks82.toDouble() / 1000);
  store(feld::kPhAusKs82, std::min(ph, kHighest), Format::kTwoDecimals);
  if (ph > kHighest) record_.text[feld::kPhAusKs82].prepend('>'_L1);
}

}  // namespace calvora
