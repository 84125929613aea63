// Everything that the program writes, under everything that can go wrong with a disk. What the
// windows then say is tested with them.
#include <sys/resource.h>
#include <sys/stat.h>

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <random>

#include "platform/paper.h"
#include "storage/analysis_file.h"
#include "storage/project_file.h"
#include "storage/settings.h"
#include "support/files.h"
#include "support/tables.h"

using namespace calvora;

namespace {

/// What the program writes, in two versions.
struct Work {
  /// The file that an operation writes.
  static QString file(const QString& operation) {
    return operation == "settings"_L1 ? u"cvra.ini"_s : u"old."_s + operation;
  }

  Work(const QString& operation, const QString& folder, int version)
      : path(folder + '/'_L1 + file(operation)) {
    program.header[7] = QString(20'000 + 20'000 * version, 'r'_L1);
    program.settings.slot[setting::kDataFolder] = program.header[7];
    if (operation == "cva"_L1) write = [this] { writeAnalysis(program, path, path); };
    if (operation == "cvp"_L1) write = [this] { writeProject(program, {}, path, path); };
    if (operation == "settings"_L1) {
      write = [this] { writeSettings(program.settings, QFileInfo(path).path()); };
    }
    if (operation == "pdf"_L1) {
      write = [this] {
        PdfPaper paper(path, program.header[7], reportPage(false));
        QPainter(&paper.device()).drawLine(0, 0, 100, 100);
        paper.deliver();
      };
    }
  }

  Program program;
  QString path;
  std::function<void()> write;
};

/// Every file of a folder with its bytes.
QStringList content(const QString& folder) {
  QStringList content;
  for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files | QDir::Hidden)) {
    content += file.fileName() + u": "_s + QString::fromLatin1(bytesOf(file.filePath()));
  }
  return content;
}

}  // namespace

class FaultsTest : public QObject {
  Q_OBJECT

 private slots:
  void whatCannotBeWrittenLeavesTheOldFile_data() {
    addRows(
        uR"(
        full disk
        cva      | 61
        cvp      | 61
        settings | 61
        pdf      | 61
        read-only folder
        cva      | 75
        cvp      | 75
        settings | 75
        pdf      | 75
        vanished folder
        cva      | 75
        cvp      | 75
        settings | 75
        pdf      | 75
    )"_s);
  }
  void whatCannotBeWrittenLeavesTheOldFile() {
    QFETCH(QString, group);
    QFETCH(QStringList, row);
    const QString fault = group.trimmed();
    const QTemporaryDir folder;
    const bool vanished = fault == "vanished folder"_L1;
    Work work(row[0], vanished ? folder.filePath(u"gone"_s) : folder.path(), 1);
    if (!vanished) work.write();
    chmod(qPrintable(work.path), 0666);  // also for the ordinary user
    const QStringList before = content(folder.path());
    chmod(qPrintable(folder.path()), fault == "read-only folder"_L1 ? 0555 : 0777);
    const int error = asOrdinaryUser([&] {
      const rlimit limit{64, 64};
      std::signal(SIGXFSZ, SIG_IGN);
      if (fault == "full disk"_L1) setrlimit(RLIMIT_FSIZE, &limit);
      work.program.header[7] += u"new"_s;
      work.program.settings.slot[setting::kDataFolder] += u"new"_s;
      return errorOf(work.write);
    });
    chmod(qPrintable(folder.path()), 0755);
    QCOMPARE(QString::number(error), row[1]);
    QCOMPARE(content(folder.path()), before);
    QCOMPARE(before.isEmpty(), vanished);
  }

  void aKilledProcessLeavesACompleteFile_data() {
    QTest::addColumn<QString>("operation");
    for (const char* operation : {"cva", "cvp", "settings", "pdf"}) {
      QTest::newRow(operation) << QString::fromLatin1(operation);
    }
  }
  void aKilledProcessLeavesACompleteFile() {
    QFETCH(QString, operation);
    const QTemporaryDir folder;
    Work versions[]{{operation, folder.path(), 0}, {operation, folder.path(), 1}};
    // A PDF file tells when it was made, so that only its end shows that it is whole.
    const auto version = [&] {
      const QByteArray file = bytesOf(versions[0].path);
      if (operation == "pdf"_L1 && !file.endsWith("%%EOF\n")) return QByteArray("a part");
      return QByteArray::number(file.size() / 1000 * 1000);
    };
    versions[1].write();
    const QByteArray second = version();
    versions[0].write();
    QList<QByteArray> seen{version(), second};
    QVERIFY(seen[0] != seen[1]);
    QSet<QByteArray> found;
    std::mt19937 random(20261123);
    // However long a write takes here, some of the kills come after one.
    for (unsigned round = 0; round < 40 || (found.size() < 2 && round < 400); ++round) {
      const pid_t child = startChild([&] {
        return errorOf([&] {
          for (unsigned i = round;; ++i) versions[i % 2].write();
        });
      });
      QVERIFY(child > 0);
      usleep(1000 + static_cast<useconds_t>(random() % (19000 + 1000 * round)));
      kill(child, SIGKILL);
      int status = 0;
      waitpid(child, &status, 0);
      QVERIFY2(WIFSIGNALED(status), "saving failed before the process was killed");
      found += version();
      QVERIFY2(seen.contains(version()), "a part of a version");
    }
    QCOMPARE(found.size(), 2);  // the kills came at different moments
    const qsizetype files = content(folder.path()).size();
    versions[0].write();
    QCOMPARE(version(), seen[0]);
    QCOMPARE(content(folder.path()).size(), files);
  }
};

QTEST_MAIN(FaultsTest)
#include "faults_test.moc"
