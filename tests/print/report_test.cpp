// What the reports say, statement by statement, against golden files.
#include <array>

#include "print/report.h"
#include "support/tables.h"

using namespace calvora;

namespace {

/// A head whose texts are the company line, project, file name, sample, sampling date and remark.
ReportHead headOf(const QString& content, Bericht kind) {
  const QString texts = content == "empty"_L1 ? u"|||||   "_s
                        : content == "sparse"_L1
                            ? u"Firma|||Probe||"_s
                            : u"Firma       Weg 1    Ort|Wohnanlage|brunnen|Rücklauf|12.10.2026|"
                              "  erste\r\nzweite Zeile  "_s;
  const QStringList t = texts.split('|'_L1);
  return {kind, t[0], QDate(2026, 11, 22), t[1], t[2], t[3], t[4], t[5]};
}

AnalysisRecord recordOf(const QString& content) {
  AnalysisRecord record;
  const bool full = content != "sparse"_L1 && content != "empty"_L1;
  for (int i = 1; i <= 40 && full; ++i) record.text[i] = u"%1,0"_s.arg(i);
  for (int i = 1; i <= 40; ++i) record.computed[i] = content != "kept"_L1 || i == 9;
  if (full) record.text[1] = u"12345,678"_s;
  if (content == "sparse"_L1) {
    record.text[1] = u"1420,0000"_s;  // the thousands outlast zeros that say nothing
    record.text[2] = u" 7,5 "_s;
    record.text[3] = u"1234,5678"_s;  // and so do the thousands of any other entry
    record.text[9] = u">9,6"_s;
    record.text[10] = u"n.b."_s;
    record.text[15] = u"0,3"_s;
  }
  return record;
}

OverviewGrid gridOf(const QString& content) {
  OverviewGrid grid;
  for (int row = 0; row < 3; ++row) {
    grid.names[row] = row == 0 ? u"Probe-Datum"_s : u"Name %1"_s.arg(row);
    grid.units[row] = row == 0 ? QString() : u"mg/l"_s;
  }
  for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
    OverviewGrid::Slot& slot = grid.slot[k];
    slot.caption = u" analyse-%1-lang"_s.arg(k);  // an emptied slot may keep its texts
    for (int row = 0; row < 3; ++row) slot.cells[row] = u" %1,%2 "_s.arg(k).arg(row);
    slot.cells[0] = u"16.11.2026"_s;
    slot.filled = content == "full"_L1 || (content == "sparse"_L1 && (k == 2 || k == 5));
  }
  return grid;
}

QString describe(const Statement& statement) {
  const std::array names{u"font %2"_s,   u"size %1"_s,     u"emphasis %1"_s, u"tab %1"_s,
                         u"text '%2'"_s, u"end of line"_s, u"together %1"_s, u"picture %1"_s};
  return QString(names.at(static_cast<size_t>(statement.kind)))
      .replace("%1"_L1, QString::number(statement.number))
      .replace("%2"_L1, statement.text);
}

}  // namespace

class ReportTest : public QObject {
  Q_OBJECT

 private slots:
  void aReportSaysWhatItShould_data() {  // golden file => orientation of its page
    rows<QString>(
        "analysis_full=>portrait | analysis_sparse=>landscape | analysis_empty=>portrait | "
        "analysis_kept=>portrait | "
        "overview_full=>landscape | overview_sparse=>landscape | overview_empty=>portrait");
  }
  void aReportSaysWhatItShould() {
    QFETCH(QString, given);
    QFETCH(QString, expected);
    const Bericht kind = given.startsWith("a"_L1) ? Bericht::kAnalyse : Bericht::kÜbersicht;
    const QString content = given.section('_'_L1, 1);
    Statements report = headStatements(headOf(content, kind), expected == "landscape"_L1);
    const Statements body = kind == Bericht::kAnalyse ? analysisStatements(recordOf(content))
                                                      : overviewStatements(gridOf(content));
    report.insert(report.end(), body.begin(), body.end());
    QStringList said;
    for (const Statement& statement : report) said += describe(statement);
    compareWithGolden(said, u"print/golden/%1.txt"_s.arg(given));
  }

  void aPdfFileIsNamedAfterTheAnalysis() {
    QCOMPARE(proposedPdfName(Bericht::kAnalyse, u"../a:b*c"_s), u"..-a-b-c.pdf"_s);
    QCOMPARE(proposedPdfName(Bericht::kAnalyse, u" "_s), u"Wasser - Analyse.pdf"_s);
    QCOMPARE(proposedPdfName(Bericht::kÜbersicht, u"brunnen"_s), u"Analysen Übersicht.pdf"_s);
  }
};

QTEST_APPLESS_MAIN(ReportTest)
#include "report_test.moc"
