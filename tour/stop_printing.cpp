// Both reports, printed to PDF files as a user would, and the preview.
#include <QFileInfo>
#include <QPrintPreviewDialog>

#include "platform/printer_setup.h"
#include "print/drucker.h"
#include "stops.h"
#include "tour.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

/// Eight analyses of one circuit, a month apart.
OverviewGrid eightAnalyses() {
  const std::pair<QString, QString> rows[] = {
      {u"Probe-Datum"_s, {}},
      {},
      {u"Leitfähigkeit  gemessen"_s, u"µS/cm"_s},
      {u"pH-Wert  gem. / Elektrode"_s, u"pH t"_s},
      {u"Temperatur  Medium"_s, u"°C"_s},
      {u"Säurekapazität  Ks8,2"_s, u"mmol/l"_s},
      {u"Säurekapazität  Ks4,3"_s, u"mmol/l"_s},
      {u"Basekapazität  Kb8,2"_s, u"mmol/l"_s},
      {},
      {u"Gesamthärte"_s, u"°d"_s},
  };
  OverviewGrid grid;
  for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
    OverviewGrid::Slot& slot = grid.slot[k];
    slot.filled = true;
    slot.caption = u"Kreis-0%1-2026"_s.arg(k);
    slot.cells[0] = u"16.0%1.2026"_s.arg(k);
  }
  for (int row = 0; row < static_cast<int>(std::size(rows)); ++row) {
    grid.names[row] = rows[row].first;
    grid.units[row] = rows[row].second;
    for (int k = 1; k <= OverviewGrid::kSlots && row > 1 && !rows[row].first.isEmpty(); ++k) {
      grid.slot[k].cells[row] = row == 2 ? u"14%1,0000"_s.arg(20 + k) : u"%1,%2"_s.arg(row).arg(k);
    }
  }
  return grid;
}

}  // namespace

void visitPrinting(Tour& tour) {
  tour.program().settings.slot[setting::kPrintLine] =
      u"Muster Haustechnik GmbH       Werkstraße 12    12345 Musterstadt    Telefon 01234 56789"_s;
  const QString analysis = tour.file(u"bericht.pdf"_s);
  tour.desktop().file = analysis;
  tour.expectModal<Drucker>(u"drucker"_s, [&tour](Drucker& dialog) {
    tour.picture(dialog, u"drucker"_s);
    tour.expectModal<QPrintPreviewDialog>(u"vorschau"_s, [&tour](QPrintPreviewDialog& preview) {
      tour.picture(preview, u"vorschau"_s);
      preview.close();
    });
    QTest::keyClick(dialog.Command4, Qt::Key_Enter);
    QTest::keyClick(dialog.Command2, Qt::Key_Enter);
  });
  tour.shortcut(Qt::Key_P);
  tour.require(QFileInfo(analysis).size() > 0, u"the printed analysis"_s);

  const QString overview = tour.file(u"uebersicht.pdf"_s);
  tour.desktop().file = overview;
  const OverviewGrid grid = eightAnalyses();
  DialogQuestions questions(tour.desktop());
  Drucker dialog(tour.program(), questions, tour.desktop(), &tour.window(), &grid);
  dialog.druckart(bericht::kÜbersicht);
  dialog.show();
  tour.picture(dialog, u"drucker-uebersicht"_s);
  dialog.Command2->click();
  tour.require(QFileInfo(overview).size() > 0, u"the printed overview"_s);
}
