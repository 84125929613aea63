// The rules behind the small windows: volume correction, version texts.
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "tools/temperaturkorrektur.h"
#include "tools/versionstexte.h"

using namespace calvora;
using namespace Qt::StringLiterals;

class SmallToolsTest : public QObject {
  Q_OBJECT

 private slots:
  void aVolumeIsCorrectedTo20Degrees() {
    QStringList corrected;
    for (int t = 0; t < temperaturListe().size(); ++t) {
      const auto [volume, factor] = korrigiertesVolumen(u"100 ml"_s, t);
      corrected += temperaturListe()[t] + ' '_L1 + volume + ' '_L1 + factor;
    }
    QCOMPARE(
        corrected,
        QStringList({u"20 °C 100,00 1,000"_s, u"30 °C 99,74 0,997"_s, u"40 °C 99,39 0,994"_s,
                     u"50 °C 98,98 0,990"_s, u"60 °C 98,50 0,985"_s, u"70 °C 97,95 0,980"_s,
                     u"80 °C 97,36 0,974"_s, u"90 °C 96,70 0,967"_s, u"100 °C 95,60 0,956"_s}));
    QCOMPARE(volumenListe().size(), 20);
    QCOMPARE(volumenListe().first() + volumenListe().last(), u"10 ml200 ml"_s);
  }

  void onlyAVolumeHasAFactor() {
    for (const QString& volume : {u"0 ml"_s, u"ml"_s, QString()}) {
      const auto [corrected, factor] = korrigiertesVolumen(volume, 1);
      QCOMPARE(corrected + '|'_L1 + factor, u"|"_s);
    }
  }

  void theGradientEndsAtFullGreen() {
    constexpr Farbverlauf kSteep{.start = {0, 80, 0}, .end = {0, 300, 29}};
    const Rgb last = kSteep.colour(999, 1000);
    QCOMPARE((QList{last.red, last.green, last.blue}), (QList{0, 255, 29}));
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
};

QTEST_APPLESS_MAIN(SmallToolsTest)
#include "small_tools_test.moc"
