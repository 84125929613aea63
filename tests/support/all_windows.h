#pragma once

#include <QApplication>
#include <QDir>

#include "app/start_window.h"
#include "dialogs/windows/dialog_questions.h"
#include "overview/windows/analysen.h"
#include "support/files.h"
#include "support/window_support.h"

namespace calvora {

/// A mask whose questions are windows, and whose file dialogs choose an example analysis.
struct House : BasicMask<DialogQuestions> {
  House() {
    desktop.file = folder.filePath(QStringLiteral("a"));
    const QString example = QStringLiteral("/daten/leitungswasser-fuellung.cva");
    put(desktop.file + QStringLiteral(".cva"),
        bytesOf(QCoreApplication::applicationDirPath() + example));
    program.settings.slot[setting::kDataFolder] = QDir::tempPath();
    window.takeOver(1, QStringLiteral("420"));
  }

  analysen* overview() {
    window.mnu2_ana->trigger();
    return shownWindow<analysen>();
  }
};

/// A window of the program and how it is opened. A modal one returns when it is closed.
struct WindowWay {
  const char* name;  ///< of its picture in the tour
  std::function<void(House&)> open;
};

/// All windows beside the main one, by all ways.
inline const std::vector<WindowWay>& allWindows() {
  const auto inOverview = [](int button) {
    return [button](House& house) {
      analysen* overview = house.overview();
      overview->Label1(1).click();
      overview->Command1(button).click();
    };
  };
  static const std::vector<WindowWay> ways{
      {"start", [](House& h) { (new start(h.window, h.desktop))->show(); }},
      {"dateien-save", [](House& h) { h.window.mnu_save->trigger(); }},
      {"dateien-loaded",
       [](House& h) {
         h.program.record.flag[flag::kStatus].clear();  // nothing to ask about
         h.window.mnu_load->trigger();
       }},
      {"drucker", [](House& h) { h.window.mnu_drucken->trigger(); }},
      {"datenpfad", [](House& h) { h.window.mnu2_pfad->trigger(); }},
      {"firma", [](House& h) { h.window.mnu2_fatext->trigger(); }},
      {"varios", [](House& h) { h.window.mnu2_tk->trigger(); }},
      {"dimum", [](House& h) { h.window.Command1(20).click(); }},
      {"info1", [](House& h) { h.window.Image1(0).click(); }},
      {"version", [](House& h) { h.window.mnu_version->trigger(); }},
      {"analysen", [](House& h) { h.overview(); }},
      {"overview-header-1", [](House& h) { h.overview()->Label1(1).click(); }},
      {"drucker-uebersicht", inOverview(3)},
      {"overview-save", inOverview(4)},
      {"overview-project", inOverview(5)},
      {"message-save",
       [](House& h) {
         h.questions.ask({.text = QStringLiteral("eine Frage mit drei Antworten"),
                          .buttons = Button::kJa | Button::kNein | Button::kAbbrechen,
                          .title = QStringLiteral("Titel"),
                          .symbol = Symbol::kQuestion});
       }},
      {"runtime-error",
       [](House& h) { h.questions.reportError(QStringLiteral("13 werteingabe\\formz")); }},
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
