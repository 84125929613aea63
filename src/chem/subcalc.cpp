// The calculation run: the order of the steps, and what they share.
#include "chem/subcalc.h"

#include <QScopeGuard>

namespace calvora {

namespace {

/// The computed fields that have a text.
constexpr std::array kResults{
    feld::kPhAusKapazitäten, feld::kPhAusKs82,          feld::kPhBei25,
    feld::kPhAusLf,          feld::kHydrogencarbonat,   feld::kCarbonat,
    feld::kCo2Frei,          feld::kCo2Überschüssig,    feld::kSättigungsindex,
    feld::kKarbonathärte,    feld::kNichtkarbonathärte, feld::kPhNäherung,
};

/// A result that a step computes from another one.
struct Dependence {
  int result;
  int from;
};

/// In the order of the steps, so that one pass reaches what depends on a dependant.
constexpr std::array kDependences{
    Dependence{feld::kSättigungsindex, feld::kHydrogencarbonat},
    Dependence{feld::kCo2Überschüssig, feld::kHydrogencarbonat},
    Dependence{feld::kCo2Überschüssig, feld::kCo2Frei},
    Dependence{feld::kKarbonathärte, feld::kHydrogencarbonat},
    Dependence{feld::kNichtkarbonathärte, feld::kKarbonathärte},
};

/// Gives a text data of its own. A text that shares them with `original` was not written since:
/// whatever is assigned, even the same characters, brings other data.
void makeUnique(QString& original) {
  if (!original.isEmpty()) original = QString(original.constData(), original.size());
}

bool wasWritten(const QString& now, const QString& found) {
  return now.constData() != found.constData();
}

}  // namespace

/// The record and the narrow displays as a run found them.
struct subcalc::Found {
  AnalysisRecord record;
  NarrowTexts narrow;
};

subcalc::subcalc(AnalysisRecord& record, const int& lastField, NarrowTexts& narrow,
                 Questions& questions)
    : record_(record), lastField_(lastField), narrow_(narrow), questions_(questions) {}

void subcalc::rechenlauf() {
  // The order is part of the behaviour: step 1 uses the carbonate species of the previous run,
  // step 8 the hardness before step 9 completes it, step 10 what 2 and 9 have just computed.
  static constexpr std::array kSteps{
      &subcalc::ph_aus_lf,  &subcalc::c_formen,  &subcalc::phaus_c, &subcalc::ph_beit,
      &subcalc::ph_aus_ksr, &subcalc::phausks82, &subcalc::s_index, &subcalc::co2agg,
      &subcalc::secamg,     &subcalc::khnkh,
  };
  const Found found = takeStock();
  const auto noted = qScopeGuard([&] { noteOrigins(found); });
  for (const auto step : kSteps) (this->*step)();
}

subcalc::Found subcalc::takeStock() {
  for (const int index : kResults) makeUnique(record_.text[index]);
  makeUnique(narrow_.leitfähigkeitAusIonen);
  makeUnique(narrow_.phNäherung);
  return {record_, narrow_};
}

void subcalc::noteOrigins(const Found& found) {
  for (const int index : typedFields()) {
    if (record_.value[index] == found.record.value[index]) continue;
    record_.completed[index] = !isEmpty(index);
  }
  for (const int index : kResults) {
    record_.computed[index] = wasWritten(record_.text[index], found.record.text[index]);
  }
  narrow_.leitfähigkeitComputed =
      wasWritten(narrow_.leitfähigkeitAusIonen, found.narrow.leitfähigkeitAusIonen);
  narrow_.näherungComputed = wasWritten(narrow_.phNäherung, found.narrow.phNäherung);
  noteDependants(found);
}

/// What was computed from a kept result belongs to earlier inputs as well, and so does what was
/// computed from a calcium that the run then deleted.
void subcalc::noteDependants(const Found& found) {
  for (const auto& [result, from] : kDependences) {
    if (originOf(record_, from) == Origin::kKept) record_.computed[result] = false;
  }
  if (!found.record.text[feld::kCalcium].isEmpty() && isEmpty(feld::kCalcium)) {
    record_.computed[feld::kSättigungsindex] = false;
    record_.computed[feld::kCo2Überschüssig] = false;
  }
  for (const int ion : {feld::kHydrogencarbonat, feld::kCarbonat}) {
    if (originOf(record_, ion) == Origin::kKept) narrow_.leitfähigkeitComputed = false;
  }
}

void subcalc::clear(std::initializer_list<int> indices) {
  for (const int index : indices) record_.clearField(index);
}

bool subcalc::store(int index, double result, Format format) {
  const auto value = FixedPoint::tryFromDouble(result);
  if (!value) {
    record_.clearField(index);
    return false;
  }
  record_.value[index] = *value;
  record_.text[index] = numberText(result, format);
  return true;
}

void subcalc::storeValue(int index, double result) {
  record_.value[index] = FixedPoint::tryFromDouble(result).value_or(FixedPoint{});
}

}  // namespace calvora
