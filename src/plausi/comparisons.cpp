// The comparisons and what is said about each.
#include "plausi/comparisons.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "chem/leitfaehigkeit.h"
#include "entry/decimal.h"
#include "model/fields.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr double kSaltPoor = 100;           // µS/cm
constexpr double kWarm = 30;                // °C
constexpr double kSwitch = 8.2;             // pH
constexpr double kSodium = 22.99;           // g/mol
constexpr double kSulphate = 96.06;         // g/mol
constexpr double kSodiumSulphate = 142.04;  // g/mol

bool isBelowSwitch(const Inputs& inputs) {
  return inputs.has(feld::kPh) && *inputs[feld::kPh] < kSwitch;
}

bool isFromSwitch(const Inputs& inputs) {
  return inputs.has(feld::kPh) && *inputs[feld::kPh] >= kSwitch;
}

bool agrees(const Finding& found) {
  return found.row.verdict == Verdict::kStimmig;
}

bool firstIsHigher(const Finding& found) {
  return *found.row.a > *found.row.b;
}

/// Whether a bound is kept by more than the uncertainty, so that there is something to tell.
bool isFarApart(const Finding& found) {
  return std::abs(*found.row.a - *found.row.b) > *found.row.uncertainty;
}

// 1 measured pH and pH from the capacities

QString causeOfPhBelowSwitch(bool measuredIsHigher) {
  return measuredIsHigher
             ? u"Die Elektrode zeigt zu hoch an (kalibrieren), die Probe hat vor der pH-Messung "
               "Kohlendioxid verloren, oder Phosphat eines Inhibitors verbraucht bei Kb8,2 "
               "ebenfalls Lauge."_s
             : u"Die Elektrode zeigt zu niedrig an (kalibrieren), oder vor der Titration von "
               "Kb8,2 ist Kohlendioxid entwichen."_s;
}

QString causeOfPhFromSwitch(bool measuredIsHigher, double temperature) {
  if (!measuredIsHigher) {
    return u"Die Elektrode zeigt zu niedrig an (kalibrieren), oder Phosphat, Ammoniak, Amine "
           "oder Silicat zählen in Ks8,2 und Ks4,3 mit."_s;
  }
  QString cause =
      u"Die Elektrode zeigt zu hoch an (kalibrieren), oder die Probe hat vor der Titration von "
      "Ks8,2 Kohlendioxid aus der Luft aufgenommen."_s;
  if (temperature <= kWarm) return cause;
  return cause +
         u" In der abgekühlten Probe ist der pH-Wert höher als bei %1 °C: Die Temperatur "
         "muss die sein, bei der er gemessen wurde."_s.arg(shown(temperature, Format::kWhole));
}

QString causeOfPh(const Finding& found) {
  if (agrees(found)) return {};
  return isBelowSwitch(found.inputs)
             ? causeOfPhBelowSwitch(firstIsHigher(found))
             : causeOfPhFromSwitch(firstIsHigher(found), *found.inputs[feld::kTemperatur]);
}

/// The simple calculations are off in salty, hot or caustic water, which the second one covers.
/// Where only they disagree with the measured pH, or to the other side, the measurement is not the
/// cause.
QString causeOfSimplePh(const Finding& found) {
  if (agrees(found)) return {};
  const auto second = found[Figure::kPhZweite];
  const auto uncertainty = found.spread.of(Figure::kPh, Figure::kPhZweite);
  if (!second || !uncertainty) return causeOfPh(found);
  const double deviation = *found.row.a - *second;
  const bool sameSide = (deviation > 0) == firstIsHigher(found);
  if (sameSide && std::abs(deviation) > *uncertainty) return causeOfPh(found);
  const double error = *found.row.b - *second;
  return u"Diese einfache Rechnung liegt hier um %1 %2 der zweiten: Sie kennt weder die Aktivität "
         "der Ionen noch das Hydroxid bei der Temperatur des Mediums. Maßgebend ist die zweite."_s
             .arg(shown(std::abs(error), Format::kTwoDecimals), error > 0 ? u"über"_s : u"unter"_s);
}

QString phBeyondApproximation(const Finding& found) {
  const bool complete = found[Figure::kPhIteration] && found[Figure::kPh];
  return complete && !found[Figure::kPhNäherung] ? u"Die Näherung reicht nur bis pH 9,6."_s
                                                 : QString();
}

std::vector<Rule> phRules() {
  using enum Figure;
  const std::vector<int> needs{feld::kPh, feld::kTemperatur, feld::kKs43, need::kCapacity};
  const QString first = u"pH gemessen"_s;
  return {
      {1, first, u"pH aus den Kapazitäten (Iteration)"_s, u"pH"_s, Format::kTwoDecimals, kPh,
       kPhIteration, Fault::kEither, needs, nullptr, causeOfSimplePh},
      {1, first, u"pH aus den Kapazitäten (Näherung)"_s, u"pH"_s, Format::kTwoDecimals, kPh,
       kPhNäherung, Fault::kEither, needs, phBeyondApproximation, causeOfSimplePh},
      {1, first, u"pH aus den Kapazitäten (zweite Rechnung)"_s, u"pH"_s, Format::kTwoDecimals, kPh,
       kPhZweite, Fault::kEither, needs, nullptr, causeOfPh},
  };
}

// 2 measured pH and what salt-poor water admits

QString notSaltPoor(const Finding& found) {
  const auto ph = found.inputs[feld::kPh];
  const auto conductivity = found.inputs[feld::kLeitfähigkeit];
  if (ph && *ph <= kSwitch) return u"Nur über pH 8,2 zu prüfen."_s;
  if (conductivity && *conductivity > kSaltPoor) {
    return u"Nur in salzarmem Wasser bis 100 µS/cm zu prüfen."_s;
  }
  return {};
}

QString phAboveKs82(const Finding& found) {
  if (agrees(found)) {
    return isFarApart(found) ? u"Der Wert ist eine Obergrenze: Ks8,2 ist zum Teil Carbonat."_s
                             : QString();
  }
  return u"Für diesen pH-Wert reicht Ks8,2 nicht. Die Elektrode zeigt zu hoch an (in salzarmem "
         "Wasser stellt sie sich langsam ein), oder Ks8,2 ist zu niedrig titriert. Unter 25 °C "
         "liegt der pH-Wert derselben Lauge höher als gerechnet."_s;
}

QString phAboveConductivity(const Finding& found) {
  if (agrees(found)) {
    return isFarApart(found)
               ? u"Der Wert ist eine Obergrenze: Die Leitfähigkeit kommt zum Teil von Salzen."_s
               : QString();
  }
  return u"Für diesen pH-Wert reicht die Leitfähigkeit nicht. Die Elektrode zeigt zu hoch an (in "
         "salzarmem Wasser stellt sie sich langsam ein), oder die Leitfähigkeit hat die falsche "
         "Einheit. Unter 25 °C liegt der pH-Wert derselben Lauge höher als gerechnet."_s;
}

std::vector<Rule> saltPoorRules() {
  using enum Figure;
  const QString first = u"pH gemessen"_s;
  return {
      {2,
       first,
       u"pH aus Ks8,2, höchstens"_s,
       u"pH"_s,
       Format::kTwoDecimals,
       kPh,
       kPhAusKs82,
       Fault::kFirstAbove,
       {feld::kLeitfähigkeit, feld::kPh, feld::kKs82},
       notSaltPoor,
       phAboveKs82},
      {2,
       first,
       u"pH aus der Leitfähigkeit, höchstens"_s,
       u"pH"_s,
       Format::kTwoDecimals,
       kPh,
       kPhAusLf,
       Fault::kFirstAbove,
       {feld::kLeitfähigkeit, feld::kPh},
       notSaltPoor,
       phAboveConductivity},
  };
}

// 3 conductivity

QString unmeasuredIons(const Finding& found) {
  if (!agrees(found)) {
    return u"Die gemessenen Ionen leiten mehr als das Wasser: Leitfähigkeit in falscher Einheit "
           "oder nicht auf 25 °C bezogen, eine Kapazität zu hoch titriert oder ein Ion in falscher "
           "Einheit eingegeben."_s;
  }
  const double rest = *found.row.a - *found.row.b;
  if (rest < 1) return {};
  const double salt = rest / conductivityFactor(*found.row.a) /
                      (2 * lambda::kNa + 2 * lambda::kSO4) * kSodiumSulphate;
  QStringList absent;
  for (const int ion : {feld::kCalcium, feld::kMagnesium, feld::kChlorid}) {
    const bool completed = !found.inputs.remarkOn(ion).isEmpty();
    if (!found.inputs.has(ion) && !completed) absent += fieldOf(ion).caption;
  }
  const QString typed =
      absent.isEmpty() ? QString() : u" Nicht eingegeben: %1."_s.arg(absent.join(u", "_s));
  return u"Nicht gemessene Ionen (Natrium, Sulfat, Nitrat …) tragen %1 µS/cm; als Natriumsulfat "
         "wären es %2 mg/l.%3"_s.arg(shown(rest, Format::kWhole), shown(salt, Format::kWhole),
                                     typed);
}

QString phNeedsConductivity(const Finding& found) {
  if (agrees(found)) return {};
  return u"Was diesen pH-Wert bewirkt, leitet allein schon mehr. Die Elektrode zeigt falsch an, "
         "die Leitfähigkeit hat die falsche Einheit oder ist nicht auf 25 °C bezogen. Unter 25 °C "
         "braucht derselbe pH-Wert weniger Lauge als gerechnet."_s;
}

std::vector<Rule> conductivityRules() {
  using enum Figure;
  const QString first = u"Leitfähigkeit gemessen"_s;
  const QString unit = u"µS/cm"_s;
  return {
      {3,
       first,
       u"Leitfähigkeit aus den Ionen"_s,
       unit,
       Format::kOneDecimal,
       kLf,
       kLfIonen,
       Fault::kSecondAbove,
       {feld::kLeitfähigkeit, feld::kPh, feld::kTemperatur, feld::kKs43, need::kCapacity},
       nullptr,
       unmeasuredIons},
      {3,
       first,
       u"Leitfähigkeit, die der pH-Wert mindestens braucht"_s,
       unit,
       Format::kOneDecimal,
       kLf,
       kLfMindest,
       Fault::kSecondAbove,
       {feld::kLeitfähigkeit, feld::kPh},
       nullptr,
       phNeedsConductivity},
  };
}

// 4 carbon dioxide

QString noCarbonDioxide(const Finding& found) {
  return isFromSwitch(found.inputs) ? u"Ab pH 8,2 gibt es kein Kohlendioxid zu titrieren."_s
                                    : QString();
}

QString causeOfCarbonDioxide(const Finding& found) {
  if (agrees(found)) return {};
  return firstIsHigher(found)
             ? u"Vor der Titration von Kb8,2 ist Kohlendioxid entwichen, oder die Elektrode zeigt "
               "zu niedrig an."_s
             : u"Die Elektrode zeigt zu hoch an, die Probe hat vor der pH-Messung Kohlendioxid "
               "verloren, oder Phosphat eines Inhibitors verbraucht bei Kb8,2 ebenfalls Lauge."_s;
}

// 5 the capacities with each other and with the pH

QString noKs82(const Finding& found) {
  return isBelowSwitch(found.inputs) && !found.inputs.has(feld::kKs82)
             ? u"Unter pH 8,2 gibt es kein Ks8,2, und keines ist eingegeben."_s
             : QString();
}

QString causeOfKs82(const Finding& found) {
  if (agrees(found)) return {};
  return isBelowSwitch(found.inputs)
             ? u"Unter pH 8,2 gibt es kein Ks8,2. Die Elektrode zeigt zu niedrig an, oder Ks8,2 "
               "und Kb8,2 sind verwechselt."_s
             : u"Ks8,2 ist ein Teil von Ks4,3 und kann nicht größer sein: verwechselt, falsche "
               "Probenmenge oder falsche Einheit."_s;
}

QString noKb82(const Finding& found) {
  if (isBelowSwitch(found.inputs)) return u"Nur ab pH 8,2 zu prüfen."_s;
  return isFromSwitch(found.inputs) && !found.inputs.has(feld::kKb82)
             ? u"Ab pH 8,2 gibt es kein Kb8,2, und keines ist eingegeben."_s
             : QString();
}

QString causeOfKb82(const Finding& found) {
  if (agrees(found)) return {};
  return u"Ab pH 8,2 gibt es kein Kb8,2. Die Elektrode zeigt zu hoch an, oder Kb8,2 und Ks8,2 "
         "sind verwechselt."_s;
}

QString noHydroxide(const Finding& found) {
  if (isBelowSwitch(found.inputs)) return u"Nur ab pH 8,2 zu prüfen."_s;
  const auto ks82 = found.inputs[feld::kKs82];
  const auto ks43 = found.inputs[feld::kKs43];
  return ks82 && ks43 && 2 * *ks82 <= *ks43
             ? u"2 · Ks8,2 liegt nicht über Ks4,3: Die Titration weist kein Hydroxid nach."_s
             : QString();
}

QString hydroxide(const Finding& found) {
  const double amount = 2 * *found.inputs[feld::kKs82] - *found.inputs[feld::kKs43];
  QString told =
      u"2 · Ks8,2 − Ks4,3 = %1 mmol/l Hydroxid."_s.arg(shown(amount, Format::kTwoDecimals));
  if (agrees(found)) return told;
  return told +
         u" Damit müsste der pH-Wert höher sein: Ks8,2 ist zu hoch oder Ks4,3 zu niedrig "
         "titriert, oder die Elektrode zeigt zu niedrig an."_s;
}

std::vector<Rule> capacityRules() {
  using enum Figure;
  const QString unit = u"mmol/l"_s;
  return {
      {4,
       u"Kohlendioxid aus pH und Ks4,3"_s,
       u"Kohlendioxid aus Kb8,2, mit dem Rest am Endpunkt"_s,
       u"mg/l"_s,
       Format::kOneDecimal,
       kCo2Ks43,
       kCo2Zweite,
       Fault::kEither,
       {feld::kPh, feld::kTemperatur, feld::kKs43, feld::kKb82},
       noCarbonDioxide,
       causeOfCarbonDioxide},
      {5,
       u"Ks8,2"_s,
       u"Ks8,2, bei pH und Ks4,3 höchstens"_s,
       unit,
       Format::kTwoDecimals,
       kKs82,
       kKs82Höchstens,
       Fault::kFirstAbove,
       {feld::kPh, feld::kKs82, feld::kKs43},
       noKs82,
       causeOfKs82},
      {5,
       u"Kb8,2"_s,
       u"Kb8,2, beim pH höchstens"_s,
       unit,
       Format::kTwoDecimals,
       kKb82,
       kKb82Höchstens,
       Fault::kFirstAbove,
       {feld::kPh, feld::kKb82},
       noKb82,
       causeOfKb82},
      {5,
       u"pH gemessen"_s,
       u"pH aus dem Hydroxid, mindestens"_s,
       u"pH"_s,
       Format::kTwoDecimals,
       kPh,
       kPhHydroxid,
       Fault::kSecondAbove,
       {feld::kPh, feld::kTemperatur, feld::kKs82, feld::kKs43},
       noHydroxide,
       hydroxide},
  };
}

// 6 hardness, 7 charges

/// Whoever types the third of them loses another one: the program replaces what does not fit.
QString needsAllOfHardness(const Finding& found) {
  const auto isMeasured = [&](int field) { return found.inputs.has(field); };
  if (std::ranges::all_of(std::array{feld::kGesamthärte, feld::kCalcium, feld::kMagnesium},
                          isMeasured)) {
    return {};
  }
  return u"Aus zweien von Gesamthärte, Calcium und Magnesium ergänzt das Programm den dritten "
         "Wert; zu vergleichen sind sie nur, wenn eine Datei alle drei gemessen enthält."_s;
}

QString causeOfHardness(const Finding& found) {
  if (agrees(found)) return {};
  return u"Einer der drei Werte ist falsch umgerechnet (°d, mmol/l, mg/l) oder titriert. Metalle "
         "wie Eisen und Zink zählen in der Gesamthärte mit."_s;
}

QString softened(const Finding& found) {
  if (agrees(found)) return {};
  return u"Die Karbonathärte liegt um %1 °d über der Gesamthärte: enthärtetes oder alkalisch "
         "konditioniertes Wasser. Zu diesem Hydrogencarbonat gehört Natrium, kein Calcium."_s.arg(
             shown(*found.row.a - *found.row.b, Format::kOneDecimal));
}

QString missingCharges(const Finding& found) {
  const double rest = *found.row.a - *found.row.b;  // mmol/l
  const double amount = std::abs(rest);
  QString told = u"Die gemessenen Ladungen gleichen sich im Rahmen der Unsicherheit aus."_s;
  if (isFarApart(found)) {
    told = rest < 0
               ? u"Es fehlen %1 mmol/l Kationen (Natrium, Kalium); als Natrium wären es %2 mg/l."_s
               : u"Es fehlen %1 mmol/l Anionen (Sulfat, Nitrat); als Sulfat wären es %2 mg/l."_s;
    const double mass = amount * (rest < 0 ? kSodium : kSulphate / 2);
    told = told.arg(shown(amount, Format::kTwoDecimals), shown(mass, Format::kWhole));
  }
  return found.inputs.has(feld::kChlorid) ? told : told + u" Chlorid ist nicht gemessen."_s;
}

std::vector<Rule> hardnessRules() {
  using enum Figure;
  return {
      {6,
       u"Gesamthärte gemessen"_s,
       u"Gesamthärte aus Calcium und Magnesium"_s,
       u"°d"_s,
       Format::kOneDecimal,
       kGesamthärte,
       kHärteCaMg,
       Fault::kEither,
       {feld::kGesamthärte, feld::kCalcium, feld::kMagnesium},
       needsAllOfHardness,
       causeOfHardness},
      {6,
       u"Karbonathärte"_s,
       u"Gesamthärte"_s,
       u"°d"_s,
       Format::kOneDecimal,
       kKarbonathärte,
       kHärte,
       Fault::kFirstAbove,
       {feld::kPh, feld::kTemperatur, feld::kKs43, need::kCapacity, need::kHardness},
       nullptr,
       softened},
      {7,
       u"Kationen gemessen"_s,
       u"Anionen gemessen"_s,
       u"mmol/l"_s,
       Format::kTwoDecimals,
       kKationen,
       kAnionen,
       Fault::kNone,
       {feld::kKs43, need::kHardness},
       nullptr,
       missingCharges},
  };
}

// 8 the program and the second calculation

QString againstSecond(const Finding& found) {
  const double difference = *found.row.a - *found.row.b;
  const Format format = found.row.format;
  const bool isShown = shown(difference, format) != shown(0, format);
  return isShown && isFarApart(found)
             ? u"Der Unterschied der Rechnungen ist größer als die Unsicherheit der Messung."_s
             : u"Der Unterschied der Rechnungen liegt in der Unsicherheit der Messung."_s;
}

std::vector<Rule> informationRules() {
  using enum Figure;
  const std::vector<int> needs{feld::kPh, feld::kTemperatur, feld::kKs43, need::kCapacity};
  const auto row = [&](const QString& name, const QString& unit, Format format, Figure a,
                       Figure b) {
    return Rule{8,     name,    u"zweite Rechnung"_s, unit, format, a, b, Fault::kNone,
                needs, nullptr, againstSecond};
  };
  std::vector<Rule> rules{
      row(u"pH aus den Kapazitäten"_s, u"pH"_s, Format::kTwoDecimals, kPhIteration, kPhZweite),
      row(u"Hydrogencarbonat"_s, u"mg/l"_s, Format::kOneDecimal, kHco3, kHco3Zweite),
      row(u"Kohlendioxid frei"_s, u"mg/l"_s, Format::kOneDecimal, kCo2, kCo2Zweite),
      row(u"Sättigungs-Index"_s, {}, Format::kTwoDecimals, kIndex, kIndexZweite),
  };
  rules.back().needs.push_back(need::kCalcium);
  return rules;
}

}  // namespace

const std::vector<Rule>& rules() {
  static const auto kRules = [] {
    std::vector<Rule> all;
    for (const auto& group : {phRules(), saltPoorRules(), conductivityRules(), capacityRules(),
                              hardnessRules(), informationRules()}) {
      all.insert(all.end(), group.begin(), group.end());
    }
    return all;
  }();
  return kRules;
}

bool isSaltPoorAndAlkaline(const Inputs& inputs) {
  const auto ph = inputs[feld::kPh];
  const auto conductivity = inputs[feld::kLeitfähigkeit];
  return ph && conductivity && *ph > kSwitch && *conductivity <= kSaltPoor;
}

QString shown(double number, Format format) {
  int decimals = 2;
  if (format == Format::kWhole) decimals = 0;
  if (format == Format::kOneDecimal) decimals = 1;
  if (format == Format::kThreeDecimals) decimals = 3;
  return Decimal(number).fixedText(decimals);
}

}  // namespace calvora
