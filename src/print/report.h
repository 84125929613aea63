#pragma once

#include <QDate>

#include "model/overview_grid.h"
#include "model/record.h"
#include "print/statement.h"

namespace calvora {

/// The kinds of reports.
namespace bericht {
inline constexpr int kAnalyse = 2;    ///< the analysis in the main window
inline constexpr int kÜbersicht = 3;  ///< the analyses of the overview, side by side
}  // namespace bericht

/// Title of a report kind; empty for any other number.
QString reportTitle(int kind);

/// What the head of a report says.
struct ReportHead {
  int kind = bericht::kAnalyse;
  QString companyLine = {};
  QDate today = {};
  QString project = {};
  QString fileName = {};      ///< empty: not printed
  QString sample = {};        ///< empty: not printed
  QString samplingDate = {};  ///< printed on the analysis report only
  QString remark = {};        ///< its line breaks are printed as blanks; empty: not printed
};

/// The head of a report, on a page of that orientation.
Statements headStatements(const ReportHead& head, bool landscape);

/// The body of the analysis report: every field that has a text, except 10.
Statements analysisStatements(const AnalysisRecord& record);

/// The body of the overview report; the filled slots stand next to each other.
Statements overviewStatements(const OverviewGrid& grid);

/// File name proposed for a report on an analysis, without characters that no system allows in one.
/// Named after the report where the analysis has no name.
QString proposedPdfName(int kind, const QString& analysisName);

}  // namespace calvora
