// Where the values of a record come from, in words.
#include "plausi/origin.h"

#include <algorithm>
#include <array>

#include "chem/subcalc.h"
#include "entry/number_text.h"
#include "model/fields.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

/// "Ca", "Ca und Mg", "Ca, Mg und Cl".
QString enumeration(const QStringList& names) {
  if (names.size() < 2) return names.join(QString());
  return names.mid(0, names.size() - 1).join(u", "_s) + u" und "_s + names.last();
}

QString namesOf(const std::vector<int>& fields) {
  QStringList names;
  for (const int index : fields) names += nameOf(index);
  return enumeration(names);
}

/// Stands in a list of needs for the capacity that the pH admits.
constexpr int kCapacity = -1;

/// What a result is computed from. The capacity comes last: it may be one or the other.
struct Needs {
  int result;
  std::vector<int> inputs;
};

const std::vector<int>& needsOf(int result) {
  using namespace feld;
  static const std::vector<int> kNothing;
  static const std::vector<int> kSpecies{kPh, kTemperatur, kKs43, kCapacity};
  static const std::vector<int> kWithCalcium{kPh, kTemperatur, kKs43, kCalcium, kCapacity};
  static const std::vector<int> kWithHardness{kPh, kTemperatur, kKs43, kGesamthärte, kCapacity};
  static const std::array kAll{
      Needs{kPhAusKapazitäten, {kTemperatur, kKs43, kCapacity}},
      Needs{kPhAusKs82, {kKs82}},
      Needs{kPhBei25, {kPh, kTemperatur}},
      Needs{kPhAusLf, {kLeitfähigkeit, kPh}},
      Needs{kHydrogencarbonat, kSpecies},
      Needs{kCarbonat, kSpecies},
      Needs{kCo2Frei, kSpecies},
      Needs{kCo2Überschüssig, kWithCalcium},
      Needs{kSättigungsindex, kWithCalcium},
      Needs{kKarbonathärte, kWithHardness},
      Needs{kNichtkarbonathärte, kWithHardness},
      Needs{kPhNäherung, {kKs43, kCapacity}},
  };
  const auto* const found = std::ranges::find(kAll, result, &Needs::result);
  return found == kAll.end() ? kNothing : found->inputs;
}

/// The capacity that the pH admits; without a pH the one that is given, 0 if none is.
int admittedCapacity(const AnalysisRecord& record) {
  const int ruledOut = ruledOutCapacity(record);
  if (ruledOut != 0) return ruledOut == feld::kKs82 ? feld::kKb82 : feld::kKs82;
  for (const int capacity : {feld::kKs82, feld::kKb82}) {
    if (!record.text[capacity].isEmpty()) return capacity;
  }
  return 0;
}

QString needName(const AnalysisRecord& record, int need) {
  if (need != kCapacity) return nameOf(need);
  const int capacity = admittedCapacity(record);
  return capacity == 0 ? u"Ks8,2 oder Kb8,2"_s : nameOf(capacity);
}

/// How an input that a result needs is missing: its name, or that it is 0. Empty if it is there.
QString missing(const AnalysisRecord& record, int result, int need) {
  const int input = need == kCapacity ? admittedCapacity(record) : need;
  QString name = needName(record, need);
  if (input == 0 || record.text[input].isEmpty()) return name;
  // A capacity of 0 is enough for the iteration alone.
  const bool enough = result == feld::kPhAusKapazitäten && need == kCapacity;
  return record.value[input].isZero() && !enough ? name + u" über 0"_s : QString();
}

/// Why no input could bring a result that the pH rules out; empty if it does not.
QString ruledOutSentence(const AnalysisRecord& record, int result) {
  const int ruledOut = ruledOutCapacity(record);
  if (result == feld::kPhAusKs82 && ruledOut == feld::kKs82) {
    return u"Nur ab pH 8,2 zu berechnen, aus Ks8,2."_s;
  }
  if (result == feld::kCo2Überschüssig && ruledOut == feld::kKb82) {
    return u"Nur unter pH 8,2 zu berechnen, mit Kb8,2."_s;
  }
  return {};
}

QString fromWhat(const AnalysisRecord& record, int result) {
  QStringList names;
  for (const int need : needsOf(result)) names += needName(record, need);
  return names.isEmpty() ? QString() : u"Berechnet aus "_s + enumeration(names) + '.'_L1;
}

/// Whether a result is computed from hydrogencarbonate, which may be older than the result itself.
bool followsHydrogencarbonate(int result) {
  static constexpr std::array kFollowing{feld::kCo2Überschüssig, feld::kSättigungsindex,
                                         feld::kKarbonathärte, feld::kNichtkarbonathärte};
  return std::ranges::find(kFollowing, result) != kFollowing.end();
}

QString keptSentence(const AnalysisRecord& record, int result) {
  QString said = u"Nicht neu berechnet"_s;
  const bool ofOld = followsHydrogencarbonate(result) &&
                     originOf(record, feld::kHydrogencarbonat) == Origin::kKept;
  if (ofOld) said = u"Aus Hydrogencarbonat, das nicht neu berechnet ist"_s;
  const QString missing = missingSentence(missingInputs(record, result));
  if (!missing.isEmpty()) said += u": "_s + missing;
  return said + u". Der Wert gehört zu früheren Eingaben."_s;
}

QString originSentence(const AnalysisRecord& record, int result, Origin origin) {
  if (origin == Origin::kKept) return keptSentence(record, result);
  const QStringList missing = missingInputs(record, result);
  const bool isNoNumber = origin == Origin::kComputed && result == feld::kPhAusLf;  // "n.b."
  if (isNoNumber && !missing.isEmpty())
    return u"Nicht berechnet: "_s + missingSentence(missing) + '.'_L1;
  if (origin == Origin::kComputed) return fromWhat(record, result);
  QString ruledOut = ruledOutSentence(record, result);
  if (!ruledOut.isEmpty()) return ruledOut;
  if (missing.isEmpty()) return u"Aus diesen Eingaben nicht zu berechnen."_s;
  return u"Leer: "_s + missingSentence(missing) + '.'_L1;
}

/// What a hardness value is completed from: the others, or those of them that were not completed
/// themselves.
QString completedFrom(const AnalysisRecord& record, int index) {
  const auto othersOf = [&](std::initializer_list<Origin> origins) {
    std::vector<int> others;
    for (const int other : {feld::kGesamthärte, feld::kCalcium, feld::kMagnesium}) {
      const bool admitted = std::ranges::find(origins, originOf(record, other)) != origins.end();
      if (other != index && admitted) others.push_back(other);
    }
    return others;
  };
  const std::vector<int> typed = othersOf({Origin::kTyped});
  return namesOf(typed.empty() ? othersOf({Origin::kCompleted}) : typed);
}

QString lockedSentence(const AnalysisRecord& record, int index) {
  const QString side = index == feld::kKs82 ? u"ab"_s : u"unter"_s;
  return u"Gesperrt: %1 gibt es nur %2 pH 8,2, gemessen ist pH %3."_s.arg(nameOf(index), side,
                                                                          record.text[feld::kPh]);
}

QString explainInput(const AnalysisRecord& record, int index) {
  QString description = describeInput(index) + '.'_L1;
  if (index == ruledOutCapacity(record))
    return lockedSentence(record, index) + '\n'_L1 + description;
  if (originOf(record, index) != Origin::kCompleted) return description;
  const QString said = index == feld::kKs82
                           ? u"Mit 0,001 mmol/l gerechnet: 0 steht für weniger, als sich titrieren "
                             "lässt."_s
                           : u"Vom Programm ergänzt aus "_s + completedFrom(record, index) + '.'_L1;
  return said + '\n'_L1 + description;
}

QString rangeOf(const Field& field) {
  const QStringList bounds = field.range.text.split('-'_L1);
  const QString most = bounds.value(1).trimmed().section(' '_L1, 0, 0);
  const QString unit = field.index == feld::kPh ? QString() : field.unit;
  return (bounds.value(0).trimmed() + u" bis "_s + most + ' '_L1 + unit).trimmed();
}

}  // namespace

QString nameOf(int index) {
  switch (index) {
    case feld::kLeitfähigkeit:
      return u"Leitfähigkeit"_s;
    case feld::kPh:
      return u"pH-Wert"_s;
    case feld::kTemperatur:
      return u"Temperatur"_s;
    case feld::kKs82:
    case feld::kKs43:
    case feld::kKb82:
      return fieldOf(index).shortLabel;
    case feld::kPhAusKapazitäten:
      return u"pH aus Ks-/Kb-Wert"_s;  // names are separated by commas
    default:
      return fieldOf(index).caption.simplified();
  }
}

QString missingSentence(const QStringList& missing) {
  if (missing.isEmpty()) return {};
  return (missing.size() == 1 ? u"es fehlt "_s : u"es fehlen "_s) + enumeration(missing);
}

QString describeInput(int index) {
  const Field& field = fieldOf(index);
  return field.isTyped() ? field.toolTip + u": "_s + rangeOf(field) : QString();
}

QString rangeOfInput(int index) {
  const Field& field = fieldOf(index);
  return field.isTyped() ? nameOf(index) + u": "_s + rangeOf(field) : QString();
}

QStringList missingInputs(const AnalysisRecord& record, int index) {
  QStringList names;
  for (const int need : needsOf(index)) {
    const QString name = missing(record, index, need);
    if (!name.isEmpty()) names += name;
  }
  return names;
}

QString explain(const AnalysisRecord& record, int index) {
  const Field& field = fieldOf(index);
  if (field.isTyped()) return explainInput(record, index);
  const QString said = originSentence(record, index, originOf(record, index));
  return field.toolTip.isEmpty() ? said : said + '\n'_L1 + field.toolTip.simplified();
}

QString explainConductivity(const AnalysisRecord& record, const NarrowTexts& narrow) {
  const QString what = u"Leitfähigkeit aus den Ionen in µS/cm"_s;
  const Origin origin = narrow.originOfLeitfähigkeit();
  if (origin == Origin::kEmpty) {
    return what + '\n'_L1 + originSentence(record, feld::kPhAusLf, origin);
  }
  if (origin == Origin::kComputed) {
    return what +
           u"\nHydrogencarbonat und Carbonat gehen so ein, wie sie vor der letzten Eingabe "
           "waren."_s;
  }
  return what +
         u"\nMit Hydrogencarbonat oder Carbonat, die nicht neu berechnet sind. Der Wert gehört zu "
         "früheren Eingaben."_s;
}

QString explainApproximation(const AnalysisRecord& record, const NarrowTexts& narrow) {
  const Origin origin = narrow.originOfNäherung();
  const QString said = origin == Origin::kKept
                           ? u"Nicht neu berechnet: das Verhältnis der Kapazitäten gibt nur noch "
                             "„>9,6“. Der Wert gehört zu früheren Eingaben."_s
                           : originSentence(record, feld::kPhNäherung, origin);
  return u"pH-Wert aus den Kapazitäten, Näherung\n"_s + said;
}

std::vector<int> keptFields(const AnalysisRecord& record) {
  std::vector<int> kept;
  for (const auto fields : {inputFields(), resultFields()}) {
    for (const Field& field : fields) {
      if (originOf(record, field.index) == Origin::kKept) kept.push_back(field.index);
    }
  }
  return kept;
}

QString keptLine(const AnalysisRecord& record) {
  QStringList names;
  for (const int index : keptFields(record)) names += nameOf(index);
  return names.isEmpty() ? QString() : u"nicht neu berechnet: "_s + names.join(u", "_s);
}

QString keptSummary(const AnalysisRecord& record, const NarrowTexts& narrow) {
  const std::vector<int> kept = keptFields(record);
  const auto count = kept.size() + (narrow.originOfLeitfähigkeit() == Origin::kKept ? 1 : 0) +
                     (narrow.originOfNäherung() == Origin::kKept ? 1 : 0);
  if (count == 0) return {};
  QStringList missing;
  for (const int index : kept) missing += missingInputs(record, index);
  missing.removeDuplicates();
  QString said = count == 1 ? u"1 altes Ergebnis"_s : u"%1 alte Ergebnisse"_s.arg(count);
  if (!missing.isEmpty()) said += u": "_s + missingSentence(missing);
  return said;
}

// ---- What the program did by itself ----

namespace {

/// Why the program deleted an input when field `index` was entered.
QString causeOf(const AnalysisRecord& after, const std::vector<int>& deleted, int index) {
  if (deleted.front() == ruledOutCapacity(after)) {
    return deleted.front() == feld::kKs82 ? u"pH unter 8,2"_s : u"pH ab 8,2"_s;
  }
  if (index == 0) return u"Datei geladen"_s;
  return nameOf(index) + (after.text[index].isEmpty() ? u" gelöscht"_s : u" eingegeben"_s);
}

QString rejection(const AnalysisRecord& after, int index, const QString& typedText) {
  if (index == 0 || typedText.isEmpty() || !after.text[index].isEmpty()) return {};
  QString typed = typedText;
  if (checkTyped(typed) == Check::kInvalid) {
    return u"„%1“ ist keine Zahl und wurde gelöscht"_s.arg(typedText);
  }
  return u"%1 „%2“ abgelehnt und gelöscht"_s.arg(nameOf(index), typedText);
}

/// `replaced` if the value stands in place of one that was there.
QString completion(const AnalysisRecord& after, int index, bool replaced) {
  if (index == feld::kKs82) return u"Ks8,2 0 als 0,001 mmol/l gerechnet"_s;
  return nameOf(index) + (replaced ? u" neu aus "_s : u" ergänzt aus "_s) +
         completedFrom(after, index);
}

}  // namespace

QString whatChanged(const AnalysisRecord& before, const AnalysisRecord& after, int index,
                    const QString& typedText) {
  QStringList said;
  const QString rejected = rejection(after, index, typedText.trimmed());
  if (!rejected.isEmpty()) said += rejected;
  std::vector<int> deleted;
  for (const int input : typedFields()) {
    const bool emptied = !before.text[input].isEmpty() && after.text[input].isEmpty();
    if (emptied && input != index) deleted.push_back(input);
  }
  if (!deleted.empty()) {
    said += namesOf(deleted) + u" gelöscht: "_s + causeOf(after, deleted, index);
  }
  for (const int input : typedFields()) {
    const bool changed = before.value[input] != after.value[input] || input == index;
    const bool completed = originOf(after, input) == Origin::kCompleted;
    const bool replaced = !before.text[input].isEmpty() && input != index;
    if (completed && changed) said += completion(after, input, replaced);
  }
  return said.join(u"; "_s);
}

}  // namespace calvora
