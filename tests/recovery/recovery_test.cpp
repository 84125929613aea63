// What is not saved when the program ends, and what the next start makes of it. The program is run
// again and again over one folder; monkey/kills.cpp kills it.
#include <sys/resource.h>
#include <sys/stat.h>

#include <QScopeGuard>
#include <csignal>

#include "app/start_window.h"
#include "storage/analysis_file.h"
#include "storage/recovery.h"
#include "support/tables.h"
#include "support/window_support.h"

using namespace calvora;

namespace {

/// One run of the program, from its start on; destroyed without being closed it is like killed.
struct Run {
  explicit Run(const QString& folder) { program.programFolder = folder; }
  ~Run() { QCOMPARE(questions.complaints(), QString()); }

  /// Starts, with a question first if something was left behind, and leaves the start window.
  void begin() {
    window.show();
    window.activateWindow();
    QTRY_VERIFY(shownWindow<start>() != nullptr);
    shownWindow<start>()->Command1(2).click();
    Mask::activate(window);
    Mask::settle();
  }

  void enter(int box, const QString& text) {
    window.Text1(box).setFocus();
    window.Text1(box).selectAll();
    QTest::keyClicks(&window.Text1(box), text);
    QTest::keyClick(&window.Text1(box), Qt::Key_Enter);
    Mask::settle();
  }

  /// What a user does and, behind a blank, what is answered to the question that it leads to.
  void act(const QString& words) {
    const QString what = words.section(' '_L1, 0, 0);
    const bool asked = words != what;
    const bool no = words.endsWith("Nein"_L1);
    if (asked) questions.expect(says(u"save-first"_s), no ? Button::kNein : Button::kAbbrechen);
    if (what == "type"_L1) enter(1, u"480"_s);
    if (what == "more"_L1) enter(3, u"20"_s);
    if (what == "project"_L1) program.record.flag[flag::kStatus].clear();
    if (what == "save"_L1) saveAnalysis(program, program.programFolder + u"/a.cva"_s, u"a"_s);
    if (what == "new"_L1) window.mnu_neustart->trigger();
    if (what == "close"_L1) window.close();
    if (what == "end"_L1 || what == "ask"_L1)
      QCOMPARE(window.endSession(what == "ask"_L1), no || !asked);
    QEvent quit(QEvent::Quit);
    if (what == "quit"_L1) QCoreApplication::sendEvent(qApp, &quit);
    QCOMPARE(desktop.ended, what == "quit"_L1 || (what == "close"_L1 && (no || !asked)) ? 1 : 0);
    Mask::settle();
  }

  ScriptedQuestions questions;
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

/// Puts an analysis into a folder, as a run that was killed leaves it.
Program leave(const QString& folder) {
  Program program;
  program.record.value[2] = FixedPoint::tryFromDouble(7.5).value();
  program.record.text[2] = u"7,5000"_s;
  program.header[kopf::kProbe] = u"Keller"_s;
  program.header[kopf::kProbenahme] = u"12.10.2026"_s;
  program.file = {u"/daten/Wässer, \"Ω\" 100%/a.cva"_s, QByteArray("\0,\"%", 4)};
  program.unsaved = true;
  Recovery recovery(folder, [] {});
  recovery.offer([](const LeftAnalysis&) { return Button::kAbbrechen; });
  recovery.keep(program);
  return program;
}

}  // namespace

class RecoveryTest : public QObject {
  Q_OBJECT

 private slots:
  void whatNobodyWasAskedAboutIsOffered_data() {
    rows(
        "type=>cvra1.rec | type;project;close=>cvra1.rec | "
        "type;project;new;close=>cvra1.rec | type;project;new;type;close Nein=>cvra1.rec | "
        "type;end;quit=>cvra1.rec | "
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
    }
    QVERIFY(!filesIn(folder.path()).contains(u"cvra1.lock"_s));
    QTEST(offered(folder.path()).join(' '_L1), "expected");
  }

  void theAnswerDecidesWhatBecomesOfIt() {
    const QTemporaryDir folder;
    leave(folder.path());
    const Program left = leave(folder.path());
    const QStringList both{u"cvra1.rec"_s, u"cvra2.rec"_s};
    QCOMPARE(offered(folder.path()), both);
    QCOMPARE(offered(folder.path(), Button::kJa), both.first(1));
    auto kept = std::make_unique<Run>(folder.path());
    Run& run = *kept;
    const QString time = QDateTime::currentDateTime().toString(u"dd.MM.yyyy hh:mm"_s);
    run.questions.expect(says(u"recover "_s + time), Button::kNein);
    run.questions.expect(says(u"recover "_s + time), Button::kJa);
    run.begin();
    QCOMPARE(run.window.Text1(2).text(), left.record.text[2]);
    QCOMPARE(run.program.record.value[2], left.record.value[2]);
    QVERIFY(run.program.header == left.header && run.program.file == left.file);
    QVERIFY(run.program.unsaved && run.program.record.flag[flag::kStatus] == "1"_L1);
    QVERIFY(!run.window.history().stack.canUndo());  // an undo would lose it
    QTRY_COMPARE(filesIn(folder.path()), QStringList({u"cvra2.lock"_s, u"cvra2.rec"_s}));
    QVERIFY(offered(folder.path()).isEmpty());  // it runs
    run.act(u"close Nein"_s);
    kept.reset();
    QVERIFY(filesIn(folder.path()).filter(u"cvra"_s).isEmpty());
  }

  void whatIsCutOrRubbishIsToldAndReadAsFarAsItGoes() {
    const QTemporaryDir folder;
    const Program left = leave(folder.path());
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
    QCOMPARE(run.program.header[kopf::kProbe], left.header[kopf::kProbe]);
  }

  void aLockIsBrokenOnlyOnceItsProcessHasEnded() {
    const QTemporaryDir folder;
    leave(folder.path());
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

  void whatCannotBeKeptIsToldAndTypingGoesOn_data() {
    rows(
        "full=>Der Datenträger ist voll oder gestört. | "
        "read-only=>Ordner oder Datei lassen sich nicht beschreiben.");
  }
  void whatCannotBeKeptIsToldAndTypingGoesOn() {
    QFETCH(QStringList, given);
    QFETCH(QString, expected);
    const bool full = given[0] == "full"_L1;
    const QTemporaryDir folder;
    std::signal(SIGXFSZ, SIG_IGN);
    const auto setFault = [&](bool fault) {  // of a disk, or of a user without rights
      const rlimit limit{fault && full ? 64 : RLIM_INFINITY, RLIM_INFINITY};
      setrlimit(RLIMIT_FSIZE, &limit);
      if (getuid() == 0) QCOMPARE(seteuid(0), 0);
      chmod(qPrintable(folder.path()), fault && !full ? 0555 : 0755);
      if (getuid() == 0 && fault && !full) QCOMPARE(seteuid(65534), 0);
    };
    const auto healed = qScopeGuard([&] { setFault(false); });
    setFault(true);
    Run run(folder.path());
    run.begin();
    const ElidedLabel& notice = *run.window.noticeStatus;
    QVERIFY(!notice.isVisible());  // there is nothing to keep yet
    for (const QString& text : {u"480"_s, u"490"_s, u"500"_s}) {
      run.enter(1, text);
      QTRY_COMPARE(notice.text(), u"Automatische Sicherung nicht möglich: "_s + expected);
      QCOMPARE(run.program.record.text[1], text + u",0000"_s);
    }
    QTRY_COMPARE(filesIn(folder.path()), QStringList());
    setFault(false);
    Mask::activate(run.window);
    QVERIFY(notice.isVisible());  // nothing is tried before the next entry
    run.enter(1, u"510"_s);
    QTRY_VERIFY(!notice.isVisible());
  }
};

CALVORA_TEST_MAIN(RecoveryTest)
#include "recovery_test.moc"
