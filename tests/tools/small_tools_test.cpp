// The rules behind the small windows: volume correction, version texts, gradient.
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "support/scripted_questions.h"
#include "tools/temperaturkorrektur.h"
#include "tools/versionstexte.h"

using namespace calvora;
using namespace Qt::StringLiterals;

class SmallToolsTest : public QObject {
  Q_OBJECT

 private slots:
  /// The same in whole numbers: expansion in 1/100 ‰, V20 in 1/100000 ml; half is rounded up.
  void everyVolumeIsCorrectedAtEveryTemperature() {
    ScriptedQuestions questions;
    const Werteingabe entry(questions);
    const auto text = [](int rounded, int decimals) {
      const QString digits = QString::number(rounded).rightJustified(decimals + 1, '0'_L1);
      return digits.chopped(decimals) + ','_L1 + digits.right(decimals);
    };
    const QList<int> expansion{0, 260, 610, 1020, 1500, 2050, 2640, 3300, 4400};
    QCOMPARE(volumenListe().size(), 20);
    QCOMPARE(temperaturListe().size(), 9);
    for (int t = 0; t < 9; ++t) {
      QCOMPARE(temperaturListe()[t], QString::number(20 + 10 * t) + u" °C"_s);
      const int factor = 100000 - expansion[t];
      for (int volume = 10; volume <= 200; volume += 10) {
        const QString entered = volumenListe()[volume / 10 - 1];
        QCOMPARE(entered, QString::number(volume) + u" ml"_s);
        const KorrigiertesVolumen result = korrigiertesVolumen(entry, entered, t);
        QCOMPARE(result.volumen, text((volume * factor + 500) / 1000, 2));
        QCOMPARE(result.faktor, text((factor + 50) / 100, 3));
      }
    }
    QCOMPARE(questions.complaints(), QString());
  }

  void onlyAVolumeHasAFactor() {
    ScriptedQuestions questions;
    const Werteingabe entry(questions);
    for (const QString& volume : {u"0 ml"_s, u"ml"_s, QString()}) {
      const auto [corrected, factor] = korrigiertesVolumen(entry, volume, 1);
      QCOMPARE(corrected + '|'_L1 + factor, u"|"_s);
    }
  }

  void theBuildMonthIsThatOfTheFile() {
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"programm"_s));
    QVERIFY(file.open(QFile::WriteOnly));
    const QDateTime lastMinute(QDate(2021, 3, 31), QTime(23, 59));
    QVERIFY(file.setFileTime(lastMinute, QFile::FileModificationTime));
    QCOMPARE(vdate(file.fileName()), u"03-2021"_s);
    QCOMPARE(vdate(folder.filePath(u"fehlt"_s)), QString());
    QCOMPARE(versionsnummer(2, 0, 7), u"2.0 /7"_s);
  }

  void theGradientEndsWhereAColourIsFull() {
    const Farbverlauf green{.start = {0, 80, 0}, .end = {0, 300, 29}};
    QCOMPARE(green.colour(0, 1000), (Rgb{0, 80, 0}));
    QCOMPARE(green.colour(400, 1000), (Rgb{0, 168, 12}));
    QCOMPARE(green.colour(793, 1000), (Rgb{0, 254, 23}));
    QCOMPARE(green.colour(800, 1000), (Rgb{0, 255, 23}));
    QCOMPARE(green.colour(999, 1000), (Rgb{0, 255, 29}));
  }
};

QTEST_APPLESS_MAIN(SmallToolsTest)
#include "small_tools_test.moc"
