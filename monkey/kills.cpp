// Kills the program at random moments while a script types. The next start offers the last state or
// the one before, whole, and nothing else is left behind; an older one only where the one after it
// is less than a second old, which is the time that a disk has.
// Usage: kills SEED KILLS
#include <QProcess>

#include "app/start_window.h"
#include "monkey_desktop.h"
#include "storage/recovery.h"
#include "support/window_support.h"

using namespace calvora;
using namespace calvora::monkey;

namespace {

/// Takes the offer.
struct TypistQuestions : AnyQuestions {
  Button ask(const Message& message) override {
    if (message.title == "Wiederherstellung"_L1) taken();
    return AnyQuestions::ask(message);
  }
  std::function<void()> taken;
};

/// Types random numbers into random boxes, one each 50 to 400 ms, until the process is killed. Each
/// state is put into a file that is called by its time, behind what finishes the entry and before
/// what keeps it, which has a low priority.
[[noreturn]] void typeUntilKilled(const QString& folder, const QDir& states, unsigned seed) {
  Dice dice(seed);
  TypistQuestions questions;
  RecordingDesktop desktop;
  Program program;
  program.programFolder = folder;
  main window(program, questions, desktop);
  const auto note = [&] {
    const QString time = QString::number(QDateTime::currentMSecsSinceEpoch());
    put(states.filePath(time), analysisContent(program, program.header[0]));
  };
  const auto noteSoon = [&] { QMetaObject::invokeMethod(&window, note, Qt::QueuedConnection); };
  questions.taken = noteSoon;
  window.show();
  window.activateWindow();
  require(QTest::qWaitFor([] { return shownWindow<start>() != nullptr; }), "no start window");
  shownWindow<start>()->Command1(2).click();
  Mask::activate(window);
  for (;; QTest::qWait(50 + dice.below(351))) {
    TextBox& box = window.Text1(dice.oneOf(typedFields()));
    box.setFocus();
    Mask::settle();
    box.selectAll();
    QString number = QString::number(dice.below(10'000) / std::pow(10, dice.below(4)), 'g', 4);
    QTest::keyClicks(&box, number.replace('.'_L1, ','_L1));
    QTest::keyClick(&box, Qt::Key_Enter);
    noteSoon();
  }
}

/// The analysis that the next start offers, or nothing.
QByteArray offered(const QString& folder) {
  QByteArray kept;
  Recovery(folder, [] {}).offer([&](const LeftAnalysis& left) {
    Program read;
    require(left.complete && readAnalysis(read, left.path, [] {}), "not whole", left.path);
    kept = bytesOf(left.path);
    kept.truncate(kept.indexOf("999,0,0\r\n") + 9);
    return Button::kAbbrechen;
  });
  const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
  const QString files = QDir(folder).entryList(all).join(' '_L1);
  require(files == (kept.isEmpty() ? QString() : u"cvra1.rec"_s), "something is left", files);
  return kept;
}

/// How many states were lost. Only the one that was found stays.
int statesLost(QDir states, const QByteArray& kept, qint64 killed) {
  QStringList times = states.entryList(QDir::Files, QDir::Name);
  qsizetype found = times.size() - 1;
  while (found >= 0 && bytesOf(states.filePath(times[found])) != kept) --found;
  require(found >= 0, "a state that never was", QString::fromLatin1(kept));
  const int lost = static_cast<int>(times.size() - 1 - found);
  require(lost <= 1 || killed - times[found + 1].toLongLong() < 1000, "older than a second");
  times.removeAt(found);
  for (const QString& time : times) states.remove(time);
  return lost;
}

}  // namespace

int main(int argc, char* argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const QStringList words = QApplication::arguments();
  if (words.size() == 4) typeUntilKilled(words[1], QDir(words[2]), words[3].toUInt());
  require(words.size() == 3, "Usage: kills SEED KILLS");
  Dice dice(words[1].toUInt());
  const QTemporaryDir folder;
  const QTemporaryDir states;
  put(states.filePath(u"0"_s), {});  // before the first there is nothing
  int lost[3]{};
  for (int round = 0; round < words[2].toInt(); ++round) {
    QProcess typist;
    typist.setProcessChannelMode(QProcess::ForwardedChannels);
    typist.start(words[0], {folder.path(), states.path(), QString::number(dice.below(1'000'000))});
    require(!typist.waitForFinished(dice.below(2000)), "the typist ends by itself");
    const qint64 killed = QDateTime::currentMSecsSinceEpoch();
    dice.percent(20) ? typist.terminate() : typist.kill();  // no signal is handled
    const bool ended = typist.waitForFinished();
    require(ended && typist.exitStatus() == QProcess::CrashExit, "the typist cannot be killed");
    ++lost[std::min(statesLost(QDir(states.path()), offered(folder.path()), killed), 2)];
  }
  require(!QFile::exists(states.filePath(u"0"_s)), "nothing was typed");
  std::printf("Seed %s: %d left the last state, %d the one before, %d an older one\n", argv[1],
              lost[0], lost[1], lost[2]);
  return 0;
}
