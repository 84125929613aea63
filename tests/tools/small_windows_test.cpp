// Titration volume, information and version, opened from the main window.
#include "support/window_support.h"
#include "tools/info1.h"
#include "tools/varios.h"
#include "tools/version_window.h"

using namespace calvora;
using namespace Qt::StringLiterals;

class SmallWindowsTest : public QObject {
  Q_OBJECT

 private slots:
  void theVolumeIsCorrectedAsSoonAsItIsChosen() {
    Mask mask;
    mask.window.mnu2_tk->trigger();
    mask.window.mnu2_tk->trigger();  // brings up the window that is open
    const auto open = mask.window.findChildren<varios*>();
    QCOMPARE(open.size(), 1);
    varios* window = open[0];
    QVERIFY(!window->isModal());
    const auto shown = [&] { return window->Label3(1).text() + ' '_L1 + window->Label3(2).text(); };
    QCOMPARE(window->Combo1->currentText() + window->Combo2->currentText(), u"50 ml20 °C"_s);
    QCOMPARE(shown(), u"50,00 1,000"_s);
    QVERIFY(QTest::qWaitForWindowActive(window));
    QCOMPARE(window->focusWidget(), window->Combo1);
    QTest::keyClick(window->Combo1, Qt::Key_Enter);
    QTest::keyClick(window->focusWidget(), Qt::Key_Down);
    QCOMPARE(shown(), u"49,87 0,997"_s);
    QTest::keyClick(window->Combo2, Qt::Key_End);
    QTest::keyClick(window->Combo1, Qt::Key_End);
    QCOMPARE(shown(), u"191,20 0,956"_s);
    QTest::keyClick(window->Combo2, Qt::Key_Enter);
    QTest::keyClick(window->focusWidget(), Qt::Key_Enter);
    QVERIFY(!window->isVisible());
  }

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

  void clickAndKeyCloseTheVersion() {
    Mask mask;
    mask.program.today = [] { return QDate(2026, 5, 4); };
    const auto openAnd = [&](const std::function<void(Version&)>& close) {
      bool closed = false;
      onNextModal<Version>(this, [&](Version& window) {
        close(window);
        closed = !window.isVisible();
        window.close();
      });
      mask.window.mnu_version->trigger();
      QVERIFY(closed);
    };
    openAnd([](Version& window) {
      QCOMPARE(window.Label1(6).text(), u"2017/2026"_s);
      QVERIFY(window.Label1(4).geometry().right() < window.Label1(0).x());
      const QImage image = window.grab().toImage();
      QVERIFY(image.pixelColor(2, image.height() - 1).green() <= 82);
      QVERIFY(image.pixelColor(2, 0).green() > 140);
      QTest::mouseClick(&window, Qt::LeftButton);
    });
    openAnd([](Version& window) { QTest::mouseClick(window.Image1, Qt::RightButton); });
    openAnd([](Version& window) { QTest::mouseClick(&window.Label1(2), Qt::LeftButton); });
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Tab, Qt::Key_A, Qt::Key_F1}) {
      openAnd([key](Version& window) { QTest::keyClick(&window, key); });
    }
  }
};

CALVORA_TEST_MAIN(SmallWindowsTest)
#include "small_windows_test.moc"
