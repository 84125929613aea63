#include "platform/safe_write.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <optional>
#include <random>

#include "support/files.h"
#include "support/tables.h"

using namespace calvora;

class SafeWriteTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    folder_.emplace();
    QCOMPARE(chmod(qPrintable(folder_->path()), 0777), 0);  // also for the ordinary user
  }

  void aSaveThatFailsLeavesEveryFileAsItWas_data() {
    // File, bytes to write, room on the disk (-1: enough) => runtime error. Beside the long name
    // there is room for no temporary one, so that saving fails at its end.
    rows<QString>(
        "old.cva 100 64=>61 | old.cva 100000 64=>61 | old.cva 100000 99999=>61 | "
        "new.cva 100 64=>61 | missing/a.cva 100 -1=>75 | old.cva/a.cva 100 -1=>75 | "
        "locked 100 -1=>75 | locked/old.cva 100 -1=>75 | locked/new.cva 100 -1=>75 | "
        "read_only.cva 100 -1=>75 | long 100 -1=>75");
  }
  void aSaveThatFailsLeavesEveryFileAsItWas() {
    QFETCH(QString, given);
    QVERIFY(QDir(folder_->path()).mkdir(u"locked"_s));
    const QByteArray longName(250, 'l');
    for (const char* file : {"old.cva", "locked/old.cva", "read_only.cva", longName.constData()}) {
      put(file, "old");
      const bool readOnly = QLatin1String(file).startsWith("read"_L1);
      chmod(qPrintable(at(file)), readOnly ? 0444 : 0666);
    }
    chmod(qPrintable(at("locked")), 0555);
    const QStringList words = given.replace(u"long"_s, QLatin1String(longName)).split(u' ');
    const QStringList before = content();
    const int error = asOrdinaryUser([&] {
      const auto room = static_cast<rlim_t>(words.at(2).toLongLong());
      const rlimit limit{room, room};
      std::signal(SIGXFSZ, SIG_IGN);
      setrlimit(RLIMIT_FSIZE, &limit);
      return errorOf([&] {
        writeFileSafely(at(qPrintable(words.at(0))), QByteArray(words.at(1).toInt(), 'n'));
      });
    });
    chmod(qPrintable(at("locked")), 0755);
    QTEST(QString::number(error), "expected");
    QCOMPARE(content(), before);
  }

  void aProcessKilledWhileSavingLeavesACompleteFile() {
    const QByteArray versions[]{QByteArray(100'000, 'a'), QByteArray(130'000, 'b')};
    const QString path = at("saved.cva");
    writeFileSafely(path, versions[0]);
    std::mt19937 random(20261122);
    int found[]{0, 0};
    for (unsigned round = 0; round < 200; ++round) {
      const pid_t child = startChild([&] {
        return errorOf([&] {
          for (unsigned i = round;; ++i) writeFileSafely(path, versions[i % 2]);
        });
      });
      QVERIFY(child > 0);
      usleep(1000 + static_cast<useconds_t>(random() % 19000));
      kill(child, SIGKILL);
      int status = 0;
      waitpid(child, &status, 0);
      QVERIFY2(WIFSIGNALED(status), "saving failed before the process was killed");
      const QByteArray file = bytesOf(path);
      QVERIFY2(file == versions[0] || file == versions[1], "a part of a version");
      ++found[file == versions[1] ? 1 : 0];
    }
    QVERIFY(found[0] > 0 && found[1] > 0);  // the kills came at different moments
    const qsizetype files = content().size();
    writeFileSafely(path, "later");
    QCOMPARE(bytesOf(path), "later");
    QCOMPARE(content().size(), files);
  }

 private:
  QString at(const char* name) const { return folder_->filePath(QString::fromUtf8(name)); }

  void put(const char* name, const QByteArray& bytes) const { calvora::put(at(name), bytes); }

  /// All files with their bytes.
  QStringList content() const {
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    const QDir folder(folder_->path());
    QStringList content;
    for (const auto& entry : folder.entryInfoList(all) + QDir(at("locked")).entryInfoList(all)) {
      content += entry.filePath() + u": "_s + QString::fromLatin1(bytesOf(entry.filePath()));
    }
    return content;
  }

  std::optional<QTemporaryDir> folder_;
};

QTEST_GUILESS_MAIN(SafeWriteTest)
#include "safe_write_test.moc"
