// How far the second calculation and the ten steps lie from a full speciation. The table that
// stands in the manual is printed with every run.
#include <bit>
#include <cmath>
#include <cstdio>
#include <functional>
#include <limits>
#include <map>
#include <random>
#include <string_view>

#include "chem/subcalc.h"
#include "plausi/second_calculation.h"
#include "support/files.h"
#include "support/scripted_questions.h"
#include "support/tables.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

/// A row of reference_waters.csv, in the order and units of its columns.
struct Reference {
  double temperature, ph, conductivity, ks43, ks82, kb82, calcium, magnesium, chloride, sulphate,
      sodium, phAt20, hco3, co3, co2, ionicStrength, index;
};

std::vector<Reference> referenceWaters() {
  const QByteArray file = bytesOf(QFINDTESTDATA("plausi/reference_waters.csv"));
  std::vector<Reference> waters;
  for (const QByteArray& line : file.trimmed().split('\n').mid(1)) {
    std::array<double, 17> cells{};
    for (size_t i = 0; i < cells.size(); ++i)
      cells.at(i) = line.split(',').at(static_cast<qsizetype>(i)).toDouble();
    waters.push_back(std::bit_cast<Reference>(cells));
  }
  return waters;
}

CarbonateWater asMeasured(const Reference& water, bool withConductivity = true) {
  return {.temperature = water.temperature,
          .ph = water.ph,
          .conductivity = withConductivity ? std::optional(water.conductivity) : std::nullopt,
          .ks43 = water.ks43,
          .ks82 = water.ks82 - water.kb82,
          .calcium = water.calcium,
          .magnesium = water.magnesium,
          .chloride = water.chloride};
}

/// What the ten steps make of a water that was typed with four decimals. The capacity that the pH
/// rules out cannot be typed.
AnalysisRecord tenSteps(const Reference& water) {
  AnalysisRecord record;
  const auto type = [&](int field, double value) {
    record.value[field] = FixedPoint::fromDouble(value);
    record.text[field] = u"typed"_s;
  };
  type(feld::kLeitfähigkeit, water.conductivity);
  type(feld::kPh, water.ph);
  type(feld::kTemperatur, water.temperature);
  type(feld::kKs43, water.ks43);
  type(water.ks82 > 0 ? feld::kKs82 : feld::kKb82, water.ks82 > 0 ? water.ks82 : water.kb82);
  type(feld::kCalcium, water.calcium);
  type(feld::kMagnesium, water.magnesium);
  type(feld::kChlorid, water.chloride);
  const int lastField = feld::kChlorid;
  NarrowTexts narrow;
  ScriptedQuestions questions;
  subcalc chem(record, lastField, narrow, questions);
  chem.clearRuledOutCapacity();
  chem.rechenlauf();
  require(questions.complaints().isEmpty(), "a water of the table is objected to");
  return record;
}

/// A result; empty where the mask shows nothing or only a bound.
std::optional<double> shown(const AnalysisRecord& record, int field) {
  const QString& text = record.text[field];
  if (text.isEmpty() || text.startsWith('>'_L1) || text.startsWith('<'_L1)) return std::nullopt;
  return record.value[field].toDouble();
}

/// What is compared of each water.
struct Results {
  std::optional<double> ph = {};
  std::optional<double> approximation = {};
  std::optional<double> index = {};
  std::optional<double> hco3 = {};
  std::optional<double> co2 = {};
  std::optional<double> ionicStrength = {};
};

Results secondResults(const Reference& water, bool withConductivity) {
  const auto system = secondCalculation(asMeasured(water, withConductivity));
  if (!system) return {};
  return {.ph = system->ph,
          .index = system->saturationIndex,
          .hco3 = system->hydrogencarbonate,
          .co2 = system->carbonDioxide,
          .ionicStrength = system->ionicStrength};
}

Results stepResults(const Reference& water) {
  const AnalysisRecord record = tenSteps(water);
  Results results{.ph = shown(record, feld::kPhAusKapazitäten),
                  .approximation = shown(record, feld::kPhNäherung),
                  .index = shown(record, feld::kSättigungsindex),
                  .hco3 = shown(record, feld::kHydrogencarbonat),
                  .co2 = shown(record, feld::kCo2Frei)};
  if (results.hco3) results.ionicStrength = record.value[feld::kIonenstärke].toDouble();
  return results;
}

/// How far one quantity of all waters lies from the reference, in percent for concentrations.
struct Deviations {
  std::vector<double> all = {};

  void add(std::optional<double> value, double reference, bool inPercent) {
    if (value) all.push_back(inPercent ? 100 * (*value / reference - 1) : *value - reference);
  }

  /// The size that this share of the deviations does not exceed.
  [[nodiscard]] double within(double share) const {
    if (all.empty()) return std::numeric_limits<double>::infinity();
    std::vector<double> sizes;
    for (const double deviation : all) sizes.push_back(std::abs(deviation));
    std::ranges::sort(sizes);
    const auto count = static_cast<size_t>(std::ceil(share * static_cast<double>(sizes.size())));
    return sizes.at(std::max<size_t>(count, 1) - 1);
  }

  [[nodiscard]] double median() const {
    std::vector<double> sorted = all;
    std::ranges::sort(sorted);
    return sorted.empty() ? 0
                          : (sorted.at((sorted.size() - 1) / 2) + sorted.at(sorted.size() / 2)) / 2;
  }

  void print(std::string_view name) const {
    // Padded by characters; printf counts bytes.
    const QByteArray padded =
        QString::fromUtf8(name.data(), std::ssize(name)).leftJustified(40).toUtf8();
    const int decimals = name.ends_with('%') ? 1 : 3;
    const double scale = std::pow(10.0, decimals);
    const double middle = std::round(median() * scale) / scale + 0.0;  // no minus before a zero
    std::printf("%s %3zu %+8.*f %8.*f %8.*f %8.*f\n", padded.constData(), all.size(), decimals,
                middle, decimals, within(0.5), decimals, within(0.95), decimals, within(1));
  }
};

/// The deviations of a calculation, and those of the waters where it is good and where it is not.
class Accuracy {
 public:
  explicit Accuracy(const std::function<Results(const Reference&)>& calculation) {
    for (const Reference& water : referenceWaters()) {
      const Results results = calculation(water);
      ph.add(results.ph, water.ph, false);
      index.add(results.index, water.index, false);
      hco3.add(results.hco3, water.hco3, true);
      co2.add(results.co2, water.co2, true);
      ionicStrength.add(results.ionicStrength, water.ionicStrength, true);
      addToGroups(results, water);
    }
  }

  void print(const char* title) const {
    std::printf("\n%-40s %3s %8s %8s %8s %8s\n", title, "n", "median", "50 %", "95 %", "100 %");
    ph.print("pH");
    index.print("saturation index");
    hco3.print("hydrogencarbonate, %");
    co2.print("carbon dioxide, %");
    ionicStrength.print("ionic strength, %");
  }

  void printGroups() const {
    for (const auto& [name, deviations] : groups_) deviations.print(name);
  }

  Deviations ph, index, hco3, co2, ionicStrength;

 private:
  void addToGroups(const Results& results, const Reference& water) {
    const bool hot = water.temperature > 30;
    const char* const ofCapacity = water.kb82 >= 0.2 ? "pH, Kb8,2 from 0.2 mmol/l"
                                   : water.kb82 > 0  ? "pH, Kb8,2 below 0.2 mmol/l"
                                   : hot             ? "pH, Ks8,2, above 30 °C"
                                                     : "pH, Ks8,2, up to 30 °C";
    groups_[ofCapacity].add(results.ph, water.ph, false);
    groups_[hot ? "pH, approximation, above 30 °C" : "pH, approximation, up to 30 °C"].add(
        results.approximation, water.ph, false);
    groups_[water.conductivity > 100 ? "saturation index, above 100 µS/cm"
                                     : "saturation index, up to 100 µS/cm"]
        .add(results.index, water.index, false);
    groups_[water.ks43 < 0.6 ? "hydrogencarbonate, Ks4,3 below 0.6, %"
                             : "hydrogencarbonate, Ks4,3 from 0.6, %"]
        .add(results.hco3, water.hco3, true);
    groups_[water.kb82 >= 0.2 ? "carbon dioxide, Kb8,2 from 0.2, %"
            : water.kb82 > 0  ? "carbon dioxide, Kb8,2 below 0.2, %"
                              : "carbon dioxide, Ks8,2, %"]
        .add(results.co2, water.co2, true);
  }

  std::map<std::string_view, Deviations> groups_;
};

}  // namespace

class AccuracyTest : public QObject {
  Q_OBJECT

 private slots:
  void theSecondCalculationIsAsAccurateAsTheManualSays() {
    const Accuracy with([](const Reference& water) { return secondResults(water, true); });
    const Accuracy without([](const Reference& water) { return secondResults(water, false); });
    const Accuracy steps(stepResults);
    with.print("second calculation");
    without.print("second calculation, no conductivity");
    steps.print("ten steps");
    steps.printGroups();
    std::fflush(stdout);

    QCOMPARE(with.ph.all.size(), referenceWaters().size());
    QCOMPARE(without.ph.all.size(), referenceWaters().size());
    QVERIFY(with.ph.within(0.95) <= 0.01);
    QVERIFY(with.index.within(0.95) <= 0.03);
    QVERIFY(with.hco3.within(0.95) <= 0.5);
    QVERIFY(with.co2.within(0.95) <= 2);
    QVERIFY(with.ionicStrength.within(0.95) <= 13);
    QVERIFY(without.ph.within(0.95) <= 0.02);
    QVERIFY(without.index.within(0.95) <= 0.08);
    QVERIFY(std::abs(steps.index.median() - 0.2) < 0.05);
  }

  void theCheckValuesAreMet() {
    const auto system =
        secondCalculation({.temperature = 10, .ks43 = 2.5, .ks82 = -0.25, .calcium = 60});
    QVERIFY(std::abs(system->ph - 7.43) < 0.005);
    QVERIFY(std::abs(phOfHydroxide(1, 25) - 10.984) < 0.001);
    QVERIFY(std::abs(phOfHydroxide(100, 25) - 12.892) < 0.001);
  }

  void bothWaysToTheCarbonateSystemAgree() {
    for (const Reference& reference : referenceWaters()) {
      CarbonateWater water = asMeasured(reference);
      const auto titrated = secondCalculation(water);
      water.ph = titrated->ph;
      water.ks82 = 99;  // not used
      const auto atPh = carbonateSystemAtPh(water);
      QVERIFY(std::abs(atPh->hydrogencarbonate / titrated->hydrogencarbonate - 1) < 1e-4);
      QVERIFY(std::abs(atPh->carbonDioxide / titrated->carbonDioxide - 1) < 1e-4);
      QVERIFY(std::abs(atPh->ionicStrength / titrated->ionicStrength - 1) < 1e-4);
    }
  }

  // Temperature; pH, conductivity; Ks4,3, Ks8,2; calcium, magnesium, chloride. Units as in
  // CarbonateWater.
  void aWaterThatNoChemistryHasHasNoResult_data() {
    addRows(
        uR"(
      no number      | nan 7 400 2.5 -0.2 60 10 20
      infinite       | 10 7 400 2.5 -0.2 inf 10 20
      ice            | -1 7 400 2.5 -0.2 60 10 20
      steam          | 101 7 400 2.5 -0.2 60 10 20
      no alkalinity  | 10 7 400 0 -0.2 60 10 20
      negative       | 10 7 400 -1 -0.2 60 10 20
      negative ion   | 10 7 400 2.5 -0.2 -60 10 20
      pH of 15       | 10 15 400 2.5 -0.2 60 10 20
      no conductance | 10 7 0 2.5 -0.2 60 10 20
      a brine        | 10 7 400 2.5 -0.2 60 10 50000
      overflow       | 10 7 400 1e300 -1e300 60 10 20
      from the titrations
      no carbon left | 10 7 400 2.5 2.6 60 10 20
      never settles  | 92.8748 11.4709 1541.73 95.7186 18.2023 806.177 0.0984943 0.0340193
    )"_s);
  }
  void aWaterThatNoChemistryHasHasNoResult() {
    QFETCH(QString, group);
    QFETCH(QStringList, row);
    std::vector<double> cells;
    for (const QString& cell : row[1].split(' ')) cells.push_back(cell.toDouble());
    CarbonateWater water{cells[0], cells[1], cells[2], cells[3],
                         cells[4], cells[5], cells[6], cells[7]};
    QVERIFY(!secondCalculation(water));
    if (group != "from the titrations"_L1) QVERIFY(!carbonateSystemAtPh(water));
  }

  void everyOtherResultIsANumberHoweverOddTheWater() {
    std::mt19937 random(20261123);
    const auto size = [&](double most) {
      return std::exponential_distribution<double>(1)(random) < 0.2
                 ? 0
                 : most * std::pow(10.0, -std::uniform_real_distribution<double>(0, 6)(random));
    };
    int found = 0;
    for (int i = 0; i < 20000; ++i) {
      CarbonateWater water{size(100),           14 - size(14), size(1e5), size(100),
                           size(50) - size(50), size(1e4),     size(1e4), size(1e4)};
      if (i % 2 == 0) water.conductivity.reset();
      for (const auto& system : {secondCalculation(water), carbonateSystemAtPh(water)}) {
        if (!system) continue;
        ++found;
        const double sum = system->ph + system->hydrogencarbonate + system->carbonate +
                           system->carbonDioxide + system->ionicStrength +
                           system->saturationIndex.value_or(0);
        QVERIFY(std::isfinite(sum));
        QVERIFY(system->hydrogencarbonate >= 0 && system->carbonate >= 0 &&
                system->carbonDioxide >= 0);
      }
    }
    QVERIFY(found > 1000);
  }
};

QTEST_GUILESS_MAIN(AccuracyTest)
#include "accuracy_test.moc"
