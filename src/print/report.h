#pragma once

#include <QDate>
#include <vector>

#include "model/overview_grid.h"
#include "model/record.h"
#include "plausi/plausibility.h"

namespace calvora {

/// One thing that a report tells the printer. The printer keeps a current position and a current
/// font; see ReportPrinter for what each kind does with them.
struct Statement {
  enum class Kind {
    kFont,      ///< text: family
    kSize,      ///< number: points
    kEmphasis,  ///< number: 1 on, 0 off
    kTab,       ///< number: text column, from 1
    kText,      ///< text
    kEndLine,
    kTogether,  ///< number: the next lines that stand on one page
    kPicture,   ///< number: lines that the report's picture is high
  };

  Kind kind = Kind::kEndLine;
  int number = 0;
  QString text = {};
};

using Statements = std::vector<Statement>;

/// The kinds of reports.
enum class Bericht {
  kAnalyse = 2,    ///< the analysis in the main window
  kÜbersicht = 3,  ///< the analyses of the overview, side by side
  kPlausi = 4,     ///< the plausibility check of the analysis in the main window
};

QString reportTitle(Bericht kind);

/// What the head of a report says.
struct ReportHead {
  Bericht kind = Bericht::kAnalyse;
  QString companyLine = {};
  QDate today = {};
  QString project = {};
  QString fileName = {};      ///< empty: not printed
  QString sample = {};        ///< empty: not printed
  QString samplingDate = {};  ///< not printed on the overview report
  QString remark = {};        ///< its line breaks are printed as blanks; empty: not printed
};

/// The head of a report, on a page of that orientation.
Statements headStatements(const ReportHead& head, bool landscape);

/// The body of the analysis report: every field that has a text, except 10, and which of them were
/// not recomputed.
Statements analysisStatements(const AnalysisRecord& record);

/// The body of the overview report; the filled slots stand next to each other.
Statements overviewStatements(const OverviewGrid& grid);

/// The body of the report on a plausibility check: its picture, and every comparison with all that
/// its row says, the second value under the first.
Statements plausibilityStatements(const Plausibility& found);

/// File name proposed for a report on an analysis, without characters that no system allows in one.
/// Named after the report where the analysis has no name.
QString proposedPdfName(Bericht kind, const QString& analysisName);

}  // namespace calvora
