// Everything that the program writes, under everything that can go wrong with a disk, and one file
// under what can go wrong with it. What the windows then say is tested with them.
#include <sys/resource.h>
#include <sys/stat.h>

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QTemporaryDir>
#include <csignal>
#include <random>

#include "base/safe_write.h"
#include "platform/paper.h"
#include "storage/analysis_file.h"
#include "storage/project_file.h"
#include "storage/settings.h"
#include "support/files.h"
#include "support/tables.h"

using namespace calvora;

namespace {

constexpr char kOperations[] = "cva=> | cvp=> | settings=> | pdf=>";

/// What the program writes, in two versions.
struct Work {
  Work(const QString& what, const QString& folder, int version)
      : operation(what),
        path(folder + '/'_L1 + (what == "settings"_L1 ? u"cvra.ini"_s : u"old."_s + what)),
        text(20'000 + 20'000 * version, 'r'_L1) {}

  void write() const {
    Program program;
    program.header[kopf::kBemerkung] = text;
    if (operation == "cva"_L1) writeFileSafely(path, analysisContent(program, u"a"_s));
    if (operation == "cvp"_L1) writeFileSafely(path, projectContent({program.header, {}}, u"a"_s));
    if (operation == "settings"_L1) {
      program.settings.slot[setting::kDataFolder] = text;
      writeSettings(program.settings, QFileInfo(path).path(), setting::kDataFolder);
    }
    if (operation == "pdf"_L1) {
      PdfPaper paper(path, text, reportPage(false));
      QPainter(&paper.device()).drawLine(0, 0, 100, 100);
      paper.deliver();
    }
  }

  QString operation;
  QString path;
  QString text;
};

/// Everything in a folder, files with their bytes.
QStringList content(const QString& folder) {
  QStringList content;
  const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
  for (const QFileInfo& entry : QDir(folder).entryInfoList(all)) {
    const QByteArray bytes = entry.isFile() ? bytesOf(entry.filePath()) : "no file";
    content += entry.fileName() + u": "_s + QString::fromLatin1(bytes);
  }
  return content;
}

/// The error of an ordinary user's write on a disk with room for so many bytes of a file.
int errorWithRoom(rlim_t room, const std::function<void()>& write) {
  return asOrdinaryUser([&] {
    const rlimit limit{room, room};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
    return errorOf(write);
  });
}

}  // namespace

class FaultsTest : public QObject {
  Q_OBJECT

 private slots:
  void whatCannotBeWrittenLeavesTheOldFile_data() { rows<QString>(kOperations); }
  void whatCannotBeWrittenLeavesTheOldFile() {
    QFETCH(QString, given);
    for (const QString& fault : {u"full disk"_s, u"read-only folder"_s, u"vanished folder"_s}) {
      const QTemporaryDir folder;
      const bool full = fault == "full disk"_L1;
      const bool vanished = fault == "vanished folder"_L1;
      Work work(given, vanished ? folder.filePath(u"gone"_s) : folder.path(), 1);
      if (!vanished) work.write();
      chmod(qPrintable(work.path), 0666);  // also for the ordinary user
      const QStringList before = content(folder.path());
      chmod(qPrintable(folder.path()), fault == "read-only folder"_L1 ? 0555 : 0777);
      work.text += u"new"_s;
      const int error = errorWithRoom(full ? 64 : RLIM_INFINITY, [&] { work.write(); });
      chmod(qPrintable(folder.path()), 0755);
      QVERIFY2(error == (full ? 61 : 75), qPrintable(fault));
      QVERIFY2(content(folder.path()) == before, qPrintable(fault));
      QCOMPARE(before.isEmpty(), vanished);
    }
  }

  void aFileThatCannotBeWrittenStaysAsItWas_data() {
    // File, bytes to write, room on the disk (-1: enough) => runtime error. A hundred bytes wait in
    // a buffer until the end.
    rows<QString>(
        "old.cva 100 64=>61 | old.cva 100000 99999=>61 | new.cva 100 64=>61 | "
        "old.cva/a.cva 100 -1=>75 | folder 100 -1=>75 | read_only.cva 100 -1=>75 | "
        "fifo 100 -1=>75 | loop 100 -1=>75");
  }
  void aFileThatCannotBeWrittenStaysAsItWas() {
    QFETCH(QString, given);
    const QTemporaryDir folder;
    QCOMPARE(chmod(qPrintable(folder.path()), 0777), 0);  // also for the ordinary user
    QVERIFY(QDir(folder.path()).mkdir(u"folder"_s));
    const QByteArray fifo = folder.filePath(u"fifo"_s).toUtf8();
    QVERIFY(mkfifo(fifo.constData(), 0666) == 0 && chmod(fifo.constData(), 0666) == 0);
    QVERIFY(QFile::link(u"loop"_s, folder.filePath(u"loop"_s)));
    for (const QString& name : {u"old.cva"_s, u"read_only.cva"_s}) {
      put(folder.filePath(name), "old");
      chmod(qPrintable(folder.filePath(name)), name.startsWith("read"_L1) ? 0444 : 0666);
    }
    const QStringList words = given.split(' '_L1);
    const QStringList before = content(folder.path());
    const auto room = static_cast<rlim_t>(words.at(2).toLongLong());
    const int error = errorWithRoom(room, [&] {
      writeFileSafely(folder.filePath(words.at(0)), QByteArray(words.at(1).toInt(), 'n'));
    });
    QTEST(QString::number(error), "expected");
    QCOMPARE(content(folder.path()), before);
  }

  void aFileThatIsReplacedStaysWhatItWas() {
    const QTemporaryDir folder;
    chmod(qPrintable(folder.path()), 0777);  // also for the ordinary user
    umask(022);
    const QString longName = folder.filePath(QString(255, 'l'_L1));
    const QString link = folder.filePath(u"link"_s);
    QVERIFY(QFile::link(longName, link));
    const auto write = [&] { return errorOf([&] { writeFileSafely(link, "new"); }); };
    // First there is none; the last one has a group that its writer cannot pass on: his own may
    // then do what everybody may.
    for (const QString& mode : {u"644"_s, u"640"_s, u"664"_s}) {
      const bool foreign = mode == "664"_L1 && getuid() == 0;
      outputOf(u"chmod"_s, {mode, longName});
      if (foreign) outputOf(u"chown"_s, {u"65534:12345"_s, longName});
      QCOMPARE(foreign ? asOrdinaryUser(write) : write(), 0);
      const QString found = outputOf(u"stat"_s, {u"-c%a"_s, longName}).trimmed();
      QCOMPARE(found, foreign ? u"644"_s : mode);
    }
    QCOMPARE(content(folder.path()).size(), 2);
  }

  void aKilledProcessLeavesACompleteFile_data() { rows<QString>(kOperations); }
  void aKilledProcessLeavesACompleteFile() {
    QFETCH(QString, given);
    const QTemporaryDir folder;
    const auto leftovers = [&] {
      return QDir(folder.path()).entryList({u".calvora-*"_s}, QDir::Files | QDir::Hidden);
    };
    const Work versions[]{{given, folder.path(), 0}, {given, folder.path(), 1}};
    // A PDF file tells when it was made, so that only its end shows that it is whole.
    const auto version = [&] {
      const QByteArray file = bytesOf(versions[0].path);
      if (given == "pdf"_L1 && !file.endsWith("%%EOF\n")) return QByteArray("a part");
      return QByteArray::number(file.size() / 1000 * 1000);
    };
    versions[1].write();
    const QByteArray second = version();
    versions[0].write();
    QList<QByteArray> seen{version(), second};
    QVERIFY(seen[0] != seen[1]);
    QSet<QByteArray> found;
    std::mt19937 random(20261123);
    // However long a write takes here, some of the kills come after one and some within one.
    const auto missing = [&] { return found.size() < 2 || leftovers().isEmpty(); };
    for (unsigned round = 0; round < 40 || (missing() && round < 400); ++round) {
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
    // What they left is removed by the first write after an hour, and nothing else is.
    QVERIFY(!leftovers().isEmpty());
    const QString foreign = u".calvora-00000000-00000000"_s;
    put(folder.filePath(foreign), "of another file");
    for (const QString& age : {u"59 minutes ago"_s, u"61 minutes ago"_s}) {
      const QStringList before = leftovers();
      QDir::setCurrent(folder.path());
      outputOf(u"touch"_s, QStringList{u"-d"_s, age} + before);
      versions[0].write();
      QCOMPARE(leftovers(), age.startsWith("59"_L1) ? before : QStringList{foreign});
    }
    QCOMPARE(version(), seen[0]);
  }
};

QTEST_MAIN(FaultsTest)
#include "faults_test.moc"
