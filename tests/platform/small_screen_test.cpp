// Every window on a screen that is smaller than it, and at the resolutions of today's desktops.
#include <QPushButton>
#include <QScreen>

#include "support/all_windows.h"

using namespace calvora;
using namespace Qt::StringLiterals;

class SmallScreenTest : public QObject {
  Q_OBJECT

 private slots:
  void everyButtonCanBeReached_data() { windows(); }
  void everyButtonCanBeReached() {
    look([](QWidget& window) {
      const QRect screen = window.screen()->availableGeometry();
      QVERIFY2(screen.contains(window.geometry()), "the window leaves the screen");
      for (QPushButton* button : window.findChildren<QPushButton*>()) {
        if (!button->isVisibleTo(&window) || !button->isEnabled()) continue;
        if (button->focusPolicy() == Qt::NoFocus) continue;
        button->setFocus(Qt::TabFocusReason);
        House::settle();
        QVERIFY2(button->visibleRegion().contains(button->rect().center()),
                 qPrintable(button->text()));
      }
    });
  }

  void everyTextIsWhole_data() { windows(); }
  void everyTextIsWhole() {
    look([](QWidget& window) { QCOMPARE(cutTexts(window), QStringList()); });
  }

 private:
  static void windows() {
    QTest::addColumn<int>("way");
    QTest::newRow("main") << -1;
    for (int way = 0; way < std::ssize(allWindows()); ++way) {
      QTest::newRow(allWindows().at(way).name) << way;
    }
  }

  static void look(const std::function<void(QWidget&)>& at) {
    QFETCH(const int, way);
    House house;
    if (way < 0) return at(house.window);
    QVERIFY2(lookAt(allWindows().at(way), house, at) > 0, "no window came");
  }
};

CALVORA_TEST_MAIN(SmallScreenTest)
#include "small_screen_test.moc"
