// The small windows, each once by mouse and once by keyboard.
#include "stops.h"
#include "tools/windows/info1.h"
#include "tools/windows/varios.h"
#include "tools/windows/version_window.h"
#include "tour.h"

using namespace Qt::StringLiterals;

namespace {

/// Walks into the second menu with the arrow keys and presses an entry by its letter.
void chooseExtra(Tour& tour, Qt::Key letter) {
  tour.activate();
  QTest::keyClick(&tour.window(), Qt::Key_E, Qt::AltModifier);
  QTest::qWait(20);
  QWidget* menu = QApplication::activePopupWidget();
  tour.require(menu != nullptr, u"the menu Extras"_s);
  if (menu != nullptr) QTest::keyClick(menu, letter);
  QTest::qWait(20);
}

void showVolume(Tour& tour) {
  chooseExtra(tour, Qt::Key_T);
  auto* window = dynamic_cast<calvora::varios*>(QApplication::activeWindow());
  tour.require(window != nullptr, u"the volume correction"_s);
  if (window == nullptr) return;
  tour.picture(*window, u"varios"_s);
  QTest::keyClicks(window->focusWidget(), u"200"_s);
  QTest::keyClick(window->focusWidget(), Qt::Key_Enter);
  QTest::keyClick(window->focusWidget(), Qt::Key_End);
  tour.require(window->Label3(1).text() == u"191,20"_s, u"the corrected volume"_s);
  tour.picture(*window, u"varios-200-ml"_s);
  QTest::mouseClick(window->Command1, Qt::LeftButton);
  tour.require(!window->isVisible(), u"the way back"_s);
}

void showInformation(Tour& tour) {
  tour.activate();
  tour.expectModal<calvora::info1>(u"info1"_s, [&](calvora::info1& window) {
    tour.picture(window, u"info1"_s);
    QTest::mouseClick(window.Command1, Qt::LeftButton);
  });
  QTest::mouseClick(&tour.window().Image1(0), Qt::LeftButton);
  tour.expectModal<calvora::info1>(u"info1 by keyboard"_s, [](calvora::info1& window) {
    QTest::keyClick(window.focusWidget(), Qt::Key_Enter);
  });
  tour.shortcut(Qt::Key_I);
}

void showVersion(Tour& tour) {
  tour.expectModal<calvora::Version>(u"version"_s, [&](calvora::Version& window) {
    tour.picture(window, u"version"_s);
    QTest::keyClick(&window, Qt::Key_Space);
  });
  chooseExtra(tour, Qt::Key_V);
  tour.expectModal<calvora::Version>(u"version by mouse"_s, [](calvora::Version& window) {
    QTest::mouseClick(window.Image1, Qt::LeftButton);
  });
  tour.window().mnu_version->trigger();
}

}  // namespace

void showSmallWindows(Tour& tour) {
  showVolume(tour);
  showInformation(tour);
  showVersion(tour);
}
