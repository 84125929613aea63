// What is not saved when the program ends, and what the next start makes of it. The program is run
// again and again over one folder, in this process or in one that is killed while it types.
// CALVORA_KILLS is the number of kills (20), CALVORA_SEED what the typing is drawn from.
#include <sys/resource.h>
#include <sys/stat.h>

#include <QElapsedTimer>
#include <csignal>
#include <random>

#include "app/start_window.h"
#include "model/fields.h"
#include "storage/analysis_file.h"
#include "storage/recovery.h"
#include "support/tables.h"
#include "support/window_support.h"

using namespace calvora;

namespace {

const QString kSaveFirst = u" Daten vorher speichern ?"_s;

/// One run of the program, from its start on; destroyed without being closed it is like killed.
template <class Answers = ScriptedQuestions>
struct Run {
  explicit Run(const QString& folder) { program.programFolder = folder; }

  /// Starts, with a question first if something was left behind, and leaves the start window.
  void begin() {
    window.show();
    window.activateWindow();
    QTRY_VERIFY(shownWindow<start>() != nullptr);
    shownWindow<start>()->Command1(2).click();
    Mask::activate(window);
  }

  void enter(int box, const QString& text) {
    window.Text1(box).setFocus();
    Mask::settle();
    window.Text1(box).selectAll();
    for (const QChar c : text) QTest::keyClick(&window.Text1(box), c.toLatin1());
    QTest::keyClick(&window.Text1(box), Qt::Key_Enter);
  }

  /// What a user does and, behind a blank, what is answered to the question that it leads to.
  void act(const QString& words) {
    const QString what = words.section(' '_L1, 0, 0);
    const QString answer = words.section(' '_L1, 1);
    const Button button = answer == "Nein"_L1 ? Button::kNein : Button::kAbbrechen;
    if (!answer.isEmpty()) questions.expect(kSaveFirst, button);
    if (what == "type"_L1) enter(1, u"480"_s);
    if (what == "more"_L1) enter(3, u"20"_s);
    if (what == "project"_L1) program.record.flag[flag::kStatus].clear();
    if (what == "save"_L1) saveAnalysis(program, program.programFolder + u"/a.cva"_s, u"a"_s);
    if (what == "new"_L1) window.mnu_neustart->trigger();
    if (what == "close"_L1) window.close();
    if (what == "end"_L1 || what == "ask"_L1) {
      QCOMPARE(window.endSession(what == "ask"_L1),
               button != Button::kAbbrechen || answer.isEmpty());
    }
    if (what == "quit"_L1) {
      QEvent quit(QEvent::Quit);
      QCoreApplication::sendEvent(qApp, &quit);
      QCOMPARE(desktop.ended, 1);
    }
    Mask::settle();
  }

  Answers questions;
  RecordingDesktop desktop;
  Program program;
  main window{program, questions, desktop};
};

QStringList filesIn(const QString& folder) {
  return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

/// Everything that is offered in a folder, each answered alike; what cannot be read whole has a
/// question mark.
QStringList offered(const QString& folder, Button answer = Button::kAbbrechen) {
  QStringList seen;
  Recovery recovery(folder, [] {});
  recovery.offer([&](const LeftAnalysis& left) {
    seen += QFileInfo(left.path).fileName() + (left.complete ? u""_s : u"?"_s);
    return answer;
  });
  return seen;
}

/// Puts a program's analysis into a folder, as a run that was killed leaves it.
void leave(const QString& folder, Program& program) {
  program.unsaved = true;
  Recovery recovery(folder, [] {});
  recovery.offer([](const LeftAnalysis&) { return Button::kAbbrechen; });
  recovery.keep(program);
}

Program sample() {
  Program program;
  program.record.value[2] = FixedPoint::tryFromDouble(7.5).value();
  program.record.text[2] = u"7,5000"_s;
  program.header[kopf::kProbe] = u"Keller"_s;
  program.header[kopf::kProbenahme] = u"12.10.2026"_s;
  program.file = {u"/daten/Wässer, \"Ω\" 100%/a.cva"_s, QByteArray("\0,\"%", 4)};
  return program;
}

// ---- The kills ----

/// What the process that is killed writes before it goes on: a state, behind its length and time.
void tell(const QByteArray& state) {
  const qint64 now = QDateTime::currentMSecsSinceEpoch();
  const QByteArray line = QByteArray::number(state.size()) + ' ' + QByteArray::number(now) + '\n';
  const QByteArray all = line + state;
  require(write(1, all.constData(), static_cast<size_t>(all.size())) == all.size(), "no pipe");
}

/// Takes the offer, and tells the state that it leads to before it is kept.
struct TypistQuestions : AnyQuestions {
  Button ask(const Message& message) override {
    if (message.title == "Wiederherstellung"_L1) later();
    return AnyQuestions::ask(message);
  }
  std::function<void()> later;
};

/// Types random numbers into random boxes, one each 50 to 400 ms, until the process is killed.
int typeUntilKilled(const QString& folder, unsigned seed) {
  std::mt19937 random(seed);
  const auto below = [&](unsigned end) { return static_cast<int>(random() % end); };
  Run<TypistQuestions> run(folder);
  // Behind what finishes the entry, and before what keeps it, which has a low priority.
  const auto tellSoon = [&] {
    const auto state = [&] { tell(analysisContent(run.program, run.program.header[0])); };
    QMetaObject::invokeMethod(&run.window, state, Qt::QueuedConnection);
  };
  run.questions.later = tellSoon;
  run.begin();
  for (;;) {
    const std::span<const int> boxes = typedFields();
    const int box = boxes[static_cast<size_t>(below(static_cast<unsigned>(boxes.size())))];
    QString number = QString::number(below(10'000) / std::pow(10, below(4)), 'g', 4);
    run.enter(box, number.replace('.'_L1, ','_L1));
    tellSoon();
    QTest::qWait(50 + below(351));
  }
}

struct State {
  QByteArray content;
  qint64 time = 0;
};

QList<State> statesFrom(const QByteArray& told) {
  QList<State> states;
  for (qsizetype at = 0; at < told.size();) {
    const qsizetype end = told.indexOf('\n', at);
    const QList<QByteArray> line = told.mid(at, end - at).split(' ');
    const qsizetype size = line.front().toLongLong();
    states += {told.mid(end + 1, size), line.back().toLongLong()};
    at = end + 1 + size;
  }
  return states;
}

}  // namespace

class RecoveryTest : public QObject {
  Q_OBJECT

 private slots:
  void whatNobodyWasAskedAboutIsOffered_data() {
    rows(
        "type=>cvra1.rec | type;project;close=>cvra1.rec | type;end;quit=>cvra1.rec | "
        "type;quit=>cvra1.rec | "
        "type;close Nein=> | type;save;close=> | type;new Nein;close=> | close=> | "
        "type;ask Nein;quit=> | type;ask Nein;close Nein=> | type;ask Nein;more=>cvra1.rec | "
        "type;ask Nein;more;quit=>cvra1.rec | "
        "type;ask abbrechen;close abbrechen=>cvra1.rec | type;save;ask;quit=>");
  }
  void whatNobodyWasAskedAboutIsOffered() {
    QFETCH(QStringList, given);
    const QTemporaryDir folder;
    {
      Run run(folder.path());
      run.begin();
      for (const QString& words : given) run.act(words);
      QCOMPARE(run.questions.complaints(), QString());
    }
    QVERIFY(!filesIn(folder.path()).contains(u"cvra1.lock"_s));
    QTEST(offered(folder.path()).join(' '_L1), "expected");
  }

  void theAnswerDecidesWhatBecomesOfIt() {
    const QTemporaryDir folder;
    Program left = sample();
    leave(folder.path(), left);
    leave(folder.path(), left);
    const QStringList both{u"cvra1.rec"_s, u"cvra2.rec"_s};
    QCOMPARE(offered(folder.path()), both);
    QCOMPARE(offered(folder.path(), Button::kJa), both.first(1));
    std::optional<Run<>> kept(std::in_place, folder.path());
    Run<>& run = *kept;
    const QString time = QDateTime::currentDateTime().toString(u"dd.MM.yyyy hh:mm"_s);
    run.questions.expect(says(u"recover "_s + time), Button::kNein);
    run.questions.expect(says(u"recover "_s + time), Button::kJa);
    run.begin();
    QCOMPARE(run.questions.complaints(), QString());
    QCOMPARE(run.window.Text1(2).text(), left.record.text[2]);
    QCOMPARE(run.program.record.value[2], left.record.value[2]);
    QVERIFY(run.program.header == left.header && run.program.file == left.file);
    QVERIFY(run.program.unsaved && run.program.record.flag[flag::kStatus] == "1"_L1);
    QCOMPARE(filesIn(folder.path()), QStringList({u"cvra2.lock"_s, u"cvra2.rec"_s}));
    QVERIFY(offered(folder.path()).isEmpty());  // it runs
    run.act(u"close Nein"_s);
    kept.reset();
    QVERIFY(filesIn(folder.path()).filter(u"cvra"_s).isEmpty());
  }

  void whatIsCutOrRubbishIsToldAndReadAsFarAsItGoes() {
    const QTemporaryDir folder;
    Program left = sample();
    leave(folder.path(), left);
    const QString path = folder.filePath(u"cvra1.rec"_s);
    const QByteArray whole = bytesOf(path);
    QList<QByteArray> broken{QByteArray(100, '\0'), QByteArray(100, '"')};
    for (qsizetype size = 0; size < whole.size() - 2; ++size) broken += whole.first(size);
    for (const QByteArray& content : broken) {
      put(path, content);
      QCOMPARE(offered(folder.path()), QStringList(u"cvra1.rec?"_s));
      Program read;
      restoreAnalysis(read, {path, {}, {}, false}, [&] { read.resetRecord(); });
      QVERIFY(read.unsaved && read.file.path.isEmpty());
    }
    put(path, QByteArray(whole).replace("7.5", "x"));
    Run run(folder.path());
    const QString time = QFileInfo(path).lastModified().toString(u"dd.MM.yyyy hh:mm"_s);
    run.questions.expect(says(u"recover-part "_s + time), Button::kJa);
    run.begin();
    QCOMPARE(run.questions.complaints(), QString());
    QCOMPARE(run.program.header[kopf::kProbe], left.header[kopf::kProbe]);
  }

  void aLockIsBrokenOnlyOnceItsProcessHasEnded() {
    const QTemporaryDir folder;
    Program left = sample();
    leave(folder.path(), left);
    const QString path = folder.filePath(u"cvra1.lock"_s);
    const auto told = [&] { return Recovery(folder.path(), [] {}).otherInstance(); };
    QLockFile lock(path);
    QVERIFY(lock.lock());
    const QByteArray own = bytesOf(path);
    QFile file(path);
    QVERIFY(file.open(QFile::ReadWrite));
    file.setFileTime(QDateTime::currentDateTime().addYears(-1), QFile::FileModificationTime);
    QVERIFY(offered(folder.path()).isEmpty() && told().isEmpty());  // this very process
    lock.unlock();
    QList<QByteArray> lines = own.split('\n');
    lines[2] = "elsewhere";
    for (qsizetype i = 3; i < lines.size(); ++i) lines[i].clear();
    put(path, lines.join('\n'));
    QVERIFY(offered(folder.path()).isEmpty());
    QCOMPARE(told(), u"Calvora läuft auf diesem Ordner bereits (Rechner elsewhere)"_s);
    put(path, QByteArray(own).replace(0, own.indexOf('\n'), "999999999"));
    QCOMPARE(told(), QString());
    QCOMPARE(offered(folder.path()), QStringList(u"cvra1.rec"_s));
    QCOMPARE(filesIn(folder.path()), QStringList(u"cvra1.rec"_s));
  }

  void aFullDiskIsToldOnceAndTypingGoesOn() {
    const QTemporaryDir folder;
    Run run(folder.path());
    run.begin();
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit full{64, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    const ElidedLabel& notice = *run.window.noticeStatus;
    for (const QString& text : {u"480"_s, u"490"_s, u"500"_s}) {
      run.enter(1, text);
      Mask::settle();
      QTRY_COMPARE(notice.text(), u"Sicherung nicht möglich: Datenträger voll oder gestört"_s);
      QCOMPARE(run.program.record.text[1], text + u",0000"_s);
    }
    setrlimit(RLIMIT_FSIZE, &before);
    Mask::activate(run.window);
    QVERIFY(notice.isVisible());  // nothing is tried before the next entry
    run.enter(1, u"510"_s);
    QTRY_VERIFY(!notice.isVisible());
    QCOMPARE(run.questions.complaints(), QString());
  }

  void aFolderThatCannotBeWrittenIsTold() {
    const QTemporaryDir folder;
    chmod(qPrintable(folder.path()), 0555);
    const int result = asOrdinaryUser([&] {
      int changes = 0;
      Recovery recovery(folder.path(), [&] { ++changes; });
      recovery.offer([](const LeftAnalysis&) { return Button::kNein; });
      recovery.flush();
      if (!recovery.failure().isEmpty()) return 1;  // there is nothing to keep yet
      Program program = sample();
      program.unsaved = true;
      for (int i = 0; i < 3; ++i) recovery.keep(program);
      recovery.flush();
      QCoreApplication::processEvents();
      return recovery.failure().endsWith("Ordner nicht beschreibbar"_L1) && changes == 1 ? 0 : 2;
    });
    chmod(qPrintable(folder.path()), 0755);
    QCOMPARE(result, 0);
    QVERIFY(filesIn(folder.path()).isEmpty());
  }

  // The last state or the one before: older only where the next one is less than a second old,
  // which is the time that a disk has.
  void aKilledProgramLosesAtMostTheLastEntry() {
    const int kills = std::max(1, qEnvironmentVariable("CALVORA_KILLS", u"20"_s).toInt());
    const auto seed = qEnvironmentVariable("CALVORA_SEED", u"20261123"_s).toUInt();
    std::mt19937 random(seed);
    const QTemporaryDir folder;
    QList<State> states{{}};  // before the first: nothing
    int age[3]{};
    for (int round = 0; round < kills; ++round) {
      QProcess process;
      process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
      process.start(QCoreApplication::applicationFilePath(),
                    {u"type"_s, folder.path(), QString::number(random())});
      QVERIFY(process.waitForStarted());
      QVERIFY(!process.waitForFinished(static_cast<int>(random() % 2000)));
      const qint64 killed = QDateTime::currentMSecsSinceEpoch();
      process.kill();
      QVERIFY(process.waitForFinished() && process.exitStatus() == QProcess::CrashExit);
      states += statesFrom(process.readAllStandardOutput());

      QByteArray kept;
      {
        Recovery recovery(folder.path(), [] {});
        recovery.offer([&](const LeftAnalysis& left) {
          Program read;
          const bool whole = left.complete && readAnalysis(read, left.path, [] {});
          kept = whole ? bytesOf(left.path) : "not whole";
          kept.truncate(kept.indexOf("999,0,0\r\n") + 9);
          return Button::kAbbrechen;
        });
      }
      qsizetype found = states.size() - 1;
      while (found >= 0 && states[found].content != kept) --found;
      QVERIFY2(found >= 0, kept.isEmpty() ? "lost" : "a state that never was");
      const qsizetype behind = states.size() - 1 - found;
      QVERIFY2(behind <= 1 || killed - states[found + 1].time < 1000, "older than a second");
      ++age[std::min<qsizetype>(behind, 2)];
      QCOMPARE(filesIn(folder.path()).join(' '_L1), kept.isEmpty() ? QString() : u"cvra1.rec"_s);
      states = {states[found]};
    }
    qInfo("%d kills: %d left the last state, %d the one before, %d an older one", kills, age[0],
          age[1], age[2]);
  }
};

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  applyLook(application);
  if (argc == 4 && QByteArray(argv[1]) == "type") {
    return typeUntilKilled(QString::fromLocal8Bit(argv[2]), QByteArray(argv[3]).toUInt());
  }
  RecoveryTest test;
  return QTest::qExec(&test, argc, argv);
}
#include "recovery_test.moc"
