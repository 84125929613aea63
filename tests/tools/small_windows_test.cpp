// Volume correction, information and version.
#include "support/window_support.h"
#include "tools/temperaturkorrektur.h"
#include "tools/windows/info1.h"
#include "tools/windows/version_window.h"

using namespace calvora;
using namespace Qt::StringLiterals;

class SmallWindowsTest : public QObject {
  Q_OBJECT

 private slots:
  void aVolumeIsCorrectedTo20Degrees() {
    QStringList corrected;
    for (int t = 0; t < temperaturListe().size(); ++t) {
      const auto [volume, factor] = korrigiertesVolumen(u"100 ml"_s, t);
      corrected += temperaturListe()[t] + ' '_L1 + volume + ' '_L1 + factor;
    }
    QCOMPARE(corrected.join(u"; "_s),
             u"20 °C 100,00 1,000; 30 °C 99,74 0,997; 40 °C 99,39 0,994; 50 °C 98,98 0,990; "
             "60 °C 98,50 0,985; 70 °C 97,95 0,980; 80 °C 97,36 0,974; 90 °C 96,70 0,967; "
             "100 °C 95,60 0,956"_s);
    for (const QString& none : {u"0 ml"_s, u"ml"_s, QString()}) {  // then there is no factor
      const auto [volume, factor] = korrigiertesVolumen(none, 1);
      QVERIFY(volume.isEmpty() && factor.isEmpty());
    }
  }

  void theInformationIsShownOnceAndWhole() {
    Mask mask;
    int seen = 0;
    const auto expect = [&](Qt::Key key) {
      onNextModal<info1>(this, [&, key](info1& window) {
        ++seen;
        const QListWidget& list = *window.List1;
        QVERIFY(list.isVisible());
        QCOMPARE(window.width(), qRound(9200 * window.logicalDpiX() / 1440.0));
        const QFontMetrics metrics(list.font());
        for (int row = 0; row < list.count(); ++row) {
          const QString text = list.item(row)->text();
          QVERIFY(metrics.horizontalAdvance(text) < list.viewport()->width());
          QCOMPARE(metrics.horizontalAdvance(text.left(20)),
                   metrics.horizontalAdvance(QString(text.left(20).size(), ' '_L1)));
        }
        QVERIFY(list.visualItemRect(list.item(list.count() - 1)).bottom() <
                list.viewport()->height());
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

  void theVersionTellsItsBuildAndClosesOnAnyClickOrKey() {
    QCoreApplication::setApplicationVersion(u"2.0.17"_s);
    Version window(QDate(2026, 1, 1), nullptr);
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
    QCOMPARE(window.Label1(4).text(), u"2.0 /17"_s);
    QVERIFY(window.Label1(4).geometry().right() < window.Label1(0).x());
    const QImage image = window.grab().toImage();  // green, darker towards the bottom
    const auto colour = [&](int y) { return image.pixelColor(2, y); };
    QVERIFY(colour(image.height() - 1).green() <= 82 && colour(0).green() > 140);
    QVERIFY(colour(0).red() == 0 && colour(0).green() < 155 && colour(0).blue() < 12);
    QTemporaryDir folder;
    QFile file(folder.filePath(u"programm"_s));
    QVERIFY(file.open(QFile::WriteOnly));
    const QDateTime lastMinute(QDate(2021, 3, 31), QTime(23, 59));
    QVERIFY(file.setFileTime(lastMinute, QFile::FileModificationTime));
    QCOMPARE(Version::vdate(file.fileName()), u"03-2021"_s);
    QCOMPARE(Version::vdate(folder.filePath(u"fehlt"_s)), QString());
  }
};

CALVORA_TEST_MAIN(SmallWindowsTest)
#include "small_windows_test.moc"
