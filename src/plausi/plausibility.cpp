#include "plausi/plausibility.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "model/fields.h"
#include "plausi/comparisons.h"
#include "plausi/origin.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr double kHighestEn = 999;

struct VerdictText {
  Verdict verdict;
  QString word;
  QString symbol;
  QString several = {};  ///< of more than one row, where that is another word
};

/// The symbols are in every text font: one from another font would change the height of its line.
const std::array<VerdictText, 5>& verdictTexts() {
  static const std::array kTexts{
      VerdictText{Verdict::kStimmig, u"stimmig"_s, u"="_s},
      VerdictText{Verdict::kPrüfen, u"prüfen"_s, u"!"_s},
      VerdictText{Verdict::kWiderspruch, u"Widerspruch"_s, u"≠"_s, u"Widersprüche"_s},
      VerdictText{Verdict::kHinweis, u"Hinweis"_s, u"i"_s, u"Hinweise"_s},
      VerdictText{Verdict::kNichtPrüfbar, u"nicht prüfbar"_s, u"–"_s},
  };
  return kTexts;
}

/// The field that a comparison lacks, 0 if it lacks none: a field itself, or what stands for it.
int missingField(const Inputs& inputs, int needed) {
  const auto unlessTyped = [&](int field) { return inputs.has(field) ? 0 : field; };
  const bool hasTotal = inputs.has(feld::kGesamthärte);
  const bool hasMagnesium = inputs.has(feld::kMagnesium);
  switch (needed) {
    case need::kCapacity:
      return unlessTyped(inputs[feld::kPh].value_or(0) < 8.2 ? feld::kKb82 : feld::kKs82);
    case need::kHardness:
      if (inputs.has(feld::kCalcium) && hasMagnesium) return 0;
      return unlessTyped(feld::kGesamthärte);
    case need::kCalcium:
      return hasTotal && hasMagnesium ? 0 : unlessTyped(feld::kCalcium);
    default:
      return unlessTyped(needed);
  }
}

/// "Es fehlen pH-Wert und Temperatur." with what stands beside a field that is there; empty for
/// nothing.
QString missingNote(const Inputs& inputs, const std::vector<int>& needs) {
  QStringList names;
  for (const int needed : needs) {
    const int field = missingField(inputs, needed);
    if (field == 0) continue;
    const bool either = needed == need::kCapacity && !inputs.has(feld::kPh);
    const QString remark = inputs.remarkOn(field);
    QString name = either ? u"Kb8,2 oder Ks8,2"_s : nameOf(field);
    if (!remark.isEmpty()) name += u" (%1)"_s.arg(remark);
    names += name;
  }
  const QString sentence = missingSentence(names);
  return names.isEmpty() ? sentence : u'E' + sentence.mid(1) + u'.';
}

/// Why this water cannot be compared; empty if it can.
QString obstacle(const Rule& rule, const Finding& found) {
  const QString ruledOut = rule.ruledOut ? rule.ruledOut(found) : QString();
  return ruledOut.isEmpty() ? missingNote(found.inputs, rule.needs) : ruledOut;
}

Verdict verdictOf(const Comparison& row) {
  const std::optional<double> en = row.en();
  if (!en) return Verdict::kHinweis;
  if (*en <= 1) return Verdict::kStimmig;
  // More carbonate than total hardness is no fault, however much it is.
  if (row.group == 6 && row.fault == Fault::kFirstAbove) return Verdict::kHinweis;
  return *en <= 2 ? Verdict::kPrüfen : Verdict::kWiderspruch;
}

Comparison compare(const Rule& rule, const Inputs& inputs, const Spread& spread) {
  Comparison row{.group = rule.group,
                 .first = rule.first,
                 .second = rule.second,
                 .unit = rule.unit,
                 .format = rule.format};
  row.fault = rule.fault;
  const Finding found{inputs, spread, row};
  row.note = obstacle(rule, found);
  if (!row.note.isEmpty()) return row;
  row.a = found[rule.a];
  row.b = found[rule.b];
  row.uncertainty = rule.group == 8 ? spread.of(rule.b) : spread.of(rule.a, rule.b);
  if (!row.a || !row.b || !row.uncertainty) {
    row.uncertainty.reset();
    row.note = u"Aus diesen Werten lässt es sich nicht berechnen."_s;
    return row;
  }
  row.verdict = verdictOf(row);
  if (rule.note) row.note = rule.note(found);
  return row;
}

std::vector<PhMark> marksOf(const Inputs& inputs, const Spread& spread) {
  std::vector<PhMark> marks;
  const auto add = [&](const QString& name, Figure figure) {
    const auto ph = spread.figures()[figure];
    const auto uncertainty = spread.of(figure);
    if (ph && uncertainty) marks.push_back({name, *ph, *uncertainty, figure == Figure::kPh});
  };
  add(u"gemessen"_s, Figure::kPh);
  add(u"Iteration"_s, Figure::kPhIteration);
  add(u"Näherung"_s, Figure::kPhNäherung);
  add(u"zweite Rechnung"_s, Figure::kPhZweite);
  if (isSaltPoorAndAlkaline(inputs)) {
    add(u"aus Ks8,2, höchstens"_s, Figure::kPhAusKs82);
    add(u"aus Leitfähigkeit, höchstens"_s, Figure::kPhAusLf);
  }
  return marks;
}

const VerdictText& textsOf(Verdict verdict) {
  return *std::ranges::find(verdictTexts(), verdict, &VerdictText::verdict);
}

QString cell(const std::optional<double>& number, Format format) {
  return number ? shown(*number, format) : QString();
}

}  // namespace

QString verdictWord(Verdict verdict) {
  return textsOf(verdict).word;
}

QString verdictSymbol(Verdict verdict) {
  return textsOf(verdict).symbol;
}

std::optional<double> Comparison::en() const {
  if (!a || !b || !uncertainty || fault == Fault::kNone) return {};
  const double difference = *a - *b;
  const bool admitted = (fault == Fault::kFirstAbove && difference < 0) ||
                        (fault == Fault::kSecondAbove && difference > 0);
  // The fields have four decimals; less than half of the last one is no difference.
  if (admitted || std::abs(difference) < 0.00005) return 0;
  return std::min(std::abs(difference) / *uncertainty, kHighestEn);
}

Verdict Plausibility::overall() const {
  const Comparison* row = worst();
  return row ? row->verdict : Verdict::kNichtPrüfbar;
}

const Comparison* Plausibility::worst() const {
  const Comparison* worst = nullptr;
  for (const Comparison& row : rows) {
    if (row.verdict > Verdict::kWiderspruch) continue;
    if (!worst || *row.en() > *worst->en()) worst = &row;
  }
  return worst;
}

QString Plausibility::summary() const {
  QStringList counts;
  for (const auto& [verdict, word, symbol, several] : verdictTexts()) {
    const auto count = std::ranges::count(rows, verdict, &Comparison::verdict);
    if (count == 0) continue;
    const QString& plural = count > 1 && !several.isEmpty() ? several : word;
    counts += QString::number(count) + u' ' + plural;
  }
  QString line = u"%1 (%2)"_s.arg(verdictWord(overall()), counts.join(u", "_s));
  if (overall() == Verdict::kNichtPrüfbar || overall() == Verdict::kStimmig) return line;
  return line + u": %1 – %2"_s.arg(worst()->first, worst()->second);
}

Plausibility checkPlausibility(const AnalysisRecord& record, const Uncertainties& uncertainties) {
  const Inputs inputs(record);
  const Spread spread(inputs, uncertainties);
  Plausibility result;
  for (const Rule& rule : rules()) result.rows.push_back(compare(rule, inputs, spread));
  result.marks = marksOf(inputs, spread);
  return result;
}

QStringList cellsOf(const Comparison& row) {
  const std::optional<double> difference =
      row.a && row.b ? std::optional(*row.a - *row.b) : std::nullopt;
  return {verdictSymbol(row.verdict) + u' ' + verdictWord(row.verdict),
          row.first,
          row.second,
          cell(row.a, row.format),
          cell(row.b, row.format),
          cell(difference, row.format),
          cell(row.uncertainty, row.format),
          row.unit,
          row.note};
}

QStringList cellHeadings() {
  return {u"Urteil"_s,    u"Wert"_s,         u"verglichen mit"_s, u"a"_s,        u"b"_s,
          u"Differenz"_s, u"Unsicherheit"_s, u"Einheit"_s,        u"Erklärung"_s};
}

}  // namespace calvora
