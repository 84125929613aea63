#include "plausi/second_calculation.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "chem/leitfaehigkeit.h"

namespace calvora {

namespace {

constexpr double kZeroCelsius = 273.15;   // K
constexpr double kTitrationAt = 20;       // °C
constexpr double kConductivityAt = 25;    // °C
constexpr double kAcidEndPoint = 4.3;     // pH
constexpr double kBaseEndPoint = 8.2;     // pH
constexpr double kLowestPh = 2;           // of the search
constexpr double kHighestPh = 13.5;       // of the search
constexpr double kHighestStrength = 0.5;  // mol/l, where the activity coefficients end
constexpr int kMostRounds = 1000;         // of one calculation in all; a usual water takes 110
constexpr double kConverged = 1e-11;      // mol/l, a millionth of what a titration resolves
constexpr double kMolPerMmol = 1e-3;

// g/mol
constexpr double kCalcium = 40.08;
constexpr double kMagnesium = 24.31;
constexpr double kChloride = 35.45;
constexpr double kHydrogencarbonate = 61.017;
constexpr double kCarbonate = 60.009;
constexpr double kCarbonDioxide = 44.01;

/// An equilibrium constant: log K = a0 + a1·T + a2/T + a3·log10 T + a4/T², T in kelvin.
struct Equilibrium {
  double a0;
  double a1;
  double a2;
  double a3;
  double a4;

  [[nodiscard]] double at(double kelvin) const {
    return std::pow(
        10.0, a0 + a1 * kelvin + a2 / kelvin + a3 * std::log10(kelvin) + a4 / (kelvin * kelvin));
  }
};

// Plummer & Busenberg 1982
constexpr Equilibrium kAcid1{-356.3094, -0.06091964, 21834.37, 126.8339, -1684915};
constexpr Equilibrium kAcid2{-107.8871, -0.03252849, 5151.79, 38.92561, -563713.9};
constexpr Equilibrium kCalcite{-171.9065, -0.077993, 2839.319, 71.595, 0};
constexpr Equilibrium kCaHco3{1209.120, 0.31294, -34765.05, -478.782, 0};
constexpr Equilibrium kCaCo3{-1228.732, -0.299444, 35512.75, 485.818, 0};
// Siebert & Hostetler 1977
constexpr Equilibrium kMgHco3{-59.215, 0, 2537.455, 20.92298, 0};
constexpr Equilibrium kMgCo3{0.991, 0.00667, 0, 0, 0};
// as used in the USGS data bases
constexpr Equilibrium kWater{-283.971, -0.05069842, 13323.0, 102.24447, -1119669};

/// NaCO3−: log K 1.27 at 25 °C, ΔH 37.3 kJ/mol (van 't Hoff).
double naCo3At(double kelvin) {
  const double gasConstant = 8.314462 * std::log(10.0);  // J/(mol·K), for decimal logarithms
  return std::pow(10.0, 1.27 - 37300 / gasConstant * (1 / kelvin - 1 / 298.15));
}

/// Factor A of Debye and Hückel, with the permittivity of water by Malmberg & Maryott 1956.
double debyeHueckelAt(double celsius) {
  const double permittivity = 87.74 - 0.40008 * celsius + 9.398e-4 * celsius * celsius -
                              1.41e-6 * celsius * celsius * celsius;
  return 1.82483e6 * std::pow(permittivity * (celsius + kZeroCelsius), -1.5);
}

/// All constants at one temperature.
struct Constants {
  explicit Constants(double celsius)
      : kelvin(celsius + kZeroCelsius), debyeHueckel(debyeHueckelAt(celsius)) {}

  double kelvin;
  double debyeHueckel;
  double acid1 = kAcid1.at(kelvin);
  double acid2 = kAcid2.at(kelvin);
  double calcite = kCalcite.at(kelvin);
  double caHco3 = kCaHco3.at(kelvin);
  double caCo3 = kCaCo3.at(kelvin);
  double mgHco3 = kMgHco3.at(kelvin);
  double mgCo3 = kMgCo3.at(kelvin);
  double naCo3 = naCo3At(kelvin);
  double water = kWater.at(kelvin);
};

/// Activity coefficient of a single charge by Davies 1962, from the ionic strength in mol/l.
double activityCoefficient(double debyeHueckel, double strength) {
  const double root = std::sqrt(strength);
  return std::pow(10.0, -debyeHueckel * (root / (1 + root) - 0.3 * strength));
}

/// All of each ion, with what of it is bound in pairs, mol/l.
struct Ions {
  double calcium = 0;
  double magnesium = 0;
  double sodium = 0;
  double chloride = 0;
  double sulphate = 0;
};

/// A water at one pH, mol/l. Each search begins where the last one ended.
struct Species {
  double strength = 0.005;  ///< ionic strength
  double freeCalcium = 0;
  double freeMagnesium = 0;
  double freeSodium = 0;
  double hydrogen = 0;
  double hydroxide = 0;
  double co2 = 0;
  double hco3 = 0;  ///< with its pairs
  double co3 = 0;   ///< with its pairs
  double freeCo3 = 0;
  double gamma2 = 1;  ///< activity coefficient of a double charge

  [[nodiscard]] double ofCarbon() const { return hco3 + 2 * co3; }
  [[nodiscard]] double ofWater() const { return hydroxide - hydrogen; }
  [[nodiscard]] double alkalinity() const { return ofCarbon() + ofWater(); }

  /// By how much the alkalinity rises with the pH at constant activity coefficients.
  [[nodiscard]] double slope() const {
    const double exchanged = co2 * hco3 + hco3 * co3 + 4 * co2 * co3;
    return std::numbers::ln10 * (hydrogen + hydroxide + exchanged / (co2 + hco3 + co3));
  }
};

/// Moves a quantity and returns how far.
double move(double& from, double to) {
  return std::abs(std::exchange(from, to) - to);
}

/// One round of the substitution at activities relative to a carbon dioxide of 1. Returns how much
/// ionic strength and free ions still changed.
double substitute(const Constants& k, double proton, double carbon, const Ions& all, Species& s) {
  const double gamma = activityCoefficient(k.debyeHueckel, s.strength);
  s.gamma2 = gamma * gamma * gamma * gamma;
  const double hco3Activity = k.acid1 / proton;
  const double co3Activity = hco3Activity * k.acid2 / proton;
  const double hco3 = hco3Activity / gamma;
  const double co3 = co3Activity / s.gamma2;
  // Each pair beside a free ion of 1, from the law of mass action: the activity coefficients of the
  // pair and of its ions cancel as far as their charges do.
  const double caHco3 = k.caHco3 * s.gamma2 * hco3;
  const double mgHco3 = k.mgHco3 * s.gamma2 * hco3;
  const double caCo3 = k.caCo3 * s.gamma2 * co3Activity;
  const double mgCo3 = k.mgCo3 * s.gamma2 * co3Activity;
  const double naCo3 = k.naCo3 * co3Activity;
  const double hco3All = hco3 + caHco3 * s.freeCalcium + mgHco3 * s.freeMagnesium;
  const double co3All =
      co3 + caCo3 * s.freeCalcium + mgCo3 * s.freeMagnesium + naCo3 * s.freeSodium;
  s.co2 = carbon / (1 + hco3All + co3All);
  s.hco3 = s.co2 * hco3All;
  s.co3 = s.co2 * co3All;
  s.freeCo3 = s.co2 * co3;
  s.hydrogen = proton / gamma;
  s.hydroxide = k.water / proton / gamma;

  double change = move(s.freeCalcium, all.calcium / (1 + s.co2 * (caHco3 + caCo3)));
  change += move(s.freeMagnesium, all.magnesium / (1 + s.co2 * (mgHco3 + mgCo3)));
  change += move(s.freeSodium, all.sodium / (1 + s.co2 * naCo3));
  // Sodium counts once, free or in its pair of a single charge.
  const double single = s.hydrogen + s.hydroxide + s.hco3 + all.sodium + all.chloride;
  const double twofold = s.freeCo3 + s.freeCalcium + s.freeMagnesium + all.sulphate;
  return change + move(s.strength, (single + 4 * twofold) / 2);
}

/// The conductivity at infinite dilution, µS/cm at 25 °C.
double conductivityOf(const Species& s, const Ions& ions) {
  const double single = lambda::kH * s.hydrogen + lambda::kOH * s.hydroxide +
                        lambda::kHCO3 * s.hco3 + lambda::kCl * ions.chloride +
                        lambda::kNa * ions.sodium;
  const double twofold = lambda::kCO3 * s.co3 + lambda::kCa * ions.calcium +
                         lambda::kMg * ions.magnesium + lambda::kSO4 * ions.sulphate;
  return (single + 2 * twofold) / kMolPerMmol;
}

bool isUsable(const CarbonateWater& water) {
  const auto within = [](double value, double low, double high) {
    return value >= low && value <= high;  // false for what is no number
  };
  constexpr double kMost = 1e6;  // of anything; far beyond it the constants overflow
  return within(water.temperature, 0, 100) && within(water.ph.value_or(7), 0, 14) &&
         within(water.conductivity.value_or(1), 1e-3, kMost) && within(water.ks43, 1e-6, kMost) &&
         within(water.ks82, -kMost, kMost) && within(water.calcium, 0, kMost) &&
         within(water.magnesium, 0, kMost) && within(water.chloride, 0, kMost);
}

/// The search for a water's carbon, alkalinity and closing ions. All that depends on one another is
/// substituted in turn until nothing changes.
class Search {
 public:
  explicit Search(const CarbonateWater& water)
      : water_(water),
        medium_(water.temperature),
        measured_{.calcium = water.calcium / kCalcium * kMolPerMmol,
                  .magnesium = water.magnesium / kMagnesium * kMolPerMmol,
                  .chloride = water.chloride / kChloride * kMolPerMmol},
        ks43_(water.ks43 * kMolPerMmol),
        ks82_(water.ks82 * kMolPerMmol),
        carbon_(std::max(ks43_ - ks82_, ks43_ / 2)),
        ph_(water.ph.value_or(7.5)) {}

  /// Runs one of the two steps below and the closing of the ions until both agree.
  std::optional<CarbonateSystem> run(bool (Search::*step)());

  bool carbonFromTitrations();
  bool carbonFromPh();

 private:
  bool speciate(const Constants& k, double ph, const Ions& all, Species& s);
  bool speciateAcidEnd();
  bool findPh(const Constants& k, double& ph, Species& s);
  std::optional<Ions> closedIons();
  std::optional<CarbonateSystem> result();

  const CarbonateWater& water_;
  Constants medium_;
  Ions measured_;
  double ks43_;
  double ks82_;
  double carbon_;
  double ph_;
  double phAt25_ = ph_;
  double alkalinity_ = 0;
  Ions ions_ = measured_;
  Species acidEnd_{};
  Species baseEnd_{};
  Species atMedium_{};
  Species at25_{};
  int roundsLeft_ = kMostRounds;
};

const Constants& atTitration() {
  static const Constants kConstants(kTitrationAt);
  return kConstants;
}

/// Distributes the carbon over its species at a pH. False when the rounds are used up or the water
/// leaves what the activity coefficients can describe.
bool Search::speciate(const Constants& k, double ph, const Ions& all, Species& s) {
  const double proton = std::pow(10.0, -ph);
  while (roundsLeft_-- > 0) {
    const double change = substitute(k, proton, carbon_, all, s);
    if (!(s.strength < kHighestStrength)) return false;
    if (change < kConverged) return true;
  }
  return false;
}

/// The acid capacity with what the water still takes of the acid at pH 4.3 is the alkalinity.
bool Search::speciateAcidEnd() {
  Ions ions = ions_;
  ions.chloride += ks43_;
  if (!speciate(atTitration(), kAcidEndPoint, ions, acidEnd_)) return false;
  alkalinity_ = ks43_ + acidEnd_.alkalinity();
  return true;
}

/// Both titrations end at a known pH, where carbon and alkalinity are in a known proportion; from
/// one end point to the other the acid changes the alkalinity only.
bool Search::carbonFromTitrations() {
  Ions ions = ions_;
  (ks82_ > 0 ? ions.chloride : ions.sodium) += std::abs(ks82_);
  if (!speciateAcidEnd()) return false;
  if (!speciate(atTitration(), kBaseEndPoint, ions, baseEnd_)) return false;
  const double ofWater = baseEnd_.ofWater() - acidEnd_.ofWater();
  const double ofCarbon = (baseEnd_.ofCarbon() - acidEnd_.ofCarbon()) / carbon_;
  carbon_ = (ks43_ - ks82_ - ofWater) / ofCarbon;
  return carbon_ > 0 && findPh(medium_, ph_, atMedium_);
}

/// The carbon that brings the alkalinity at the measured pH.
bool Search::carbonFromPh() {
  if (!speciateAcidEnd()) return false;
  if (!speciate(medium_, ph_, ions_, atMedium_)) return false;
  carbon_ *= (alkalinity_ - atMedium_.ofWater()) / atMedium_.ofCarbon();
  return carbon_ > 0;
}

/// The pH at which the water has its alkalinity, which rises with the pH: Newton's method from the
/// last pH, halving where it leaves the bracket or would swing about the flat middle of the curve.
bool Search::findPh(const Constants& k, double& ph, Species& s) {
  constexpr double kKnown = 1e-7;
  double low = kLowestPh;
  double high = kHighestPh;
  double step = high - low;
  ph = std::clamp(ph, low, high);
  while (high - low > kKnown) {
    if (!speciate(k, ph, ions_, s)) return false;
    const double excess = s.alkalinity() - alkalinity_;
    (excess > 0 ? high : low) = ph;
    double next = ph - excess / s.slope();
    const bool converges = next >= low && next <= high && std::abs(next - ph) < step / 2;
    if (!converges) next = (low + high) / 2;
    step = move(ph, next);
    if (step < kKnown) break;
  }
  return ph > kLowestPh + kKnown && ph < kHighestPh - kKnown;
}

/// What was not measured: cations are missing as sodium, anions as sulphate, and what the
/// conductivity still lacks is sodium sulphate.
std::optional<Ions> Search::closedIons() {
  static const Constants kAt25(kConductivityAt);
  Ions closed = measured_;
  const double gap = alkalinity_ + closed.chloride - 2 * closed.calcium - 2 * closed.magnesium;
  if (gap > 0) closed.sodium = gap;
  if (gap < 0) closed.sulphate = -gap / 2;
  if (!water_.conductivity) return closed;
  if (!findPh(kAt25, phAt25_, at25_)) return std::nullopt;
  const double missing = *water_.conductivity / conductivityFactor(*water_.conductivity) -
                         conductivityOf(at25_, closed);
  if (missing <= 0) return closed;
  const double salt = missing * kMolPerMmol / (2 * lambda::kNa + 2 * lambda::kSO4);
  closed.sodium += 2 * salt;
  closed.sulphate += salt;
  return closed;
}

std::optional<CarbonateSystem> Search::run(bool (Search::*step)()) {
  constexpr double kSettled = 1e-9;  // mol/l
  double change = kSettled;
  while (change >= kSettled) {
    const double carbon = carbon_;
    if (!(this->*step)()) return std::nullopt;
    const std::optional<Ions> closed = closedIons();
    if (!closed) return std::nullopt;
    change = std::abs(carbon - carbon_) + move(ions_.sodium, closed->sodium) +
             move(ions_.sulphate, closed->sulphate);
  }
  return result();
}

std::optional<CarbonateSystem> Search::result() {
  if (!speciate(medium_, ph_, ions_, atMedium_)) return std::nullopt;
  CarbonateSystem system{
      .ph = ph_,
      .hydrogencarbonate = kHydrogencarbonate * atMedium_.hco3 / kMolPerMmol,
      .carbonate = kCarbonate * atMedium_.co3 / kMolPerMmol,
      .carbonDioxide = kCarbonDioxide * atMedium_.co2 / kMolPerMmol,
      .ionicStrength = atMedium_.strength / kMolPerMmol,
  };
  if (!speciate(medium_, water_.ph.value_or(ph_), ions_, atMedium_)) return std::nullopt;
  const double product =
      atMedium_.freeCalcium * atMedium_.freeCo3 * atMedium_.gamma2 * atMedium_.gamma2;
  if (product > 0) system.saturationIndex = std::log10(product / medium_.calcite);
  return system;
}

}  // namespace

std::optional<CarbonateSystem> secondCalculation(const CarbonateWater& water) {
  if (!isUsable(water)) return std::nullopt;
  return Search(water).run(&Search::carbonFromTitrations);
}

std::optional<CarbonateSystem> carbonateSystemAtPh(const CarbonateWater& water) {
  if (!water.ph || !isUsable(water)) return std::nullopt;
  return Search(water).run(&Search::carbonFromPh);
}

double phOfHydroxide(double hydroxide, double temperature) {
  const double concentration = hydroxide * kMolPerMmol;
  const Constants k(temperature);
  const double gamma = activityCoefficient(k.debyeHueckel, concentration);
  return std::log10(concentration * gamma / k.water);
}

}  // namespace calvora
