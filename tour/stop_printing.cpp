// The report of the analysis, printed to a PDF file as a user would, and the preview.
#include <QFileInfo>
#include <QPrintPreviewDialog>

#include "platform/desktop.h"
#include "print/windows/drucker.h"
#include "stops.h"
#include "tour.h"

using namespace calvora;
using namespace Qt::StringLiterals;

void visitPrinting(Tour& tour) {
  tour.program().settings.slot[setting::kPrintLine] =
      u"Muster Haustechnik GmbH       Werkstraße 12    12345 Musterstadt    Telefon 01234 56789"_s;
  tour.desktop().file = tour.file(u"bericht-analyse"_s);
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
  tour.require(QFileInfo(tour.desktop().file + u".pdf"_s).size() > 0, u"the printed analysis"_s);
}
