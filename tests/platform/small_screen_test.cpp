// Every window on a screen that is smaller than it, and at the resolutions of today's desktops.
#include <QPushButton>
#include <QScreen>

#include "support/all_windows.h"

using namespace calvora;
using namespace Qt::StringLiterals;

class SmallScreenTest : public QObject {
  Q_OBJECT

 private slots:
  void everyButtonCanBeReached() {
    look([](QWidget& window) {
      const QRect screen = window.screen()->availableGeometry();
      QVERIFY2(screen.contains(window.geometry()), qPrintable(window.windowTitle()));
      for (QPushButton* button : window.findChildren<QPushButton*>()) {
        const bool takesFocus = button->isEnabled() && button->focusPolicy() != Qt::NoFocus;
        if (!takesFocus || !button->isVisibleTo(&window)) continue;
        button->setFocus(Qt::TabFocusReason);
        House::settle();
        QVERIFY2(button->visibleRegion().contains(button->rect().center()),
                 qPrintable(button->text()));
      }
    });
  }

  void everyTextIsWhole() {
    look([](QWidget& window) { QCOMPARE(cutTexts(window), QStringList()); });
  }

 private:
  static void look(const std::function<void(QWidget&)>& at) {
    House house;
    at(house.window);
    for (const WindowWay& way : allWindows()) QVERIFY2(lookAt(way, house, at) > 0, way.name);
  }
};

CALVORA_TEST_MAIN(SmallScreenTest)
#include "small_screen_test.moc"
