// What the reports say, line by line.
#include "print/report.h"

#include "entry/date_text.h"
#include "entry/decimal.h"
#include "entry/key_filter.h"
#include "model/fields.h"
#include "plausi/origin.h"
#include "storage/line_file.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kValueWidth = 8;
constexpr int kFewerDecimals = 3;
constexpr qsizetype kPageWidth = 80;  // characters

// Text columns.
constexpr int kMargin = 13;
constexpr int kHeadValue = 43;
constexpr int kProduct = 70;
constexpr int kSymbol = 43;
constexpr int kUnit = 53;
constexpr int kValue = 62;
constexpr int kResultsHeading = 11;
constexpr int kParameter = 8;

// Those of the comparisons, in their font.
constexpr int kVerdict = 9;
constexpr int kNames = 27;
constexpr int kComparedValue = 81;
constexpr int kDifference = 93;
constexpr int kUncertainty = 105;
constexpr int kComparedUnit = 122;
constexpr qsizetype kNoteWidth = 88;  // characters
constexpr qsizetype kSummaryWidth = 90;

// Cells of a comparison.
enum Cell {
  kVerdictCell,
  kFirstCell,
  kSecondCell,
  kACell,
  kBCell,
  kDifferenceCell,
  kUncertaintyCell,
  kUnitCell,
  kNoteCell,
};

constexpr int slotColumn(int count) {
  return kUnit + 14 * count;
}

/// A report while it is written.
class Writer {
 public:
  using Kind = Statement::Kind;

  /// The font that every report is printed in.
  Writer& schrift() { return add({Kind::kFont, 0, u"Arial"_s}); }
  Writer& size(int points) { return add({Kind::kSize, points}); }
  Writer& emphasis(bool on) { return add({Kind::kEmphasis, on ? 1 : 0}); }
  Writer& tab(int column) { return add({Kind::kTab, column}); }
  Writer& text(const QString& text) { return add({Kind::kText, 0, text}); }
  Writer& at(int column, const QString& what) { return tab(column).text(what); }
  Writer& endLine() { return add({Kind::kEndLine}); }
  Writer& together(qsizetype lines) { return add({Kind::kTogether, static_cast<int>(lines)}); }
  Writer& picture(int lines) { return add({Kind::kPicture, lines}); }
  Writer& emptyLines(int count) {
    for (int i = 0; i < count; ++i) endLine();
    return *this;
  }

  Statements statements;

 private:
  Writer& add(const Statement& statement) {
    statements.push_back(statement);
    return *this;
  }
};

/// A value in its column, which keeps the last characters. Decimal zeros give way before, and then
/// what is finer than three decimals: else "1420,0000" would lose its thousands on paper.
QString valueColumn(QString value) {
  const auto tooLong = [&] { return value.size() > kValueWidth && value.contains(','_L1); };
  while (tooLong() && (value.endsWith('0'_L1) || value.endsWith(','_L1))) value.chop(1);
  const qsizetype decimals = value.size() - 1 - value.indexOf(','_L1);
  if (tooLong() && decimals > kFewerDecimals && isNumberText(value)) {
    value = Decimal(readNumber(QString(value).replace(','_L1, '.'_L1))).fixedText(kFewerDecimals);
  }
  return value.rightJustified(kValueWidth).right(kValueWidth);
}

void fieldLine(Writer& report, const Field& field, const AnalysisRecord& record) {
  const QString value = record.text[field.index].trimmed();
  if (value.isEmpty()) return;
  report.at(kMargin, field.caption)
      .at(kSymbol, field.shortLabel)
      .at(kUnit, field.unit)
      .at(kValue, valueColumn(value))
      .endLine();
}

/// A text in lines of at most that many characters, where its words allow it.
QStringList wrapped(const QString& text, qsizetype width) {
  QStringList lines;
  for (const QString& word : text.split(' '_L1, Qt::SkipEmptyParts)) {
    if (lines.isEmpty() || lines.back().size() + 1 + word.size() > width) {
      lines += word;
    } else {
      lines.back() += ' '_L1 + word;
    }
  }
  return lines;
}

/// One comparison: verdict, names and values, the second under the first; below them the note.
void comparisonLines(Writer& report, const Comparison& comparison) {
  const QStringList cells = cellsOf(comparison);
  const QStringList note = wrapped(cells[kNoteCell], kNoteWidth);
  const auto number = [&](int column, int cell) {
    if (!cells[cell].isEmpty()) report.at(column, valueColumn(cells[cell]));
  };
  report.together(2 + note.size());
  report.emphasis(true).at(kVerdict, cells[kVerdictCell]).emphasis(false);
  report.at(kNames, cells[kFirstCell]);
  number(kComparedValue, kACell);
  number(kDifference, kDifferenceCell);
  number(kUncertainty, kUncertaintyCell);
  if (!cells[kUnitCell].isEmpty()) report.at(kComparedUnit, cells[kUnitCell]);
  report.endLine();
  if (!cells[kSecondCell].isEmpty()) report.at(kNames, cells[kSecondCell]);
  number(kComparedValue, kBCell);
  report.endLine();
  for (const QString& line : note) report.at(kNames, line).endLine();
  report.size(4).endLine().size(9);
}

/// The line that names the kept results, if there are any; what its page has no room for goes on
/// the next.
void keptLines(Writer& report, const AnalysisRecord& record) {
  const QStringList lines = wrapped(keptLine(record), kPageWidth);
  if (!lines.isEmpty()) report.endLine();
  for (const QString& line : lines) report.at(kMargin, line).endLine();
}

}  // namespace

QString reportTitle(Bericht kind) {
  switch (kind) {
    case Bericht::kAnalyse:
      return u"Wasser - Analyse"_s;
    case Bericht::kPlausi:
      return u"Plausibilitäts-Prüfung"_s;
    case Bericht::kÜbersicht:
      break;
  }
  return u"Analysen Übersicht"_s;
}

Statements headStatements(const ReportHead& head, bool landscape) {
  Writer report;
  const auto portraitLines = [&](int count) { report.emptyLines(landscape ? 0 : count); };
  const auto line = [&](const QString& label, const QString& value) {
    report.at(kMargin, label).at(kHeadValue, value).endLine();
  };
  report.endLine();
  // The company line starts where its column lies in the larger font.
  report.schrift().size(10).tab(kMargin).size(9).text(head.companyLine).endLine();
  report.endLine().schrift();
  portraitLines(1);
  report.size(10).tab(kMargin).size(14).text(reportTitle(head.kind)).endLine();
  report.endLine();
  portraitLines(1);
  report.size(10)
      .at(kMargin, u"Erstell-Datum:"_s)
      .at(kHeadValue, dateText(head.today))
      .at(kProduct, u"Calvora"_s)
      .endLine();
  line(u"Projekt:"_s, head.project);
  if (!head.fileName.isEmpty()) line(u"Dateiname:   "_s, head.fileName);
  if (!head.sample.isEmpty()) line(u"Bezeichnung Probe:"_s, head.sample);
  if (head.kind != Bericht::kÜbersicht) line(u"Probenahme-Datum:"_s, head.samplingDate);
  const QString remark = onOneLine(head.remark).trimmed();
  if (!remark.isEmpty()) line(u"Bemerkung:"_s, remark);
  portraitLines(2);
  return report.statements;
}

Statements analysisStatements(const AnalysisRecord& record) {
  Writer report;
  report.schrift().size(10);
  for (const Field& field : inputFields()) {
    if (field.index == feld::kGesamthärte) report.endLine();
    fieldLine(report, field, record);
  }
  report.emptyLines(2);
  report.size(12).emphasis(true).at(kResultsHeading, u"berechnete Werte"_s).endLine();
  report.size(10).emphasis(false).endLine();
  for (const Field& field : resultFields()) {
    if (field.index == feld::kHydrogencarbonat) report.endLine();
    if (field.index != feld::kPhAusLf) fieldLine(report, field, record);
  }
  keptLines(report, record);
  return report.statements;
}

Statements overviewStatements(const OverviewGrid& grid) {
  Writer report;
  const auto eachFilled = [&](const auto& textOf) {
    int count = 0;
    for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
      if (grid.slot[k].filled) report.at(slotColumn(++count), textOf(grid.slot[k]));
    }
    report.endLine();
  };
  report.emptyLines(3).at(kParameter, u"Dateiname"_s);
  eachFilled([](const OverviewGrid::Slot& slot) { return slot.caption.trimmed().left(8); });
  for (int row = 0; row < OverviewGrid::kRows; ++row) {
    report.at(kParameter, grid.names[row]);
    const QString& symbol = fieldOfRow(row).shortLabel;
    if (!symbol.isEmpty()) report.at(kSymbol, symbol);  // two rows have the same name
    report.at(kUnit, grid.units[row]);
    eachFilled([row](const OverviewGrid::Slot& slot) {
      const QString cell = slot.cells[row].trimmed();
      return row == 0 ? cell.left(6) + cell.right(2) : cell;  // a date without its century
    });
    if (row == 0) report.endLine();
  }
  return report.statements;
}

Statements plausibilityStatements(const Plausibility& found) {
  Writer report;
  report.schrift().emphasis(true);
  const QString summary = verdictSymbol(found.overall()) + ' '_L1 + found.summary();
  for (const QString& line : wrapped(summary, kSummaryWidth)) {
    report.size(9).tab(kVerdict).size(10).text(line).endLine();
  }
  report.emphasis(false).size(9).endLine();
  report.tab(kVerdict).picture(3 + 3 * static_cast<int>(found.marks.size()) / 2).endLine();
  const QStringList headings = cellHeadings();
  report.together(4).emphasis(true).at(kVerdict, headings[kVerdictCell]).at(kNames, u"Vergleich"_s);
  report.at(kComparedValue, valueColumn(u"Wert"_s));
  report.at(kDifference, headings[kDifferenceCell]);
  report.at(kUncertainty, headings[kUncertaintyCell]);
  report.at(kComparedUnit, headings[kUnitCell]).endLine().emphasis(false);
  report.size(4).endLine().size(9);
  for (const Comparison& comparison : found.rows) comparisonLines(report, comparison);
  return report.statements;
}

QString proposedPdfName(Bericht kind, const QString& analysisName) {
  QString name = kind == Bericht::kÜbersicht ? QString() : analysisName.trimmed();
  if (kind == Bericht::kPlausi && !name.isEmpty()) name += u" - "_s + reportTitle(kind);
  if (name.isEmpty()) name = reportTitle(kind);
  return asFileName(name) + u".pdf"_s;
}

}  // namespace calvora
