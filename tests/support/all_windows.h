#pragma once

#include <QDir>
#include <QTabWidget>

#include "app/start_window.h"
#include "dialogs/meldungen.h"
#include "dialogs/windows/dialog_questions.h"
#include "overview/windows/analysen.h"
#include "plausi/windows/plausi.h"
#include "support/window_support.h"

namespace calvora {

/// A mask whose questions are windows, and whose file dialogs choose an example analysis.
struct House : BasicMask<DialogQuestions> {
  House() {
    desktop.file = at(u"a"_s);
    const QString examples = QCoreApplication::applicationDirPath() + u"/daten/"_s;
    put(at(u"a.cva"_s), bytesOf(examples + u"leitungswasser-fuellung.cva"_s));
    program.settings.slot[setting::kDataFolder] = QDir::tempPath();
    window.takeOver(1, u"420"_s);
    program.record.flag[flag::kStatus].clear();  // nothing to ask about
  }

  analysen& overview() {
    window.mnu2_ana->trigger();
    return *shownWindow<analysen>();
  }
  /// Presses a button of an overview that shows an analysis.
  void pressInOverview(int button) {
    analysen& opened = overview();
    opened.Label1(1).click();
    opened.Command1(button).click();
  }
};

/// A window of the program and how it is opened. A modal one returns when it is closed.
struct WindowWay {
  const char* name;  ///< of its picture in the tour
  std::function<void(House&)> open;
};

/// All windows beside the main one, by all ways.
inline const std::vector<WindowWay>& allWindows() {
  static const std::vector<WindowWay> ways{
      {"start", [](House& h) { (new start(h.window, h.desktop))->show(); }},
      {"dateien-save", [](House& h) { h.window.mnu_save->trigger(); }},
      {"dateien-loaded", [](House& h) { h.window.mnu_load->trigger(); }},
      {"drucker", [](House& h) { h.window.mnu_drucken->trigger(); }},
      {"datenpfad", [](House& h) { h.window.mnu2_pfad->trigger(); }},
      {"firma", [](House& h) { h.window.mnu2_fatext->trigger(); }},
      {"varios", [](House& h) { h.window.mnu2_tk->trigger(); }},
      {"dimum", [](House& h) { h.window.Command1(20).click(); }},
      {"info1", [](House& h) { h.window.Image1(0).click(); }},
      {"version", [](House& h) { h.window.mnu_version->trigger(); }},
      {"plausi", [](House& h) { h.window.mnu2_plausi->trigger(); }},
      {"plausi-unsicherheiten",
       [](House& h) {
         h.window.mnu2_plausi->trigger();
         shownWindow<plausi>()->SSTab1->setCurrentIndex(1);
       }},
      {"drucker-plausi",
       [](House& h) {
         h.window.mnu2_plausi->trigger();
         shownWindow<plausi>()->Command1(2).click();
       }},
      {"analysen", [](House& h) { h.overview(); }},
      {"overview-header-1", [](House& h) { h.overview().Label1(1).click(); }},
      {"drucker-uebersicht", [](House& h) { h.pressInOverview(3); }},
      {"overview-save", [](House& h) { h.pressInOverview(4); }},
      {"overview-project", [](House& h) { h.pressInOverview(5); }},
      {"message-save",
       [](House& h) { h.questions.ask(katalogMeldung(meldung::kVorherSpeichern)); }},
      {"runtime-error", [](House& h) { h.questions.reportError(u"13 werteingabe\\formz"_s); }},
  };
  return ways;
}

/// Opens a window and looks at it and at those that come with it, at a modal one while it is open.
/// Returns how many there were; all are closed again.
inline int lookAt(const WindowWay& way, House& house, const std::function<void(QWidget&)>& look) {
  int seen = 0;
  const auto lookAndClose = [&](QWidget* window) {
    if (window == nullptr) return;
    ++seen;
    window->activateWindow();
    House::settle();
    look(*window);
    window->close();
  };
  QTimer modal;
  QObject::connect(&modal, &QTimer::timeout,
                   [&] { lookAndClose(QApplication::activeModalWidget()); });
  modal.start(20);
  way.open(house);
  House::settle();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window != &house.window) lookAndClose(window);
  }
  return seen;
}

}  // namespace calvora
