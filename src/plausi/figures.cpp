#include "plausi/figures.h"

#include <algorithm>
#include <cmath>

#include "chem/haerte.h"
#include "chem/karbonat.h"
#include "chem/leitfaehigkeit.h"
#include "chem/subcalc.h"
#include "plausi/second_calculation.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr double kSwitch = 8.2;      // the pH at which Kb8,2 ends and Ks8,2 begins
constexpr double kChloride = 35.45;  // g/mol

using Maybe = std::optional<double>;

/// Least value of a field that can be measured; a negative one cannot.
double leastOf(int field) {
  return std::max(0.0, fieldOf(field).range.minimum.toDouble());
}

double highestOf(int field) {
  return fieldOf(field).range.maximum.toDouble();
}

/// Hardness in °d of calcium and magnesium in mg/l.
double hardnessOf(double calcium, double magnesium) {
  return kDegreePerMmol * (calcium / kMolarMassCa + magnesium / kMolarMassMg);
}

/// What the steps ask stays without an answer: the record that they run on is nobody's.
class NobodyAsked : public Questions {
 public:
  Button ask(const Message&) override { return Button::kOk; }
  void reportError(const QString&) override {}
};

/// The ten steps on a record of their own. They run twice, since the first one uses the species and
/// the hardness that the run before left.
class Run {
 public:
  explicit Run(const Inputs& inputs) {
    for (const int field : typedFields()) {
      if (!inputs.has(field)) continue;
      record_.value[field] = FixedPoint::fromDouble(*inputs[field]);
      record_.text[field] = u"x"_s;
    }
    const int noFieldLeft = 0;
    NobodyAsked nobody;
    subcalc steps(record_, noFieldLeft, narrow_, nobody);
    steps.rechenlauf();
    steps.rechenlauf();
  }

  /// A field that was typed, completed or computed.
  [[nodiscard]] Maybe operator[](int field) const {
    const QString& text = record_.text[field];
    const bool onlyBound = field == feld::kPhNäherung && text.startsWith(u'>');
    if (text.isEmpty() || text == "n.b."_L1 || onlyBound) return {};
    return record_.value[field].toDouble();
  }

  [[nodiscard]] Maybe conductivityFromIons() const {
    // Without the species the sum lacks most of the anions.
    if (narrow_.leitfähigkeitAusIonen.isEmpty() || !(*this)[feld::kHydrogencarbonat]) return {};
    return numberIn(narrow_.leitfähigkeitAusIonen);
  }

 private:
  AnalysisRecord record_;
  NarrowTexts narrow_;
};

void addPh(const Inputs& inputs, const Run& run, Figures& figures) {
  figures.set(Figure::kPh, inputs[feld::kPh]);
  figures.set(Figure::kPhIteration, run[feld::kPhAusKapazitäten]);
  figures.set(Figure::kPhNäherung, run[feld::kPhNäherung]);
  figures.set(Figure::kPhAusKs82, run[feld::kPhAusKs82]);
  figures.set(Figure::kPhAusLf, run[feld::kPhAusLf]);
  const Maybe ks43 = inputs[feld::kKs43];
  const Maybe ks82 = inputs[feld::kKs82];
  const Maybe temperature = inputs[feld::kTemperatur];
  if (!ks43 || !ks82 || !temperature || !(2 * *ks82 > *ks43)) return;
  figures.set(Figure::kPhHydroxid, phOfHydroxide(2 * *ks82 - *ks43, *temperature));
}

void addConductivity(const Inputs& inputs, const Run& run, Figures& figures) {
  const Maybe measured = inputs[feld::kLeitfähigkeit];
  const Maybe ph = inputs[feld::kPh];
  if (!measured || !ph) return;
  figures.set(Figure::kLf, measured);
  figures.set(Figure::kLfIonen, run.conductivityFromIons());
  const double hydrogen = 1000 * std::pow(10.0, -*ph);  // mmol/l
  figures.set(Figure::kLfMindest, conductivityFactor(*measured) *
                                      (lambda::kH * hydrogen + lambda::kNaOH * hydroxideAt(*ph)));
}

void addCapacities(const Inputs& inputs, Figures& figures) {
  const Maybe ph = inputs[feld::kPh];
  const Maybe ks82 = inputs[feld::kKs82];
  const Maybe kb82 = inputs[feld::kKb82];
  figures.set(Figure::kKs82, ks82);
  figures.set(Figure::kKb82, kb82);
  if (!ph) return;
  const bool below = *ph < kSwitch;
  figures.set(Figure::kKs82Höchstens, below ? Maybe(0) : inputs[feld::kKs43]);
  figures.set(Figure::kKb82Höchstens, below ? kb82 : Maybe(0));
}

void addHardness(const Inputs& inputs, const Run& run, Figures& figures) {
  const Maybe total = inputs[feld::kGesamthärte];
  const Maybe calcium = inputs[feld::kCalcium];
  const Maybe magnesium = inputs[feld::kMagnesium];
  Maybe fromIons;
  if (calcium && magnesium) {
    fromIons = hardnessOf(*calcium, *magnesium);
  }
  figures.set(Figure::kGesamthärte, total);
  figures.set(Figure::kHärteCaMg, fromIons);
  figures.set(Figure::kHärte, total ? total : fromIons);
  if (const Maybe hco3 = run[feld::kHydrogencarbonat]) {
    figures.set(Figure::kKarbonathärte, kKarbonathärteJeMg * *hco3);
  }
}

void addCharges(const Inputs& inputs, Figures& figures) {
  const Maybe hardness = figures[Figure::kHärte];
  const Maybe ks43 = inputs[feld::kKs43];
  if (!hardness || !ks43) return;
  // Ks4,3 is hydrogencarbonate, carbonate and hydroxide less hydrogen, which so counts already.
  figures.set(Figure::kKationen, 2 * *hardness / kDegreePerMmol);
  figures.set(Figure::kAnionen, *ks43 + inputs[feld::kChlorid].value_or(0) / kChloride);
}

/// The water of the second calculation. A hardness that nobody divided counts as calcium.
std::optional<CarbonateWater> waterOf(const Inputs& inputs, const Run& run) {
  const Maybe temperature = inputs[feld::kTemperatur];
  const Maybe ks43 = inputs[feld::kKs43];
  if (!temperature || !ks43) return {};
  const double undivided =
      run[feld::kCalcium] || run[feld::kMagnesium]
          ? 0
          : inputs[feld::kGesamthärte].value_or(0) / kDegreePerMmol * kMolarMassCa;
  return CarbonateWater{
      .temperature = *temperature,
      .ph = inputs[feld::kPh],
      .conductivity = inputs[feld::kLeitfähigkeit],
      .ks43 = *ks43,
      .ks82 = inputs[feld::kKs82].value_or(0) - inputs[feld::kKb82].value_or(0),
      .calcium = run[feld::kCalcium].value_or(undivided),
      .magnesium = run[feld::kMagnesium].value_or(0),
      .chloride = inputs[feld::kChlorid].value_or(0),
  };
}

void addSecondCalculation(const Inputs& inputs, const Run& run, Figures& figures) {
  const std::optional<CarbonateWater> water = waterOf(inputs, run);
  if (!water) return;
  if (const auto atPh = carbonateSystemAtPh(*water)) {
    figures.set(Figure::kCo2Ks43, atPh->carbonDioxide);
  }
  if (!inputs.has(feld::kKs82) && !inputs.has(feld::kKb82)) return;
  const std::optional<CarbonateSystem> system = secondCalculation(*water);
  if (!system) return;
  figures.set(Figure::kPhZweite, system->ph);
  figures.set(Figure::kHco3Zweite, system->hydrogencarbonate);
  figures.set(Figure::kCo2Zweite, system->carbonDioxide);
  if (run[feld::kCalcium]) figures.set(Figure::kIndexZweite, system->saturationIndex);
}

}  // namespace

Inputs::Inputs(const AnalysisRecord& record) {
  for (const int field : typedFields()) {
    if (record.text[field].isEmpty()) continue;
    const double value = record.value[field].toDouble();
    const auto at = static_cast<size_t>(field);
    // A Ks8,2 of 0 was measured, although the program computes with 0.001.
    completed_.at(at) = originOf(record, field) == Origin::kCompleted && field != feld::kKs82;
    outOfRange_.at(at) = !(value >= leastOf(field) && value <= highestOf(field)) ||
                         (field == feld::kKs43 && value == 0);
    if (!outOfRange_.at(at) && !completed_.at(at)) set(field, value);
  }
  leaveOutCompletedHardness();
}

/// A file holds typed and completed hardness alike. Three values that agree to the last decimal
/// were not all measured; without the total hardness nothing is lost.
void Inputs::leaveOutCompletedHardness() {
  if (!has(feld::kGesamthärte) || !has(feld::kCalcium) || !has(feld::kMagnesium)) return;
  constexpr double kLastDecimal = 0.0001;
  const double rest = *(*this)[feld::kGesamthärte] -
                      hardnessOf(*(*this)[feld::kCalcium], *(*this)[feld::kMagnesium]);
  if (std::abs(rest) > kLastDecimal) return;
  completed_.at(feld::kGesamthärte) = true;
  value_.at(feld::kGesamthärte).reset();
}

std::optional<double> Inputs::operator[](int field) const {
  return value_.at(static_cast<size_t>(field));
}

QString Inputs::remarkOn(int field) const {
  const auto at = static_cast<size_t>(field);
  if (completed_.at(at)) return u"ergänzt, nicht gemessen"_s;
  return outOfRange_.at(at) ? u"außerhalb des Bereichs"_s : QString();
}

void Figures::set(Figure figure, std::optional<double> value) {
  if (value && !std::isfinite(*value)) value.reset();
  value_.at(static_cast<size_t>(figure)) = value;
}

Figures figuresOf(const Inputs& inputs) {
  const Run run(inputs);
  Figures figures;
  addPh(inputs, run, figures);
  addConductivity(inputs, run, figures);
  addCapacities(inputs, figures);
  addHardness(inputs, run, figures);
  addCharges(inputs, figures);
  figures.set(Figure::kHco3, run[feld::kHydrogencarbonat]);
  figures.set(Figure::kCo2, run[feld::kCo2Frei]);
  figures.set(Figure::kIndex, run[feld::kSättigungsindex]);
  addSecondCalculation(inputs, run, figures);
  return figures;
}

Spread::Spread(const Inputs& inputs, const Uncertainties& uncertainties)
    : figures_(figuresOf(inputs)) {
  for (const Uncertainty& row : uncertainties) {
    const std::optional<double> value = inputs[row.field];
    const double uncertainty = value ? row.of(*value) : 0;
    if (!(uncertainty > 0)) continue;
    const auto movedTo = [&](double moved) {
      Inputs changed = inputs;
      changed.set(row.field, moved);
      return figuresOf(changed);
    };
    const double above = std::min(*value + uncertainty, highestOf(row.field));
    const double below = std::max(*value - uncertainty, leastOf(row.field));
    changes_.push_back(
        {uncertainty, above - *value, *value - below, movedTo(above), movedTo(below)});
  }
}

/// Root of the sum of squares of what every input does to a quantity. The whole uncertainty is the
/// step, not a derivative: the pH by iteration moves in steps of its own. Where an input can only
/// move to one side, or only one side can be computed, that side stands for both.
template <class Quantity>
std::optional<double> Spread::spreadOf(const Quantity& quantity) const {
  const Maybe here = quantity(figures_);
  if (!here) return {};
  double sum = 0;
  for (const Change& change : changes_) {
    const Maybe above = change.up > 0 ? quantity(change.above) : Maybe();
    const Maybe below = change.down > 0 ? quantity(change.below) : Maybe();
    if (!above && !below) return {};
    const double way = (above ? change.up : 0) + (below ? change.down : 0);
    sum =
        std::hypot(sum, (above.value_or(*here) - below.value_or(*here)) * change.uncertainty / way);
  }
  return sum;
}

std::optional<double> Spread::of(Figure figure) const {
  return spreadOf([=](const Figures& figures) { return figures[figure]; });
}

std::optional<double> Spread::of(Figure a, Figure b) const {
  return spreadOf([=](const Figures& figures) -> Maybe {
    if (!figures[a] || !figures[b]) return {};
    return *figures[a] - *figures[b];
  });
}

}  // namespace calvora
