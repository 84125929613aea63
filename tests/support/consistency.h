#pragma once

#include <cmath>

#include "chem/subcalc.h"
#include "model/fields.h"
#include "plausi/plausibility.h"
#include "support/files.h"

namespace calvora {

/// The inputs of a record without anything else; with or without what the program completed.
inline AnalysisRecord inputsOf(const AnalysisRecord& record, bool withCompleted) {
  AnalysisRecord inputs;
  for (const int field : typedFields()) {
    const bool completed = originOf(record, field) == Origin::kCompleted && field != feld::kKs82;
    if (completed && !withCompleted) continue;
    inputs.value[field] = record.value[field];
    inputs.text[field] = record.text[field];
  }
  return inputs;
}

/// A result that is called computed is what the inputs alone give. The excess carbon dioxide is
/// left out: its step uses the hardness that the next one then changes.
inline void requireOriginsOfResults(const AnalysisRecord& record) {
  AnalysisRecord fresh = inputsOf(record, true);
  const int noField = 0;
  NarrowTexts narrow;
  AnyQuestions questions;
  subcalc(fresh, noField, narrow, questions).rechenlauf();
  for (int i = 0; i <= 40; ++i) {
    if (fieldOf(i).isTyped() || i == feld::kCo2Überschüssig) continue;
    if (originOf(record, i) != Origin::kComputed) continue;
    const QString what = QStringLiteral("%1: %2, %3").arg(i).arg(record.text[i], fresh.text[i]);
    require(record.text[i] == fresh.text[i], "what is called computed was computed", what);
  }
}

/// What a comparison must say, from its own numbers.
inline Verdict verdictFrom(const Comparison& row) {
  if (!row.a || !row.b || !row.uncertainty) return Verdict::kNichtPrüfbar;
  if (row.group >= 7) return Verdict::kHinweis;
  const bool harmless = (row.fault == Fault::kFirstAbove && *row.a < *row.b) ||
                        (row.fault == Fault::kSecondAbove && *row.a > *row.b);
  const double difference = harmless ? 0 : std::abs(*row.a - *row.b);
  if (difference < 0.00005 || difference <= *row.uncertainty) return Verdict::kStimmig;
  if (row.second == QStringLiteral("Gesamthärte")) return Verdict::kHinweis;
  return difference <= 2 * *row.uncertainty ? Verdict::kPrüfen : Verdict::kWiderspruch;
}

/// Each verdict follows from its row's numbers, and these from what was measured: without results
/// and completed inputs all rows say the same.
inline void requireJudgedFromInputs(const AnalysisRecord& record) {
  const Plausibility check = checkPlausibility(record, defaultUncertainties());
  const Plausibility fresh = checkPlausibility(inputsOf(record, false), defaultUncertainties());
  for (size_t i = 0; i < check.rows.size(); ++i) {
    const Comparison& row = check.rows.at(i);
    const Comparison& again = fresh.rows.at(i);
    const QString what = cellsOf(row).join(u'|');
    for (const auto& number : {row.a, row.b, row.uncertainty}) {
      require(!number || std::isfinite(*number), "a value is a number", what);
    }
    require(row.verdict == verdictFrom(row), "a verdict follows from its numbers", what);
    require(row.verdict != Verdict::kNichtPrüfbar || !row.note.isEmpty(), "a reason", what);
    const bool same = row.a == again.a && row.b == again.b && row.uncertainty == again.uncertainty;
    require(same, "a comparison rests on what was measured", what);
  }
  for (const PhMark& mark : check.marks) {
    require(std::isfinite(mark.ph) && std::isfinite(mark.uncertainty), "a mark is one", mark.name);
  }
}

}  // namespace calvora
