#include <QFileInfo>

#include "dialogs/windows/nachricht.h"
#include "overview/windows/analysen.h"
#include "print/windows/drucker.h"
#include "stops.h"
#include "storage/windows/dateien.h"
#include "support/shown_window.h"
#include "tour.h"

using namespace Qt::StringLiterals;
using calvora::analysen;

namespace {

/// The next message is answered with that button; 1 "OK", 2 "Ja".
void answerNext(Tour& tour, const QString& name, int button) {
  tour.expectModal<calvora::nachricht>(name, [&tour, name, button](calvora::nachricht& message) {
    tour.picture(message, name);
    message.Command1(button).click();
  });
}

void lookAtNextHeader(Tour& tour, const QString& name) {
  tour.expectModal<calvora::Dateien>(name, [&tour, name](calvora::Dateien& dateien) {
    tour.picture(dateien, name);
    QTest::keyClick(&dateien, Qt::Key_Escape);
  });
}

void fillSlots(Tour& tour, analysen& overview) {
  const QString folder = QCoreApplication::applicationDirPath() + u"/daten/"_s;
  for (const auto& [slot, name] :
       {std::pair{1, u"leitungswasser-fuellung"_s}, std::pair{2, u"laugendosierter-kreislauf"_s},
        std::pair{5, u"vollentsalzter-kreislauf"_s}}) {
    tour.desktop().file = folder + name;
    lookAtNextHeader(tour, u"overview-header-%1"_s.arg(slot));
    overview.Label1(slot).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&overview.Label1(slot), Qt::Key_Enter);
    tour.require(overview.Label1(slot).caption() == name, u"an analysis in slot %1"_s.arg(slot));
  }
  tour.picture(overview, u"analysen"_s);
}

void saveAndReload(Tour& tour, analysen& overview) {
  const calvora::OverviewGrid before = overview.project().grid;
  tour.desktop().file = tour.file(u"rundgang"_s);
  QFile::remove(tour.file(u"rundgang.cvp"_s));
  tour.expectModal<calvora::Dateien>(u"overview-save"_s, [&tour](calvora::Dateien& dateien) {
    tour.picture(dateien, u"overview-save"_s);
    answerNext(tour, u"overview-saved"_s, 1);
    dateien.Command1->click();
  });
  overview.Command1(4).click();
  answerNext(tour, u"overview-clear"_s, 1);
  overview.Command1(2).click();
  tour.picture(overview, u"overview-empty"_s);
  lookAtNextHeader(tour, u"overview-project"_s);
  overview.Command1(5).click();
  // The project packs its analyses.
  tour.require(overview.project().grid.slot[1] == before.slot[1], u"the first analysis again"_s);
  tour.require(overview.project().grid.slot[2] == before.slot[5], u"the second analysis again"_s);
  overview.MSFlexGrid1->setFocus();
  overview.MSFlexGrid1->setRangeSelected({1, 0, 6, 3}, true);
  tour.picture(overview, u"overview-reloaded"_s);
}

void printOverview(Tour& tour, analysen& overview) {
  tour.desktop().file = tour.file(u"bericht-uebersicht"_s);
  tour.expectModal<calvora::Drucker>(u"drucker-uebersicht"_s, [&tour](calvora::Drucker& dialog) {
    tour.picture(dialog, u"drucker-uebersicht"_s);
    dialog.Command2->click();
  });
  overview.Command1(3).click();
  tour.require(QFileInfo(tour.desktop().file + u".pdf"_s).size() > 0, u"the printed overview"_s);
}

}  // namespace

void showOverview(Tour& tour) {
  tour.window().mnu2_ana->trigger();
  analysen* overview = calvora::shownWindow<analysen>();
  tour.require(overview != nullptr, u"the overview"_s);
  if (overview == nullptr) return;
  const calvora::AnalysisRecord record = tour.program().record;
  fillSlots(tour, *overview);
  printOverview(tour, *overview);
  answerNext(tour, u"overview-remove"_s, 2);
  overview->Label1(2).click();
  tour.require(!overview->project().grid.slot[2].filled, u"the empty slot 2"_s);
  saveAndReload(tour, *overview);
  overview->resize(overview->width() * 2 / 3, overview->height() * 2 / 3);
  overview->activateWindow();
  tour.require(QTest::qWaitForWindowActive(overview), u"the active overview"_s);
  overview->Label1(8).setFocus(Qt::TabFocusReason);
  tour.picture(*overview, u"overview-small"_s);
  tour.require(tour.program().record.value == record.value, u"the main window's analysis"_s);
  overview->Command1(1).click();
}
