#pragma once

#include <QStringList>
#include <optional>
#include <vector>

#include "entry/number_text.h"
#include "model/record.h"
#include "plausi/uncertainty.h"

namespace calvora {

#ifndef Q_MOC_RUN  // it cannot parse an umlaut within an enumeration
#ifndef Q_MOC_RUN  // it cannot parse an umlaut within an enumeration
/// What a comparison says, from good to bad; the last two carry no verdict.
enum class Verdict { kStimmig, kPrüfen, kWiderspruch, kHinweis, kNichtPrüfbar };
#endif
#endif

/// "stimmig", "prüfen", "Widerspruch", "Hinweis" or "nicht prüfbar".
QString verdictWord(Verdict verdict);

/// One character that stands for the verdict where there is no colour, no two alike.
QString verdictSymbol(Verdict verdict);

/// Which difference speaks against the analysis.
enum class Fault {
  kEither,
  kFirstAbove,   ///< the second value is a bound from above
  kSecondAbove,  ///< the second value is a bound from below
  kNone,         ///< the row only informs
};

/// Two values that should agree. Every value rests on typed fields alone, never on a kept result.
struct Comparison {
  int group = 0;   ///< comparisons of one kind stand together: 1 to 8
  QString first;   ///< name of the first value, as "pH gemessen"
  QString second;  ///< name of the second value, as "pH aus den Kapazitäten (Iteration)"
  QString unit;
  Format format = Format::kTwoDecimals;
  std::optional<double> a = {};            ///< the first value
  std::optional<double> b = {};            ///< the second value
  std::optional<double> uncertainty = {};  ///< of a − b, in group 8 of b; expanded, k = 2
  Verdict verdict = Verdict::kNichtPrüfbar;
  QString note = {};  ///< usual cause, missing fields or what is told; one or more sentences
  Fault fault = Fault::kEither;

  /// |a − b| / U(a − b) as far as the difference speaks against the analysis, 0 otherwise, at most
  /// 999. Empty for a row that only informs or that could not be compared.
  [[nodiscard]] std::optional<double> en() const;
};

/// A pH on the scale: the measured one (first, where there is one) or an estimate, each with its
/// own uncertainty.
struct PhMark {
  QString name;
  double ph = 0;
  double uncertainty = 0;  ///< expanded, k = 2
  bool measured = false;
};

/// Everything that the check says of one record.
struct Plausibility {
  std::vector<Comparison> rows;
  std::vector<PhMark> marks;

  /// The worst verdict of the comparisons that have one; kNichtPrüfbar if none has.
  [[nodiscard]] Verdict overall() const;

  /// The row that the overall verdict comes from, the one with the largest En; null without a
  /// verdict.
  [[nodiscard]] const Comparison* worst() const;

  /// One line: the overall verdict, how many rows of each kind, and the worst row.
  [[nodiscard]] QString summary() const;
};

/// Judges the typed fields of a record; the record itself is not changed. Below 1 ms.
Plausibility checkPlausibility(const AnalysisRecord& record, const Uncertainties& uncertainties);

/// The cells of a row as they are shown, copied and printed: symbol and verdict, first and second
/// name, a, b, difference, uncertainty, unit, note. Numbers with decimal comma; empty for what
/// there is not.
QStringList cellsOf(const Comparison& row);

/// The headings of these cells.
QStringList cellHeadings();

}  // namespace calvora
