// What can go wrong with one file. What every operation writes is tested against the faults of a
// disk in ../faults.
#include "base/safe_write.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "support/files.h"
#include "support/tables.h"

using namespace calvora;

class SafeWriteTest : public QObject {
  Q_OBJECT

 private slots:
  void aSaveThatFailsLeavesEveryFileAsItWas_data() {
    // File, bytes to write, room on the disk (-1: enough) => runtime error. A hundred bytes wait in
    // a buffer until the end. Beside the long name there is room for no temporary one.
    rows<QString>(
        "old.cva 100 64=>61 | old.cva 100000 99999=>61 | new.cva 100 64=>61 | "
        "old.cva/a.cva 100 -1=>75 | folder 100 -1=>75 | read_only.cva 100 -1=>75 | "
        "long 100 -1=>75");
  }
  void aSaveThatFailsLeavesEveryFileAsItWas() {
    QFETCH(QString, given);
    const QTemporaryDir folder;
    const auto at = [&](const QString& name) { return folder.filePath(name); };
    const auto content = [&] {
      QStringList files;
      const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
      for (const auto& entry : QDir(folder.path()).entryInfoList(all)) {
        files += entry.filePath() + u": "_s + QString::fromLatin1(bytesOf(entry.filePath()));
      }
      return files;
    };
    QCOMPARE(chmod(qPrintable(folder.path()), 0777), 0);  // also for the ordinary user
    QVERIFY(QDir(folder.path()).mkdir(u"folder"_s));
    const QString longName(250, 'l'_L1);
    for (const QString& name : {u"old.cva"_s, u"read_only.cva"_s, longName}) {
      put(at(name), "old");
      chmod(qPrintable(at(name)), name.startsWith("read"_L1) ? 0444 : 0666);
    }
    const QStringList words = given.replace(u"long"_s, longName).split(u' ');
    const QStringList before = content();
    const int error = asOrdinaryUser([&] {
      const auto room = static_cast<rlim_t>(words.at(2).toLongLong());
      const rlimit limit{room, room};
      std::signal(SIGXFSZ, SIG_IGN);
      setrlimit(RLIMIT_FSIZE, &limit);
      return errorOf(
          [&] { writeFileSafely(at(words.at(0)), QByteArray(words.at(1).toInt(), 'n')); });
    });
    QTEST(QString::number(error), "expected");
    QCOMPARE(content(), before);
  }
};

QTEST_GUILESS_MAIN(SafeWriteTest)
#include "safe_write_test.moc"
