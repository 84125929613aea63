// The pH that agrees with the titrated capacities: by iteration and by approximation.
#include <cmath>
#include <numeric>
#include <optional>

#include "chem/karbonat.h"
#include "chem/subcalc.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

// The candidate pH is counted in hundredths, so that many small steps add up exactly.
constexpr int kStep = 2;
constexpr int kKb82Regime = 820;       // below: compared with Kb8,2
constexpr int kHydroxideRegime = 950;  // from here on hydroxide counts
constexpr int kHighestPh = 1400;
constexpr int kMostSteps = 100;

constexpr double kCoarse = 0.5;    // mmol/l, from the start at 6.5
constexpr double kRefined = 0.02;  // mmol/l, once the coarse search has met

/// 10^pH for every candidate pH. The search asks for up to a hundred of them in every run, and
/// computing them anew made it half of the run's time.
double tenToThePh(int hundredths) {
  static const auto kPowers = [] {
    std::array<double, kHydroxideRegime> powers{};
    for (int i = 0; i < kHydroxideRegime; ++i)
      powers.at(static_cast<size_t>(i)) = std::pow(10.0, i / 100.0);
    return powers;
  }();
  return kPowers.at(static_cast<size_t>(hundredths));
}

/// The titrated capacities in mmol/l and the constants at the medium temperature.
struct Capacities {
  double ks43;
  double ks82;
  double kb82;
  double pk1;
  double pk2;
  double k1 = std::pow(10.0, -pk1);
  double k2 = std::pow(10.0, -pk2);
};

struct Search {
  int ph;  // hundredths
  double kb82Tolerance = 0;
  double ks82Tolerance = 0;
};

/// One step below 8.2. Returns the change of the candidate pH, empty when the search has met.
std::optional<int> stepOnKb82(const Capacities& water, Search& search) {
  const double carbonDioxide = water.ks43 / (tenToThePh(search.ph) * water.k1);
  const double difference = water.kb82 - carbonDioxide;
  if (std::abs(difference) <= search.kb82Tolerance) {
    const bool coarse = search.kb82Tolerance > 0.2 && search.ph > 650;
    if (!coarse) return std::nullopt;
    search.kb82Tolerance = kRefined;
    return 0;
  }
  return difference >= 0 ? -kStep : kStep;
}

/// One step from 8.2 up to below 9.5.
std::optional<int> stepOnKs82(const Capacities& water, const Search& search) {
  const double hydrogencarbonate = water.ks43 - 2 * water.ks82;
  const double carbonate = hydrogencarbonate * tenToThePh(search.ph) * water.k2;
  const double difference = water.ks82 - carbonate;
  if (std::abs(difference) <= search.ks82Tolerance) return std::nullopt;
  return difference < 0 ? -kStep : kStep;
}

/// From 9.5 on, hydroxide counts as it does in the species: Ks8,2 is carbonate plus hydroxide. What
/// the candidate pH has too much of it rises with the pH, and steeply, so the root is bracketed and
/// halved instead of stepped at. Stays at 9.5 where the capacities meet below it, and ends at 14
/// for water that has none.
double searchWithHydroxide(const Capacities& water) {
  const auto excess = [&](double ph) {
    const double hydroxide = hydroxideAt(ph);
    const double hydrogencarbonate = water.ks43 - 2 * water.ks82 + hydroxide;
    return carbonateAt(ph, water.pk2, hydrogencarbonate) + hydroxide - water.ks82;
  };
  double low = kHydroxideRegime / 100.0;
  double high = kHighestPh / 100.0;
  if (!(excess(low) < 0)) return low;
  constexpr double kPhTolerance = 1e-6;
  while (high - low > kPhTolerance) {
    const double middle = (low + high) / 2;
    (excess(middle) < 0 ? low : high) = middle;
  }
  return (low + high) / 2;
}

double searchPh(const Capacities& water, Search search) {
  for (int steps = 0; search.ph < kHydroxideRegime; ++steps) {
    const std::optional<int> step =
        search.ph < kKb82Regime ? stepOnKb82(water, search) : stepOnKs82(water, search);
    if (!step || steps == kMostSteps) break;
    search.ph += *step;
  }
  return search.ph < kHydroxideRegime ? search.ph / 100.0 : searchWithHydroxide(water);
}

/// Coefficients of the approximation, lowest power first.
using Polynomial = std::array<double, 7>;
constexpr Polynomial kSaltPoor{4.461, 13.44, -57.6211, 171.2016, -285.2858, 233.3175, -71.2147};
constexpr Polynomial kSaltRich{3.6062, 25.7273, -117.358, 297.2096, -413.0639, 293.5925, -81.541};

double evaluate(const Polynomial& coefficients, double x) {
  return std::accumulate(coefficients.rbegin(), coefficients.rend(), 0.0,
                         [x](double sum, double coefficient) { return sum * x + coefficient; });
}

}  // namespace

void subcalc::phaus_c() {
  if (record_.value[feld::kKs43].isZero() || record_.value[feld::kTemperatur].isZero()) return;
  if (isEmpty(feld::kKb82) && isEmpty(feld::kKs82)) return;
  Search search{};
  if (record_.value[feld::kKb82] > 0_fp) {
    const FixedPoint ph = record_.value[feld::kPh];
    const bool acid = ph > 0_fp && ph < 6.6_fp;
    search = acid ? Search{.ph = 650, .kb82Tolerance = kCoarse}
                  : Search{.ph = 700, .kb82Tolerance = 0.025};
  } else {
    if (record_.value[feld::kKs82] < 0_fp) return;
    search = {.ph = kKb82Regime, .ks82Tolerance = 0.003};
  }
  konst_k();
  const Capacities water{value(feld::kKs43), value(feld::kKs82), value(feld::kKb82),
                         constant(pk::kSäure1), constant(pk::kSäure2)};
  store(feld::kPhAusKapazitäten, searchPh(water, search), Format::kTwoDecimals);
}

void subcalc::ph_aus_ksr() {
  const FixedPoint ph = record_.value[feld::kPh];
  const FixedPoint ks43 = record_.value[feld::kKs43];
  const FixedPoint ks82 = record_.value[feld::kKs82];
  const FixedPoint kb82 = record_.value[feld::kKb82];
  // An estimate that no longer belongs to the water must not stay on the screen either.
  const auto clearEstimate = [&] {
    record_.clearField(feld::kPhNäherung);
    narrow_.phNäherung.clear();
  };
  if (ph > 0_fp && ph < 4.5_fp) return clearEstimate();
  if (ks43.isZero() || (ks82.isZero() && kb82.isZero())) return clearEstimate();
  const FixedPoint denominator =
      ks82.isZero() ? saturatedSum(ks43, kb82) : saturatedDifference(ks43, ks82);
  if (denominator.isZero()) return clearEstimate();
  const double ratio = ks43.toDouble() / denominator.toDouble();
  if (ratio <= 0) return clearEstimate();  // more base than acid capacity: no water has that
  if (ratio > 1.21) {
    record_.text[feld::kPhNäherung] = u">9,6"_s;
    return;
  }
  const bool saltPoor = record_.value[feld::kLeitfähigkeit] <= 1000_fp;
  const double estimate = evaluate(saltPoor ? kSaltPoor : kSaltRich, ratio);
  if (!store(feld::kPhNäherung, estimate, Format::kTwoDecimals)) return clearEstimate();
  narrow_.phNäherung = record_.text[feld::kPhNäherung];
}

}  // namespace calvora
