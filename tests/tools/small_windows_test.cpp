// Information and version, opened from the main window.
#include "support/window_support.h"
#include "tools/windows/info1.h"
#include "tools/windows/version_window.h"

using namespace calvora;
using namespace Qt::StringLiterals;

class SmallWindowsTest : public QObject {
  Q_OBJECT

 private slots:
  void theInformationIsShownOnceAndWhole() {
    Mask mask;
    int seen = 0;
    const auto check = [](const info1& window) {
      const QListWidget& list = *window.List1;
      QCOMPARE(list.count(), 12);
      QVERIFY(list.isVisible());
      QCOMPARE(window.width(), qRound(9200 * window.logicalDpiX() / 1440.0));
      const QFontMetrics metrics(list.font());
      for (int row = 0; row < 12; ++row) {
        const QString text = list.item(row)->text();
        QVERIFY(metrics.horizontalAdvance(text) < list.viewport()->width());
        QCOMPARE(metrics.horizontalAdvance(text.left(20)),
                 metrics.horizontalAdvance(QString(text.left(20).size(), ' '_L1)));
      }
      QVERIFY(list.visualItemRect(list.item(11)).bottom() < list.viewport()->height());
    };
    const auto expect = [&](Qt::Key key) {
      onNextModal<info1>(this, [&, key](info1& window) {
        ++seen;
        check(window);
        QTest::keyClick(window.focusWidget(), key);
      });
    };
    for (const int picture : {0, 7}) {
      expect(Qt::Key_Escape);
      QTest::mouseClick(&mask.window.Image1(picture), Qt::LeftButton);
    }
    // From the keyboard, too; a value that is still being typed is finished first.
    mask.activate();
    mask.focus(1);
    mask.keys(u"420"_s);
    expect(Qt::Key_Enter);
    mask.press(Qt::Key_I, Qt::ControlModifier);
    QCOMPARE(seen, 3);
    QCOMPARE(mask.window.Text1(1).text(), u"420,0000"_s);
  }

  void anyClickOrKeyClosesTheVersion() {
    Mask mask;
    Version window(mask.program, &mask.window);
    const auto closes = [&](const std::function<void()>& act) {
      window.show();
      act();
      return !window.isVisible();
    };
    QVERIFY(closes([&] { QTest::mouseClick(&window, Qt::LeftButton); }));
    QVERIFY(closes([&] { QTest::mouseClick(window.Image1, Qt::RightButton); }));
    QVERIFY(closes([&] { QTest::mouseClick(&window.Label1(2), Qt::LeftButton); }));
    QVERIFY(closes([&] { QTest::keyClick(&window, Qt::Key_Tab); }));
    QVERIFY(closes([&] { QTest::keyClick(&window, Qt::Key_F1); }));
    QVERIFY(window.Label1(4).geometry().right() < window.Label1(0).x());
    const QImage image = window.grab().toImage();  // green, darker towards the bottom
    QVERIFY(image.pixelColor(2, image.height() - 1).green() <= 82);
    QVERIFY(image.pixelColor(2, 0).green() > 140);
  }
};

CALVORA_TEST_MAIN(SmallWindowsTest)
#include "small_windows_test.moc"
