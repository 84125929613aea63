// Saving, loading and settings through the real windows.
#include <sys/resource.h>

#include <QCalendarWidget>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QWheelEvent>
#include <csignal>

#include "storage/windows/dateien.h"
#include "support/files.h"
#include "support/window_support.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

const QString kSaveQuestion = u" Daten vorher speichern ?"_s;

const QByteArray kSmallFile =
    "\"brunnen\"\r\n\"Projekt A\"\r\n\"7\"\r\n\"Probe\"\r\n\"Caf\xE9\"\r\n\"03.02.2026\"\r\n"
    "\"05.02.2026\"\r\n\"nass\"\r\n\"ende\"\r\n1,420,\"420,0000\"\r\n20,10.6868,\"10,7\"\r\n"
    "23,60,\"60,0\"\r\n24,10,\"10,0\"\r\n";

}  // namespace

class StorageWindowsTest : public QObject {
  Q_OBJECT

 private slots:
  void anAnalysisIsSavedWithItsHeader();
  void aSaveThatFailsLeavesTheWindowOpen_data();
  void aSaveThatFailsLeavesTheWindowOpen();
  void anotherExtensionIsReplaced_data();
  void anotherExtensionIsReplaced();
  void theSamplingDateCanBeRemovedAndSetAgain();
  void aLoadedAnalysisShowsItsHeaderAndKeepsItsHardness();
  void loadingTellsWhatItCouldNotRead_data();
  void loadingTellsWhatItCouldNotRead();
  void aLoadedAnalysisIsSavedAgainWithItsDates();
  void theExamplesLoadWithoutAMessage();
  void noCommandDropsChangesUnasked_data();
  void noCommandDropsChangesUnasked();
  void theFileDialogsSpeakGermanAndAskBeforeReplacing();
};

void StorageWindowsTest::anAnalysisIsSavedWithItsHeader() {
  QTemporaryDir folder;
  Mask mask;
  mask.program.today = [] { return QDate(2026, 11, 22); };
  mask.program.settings.slot[setting::kDataFolder] = folder.path();
  mask.enter(1, u"420"_s);
  mask.desktop.paths = {folder.filePath(u"brunnen.cva"_s)};
  onNextModal<Dateien>(this, [](Dateien& window) {
    QCOMPARE(window.windowTitle(), u"  Daten - laden / speichern"_s);
    QTest::keyClicks(window.Text1, u"Projekt \"A\""_s);
    QTest::keyClick(window.Text1, Qt::Key_Enter);
    QCOMPARE(window.focusWidget(), window.Text2);
    for (TextBox* field : {window.Text2, window.Text3, window.Text4}) {
      QTest::keyClicks(field, u" x\" "_s);
      field->insert(u"\"€"_s);  // as pasted
      QTest::keyClick(field, Qt::Key_Enter);
    }
    QCOMPARE(window.focusWidget(), window.Text7);
    QTest::keyClicks(window.Text7, u"Wasser \"aus"_s);
    QGuiApplication::clipboard()->setText(u"\ndem \"Keller\""_s);
    window.Text7->paste();
    QTest::keyClick(window.Text7, Qt::Key_Enter);
    QCOMPARE(window.focusWidget(), window.Command1);
    QTest::keyClick(window.Command1, Qt::Key_Enter);
  });
  mask.press(Qt::Key_S, Qt::ControlModifier);
  QCOMPARE(bytesOf(folder.filePath(u"brunnen.cva"_s)),
           QByteArray("\"brunnen\"\r\n\"Projekt A\"\r\n\"x \x80\"\r\n\"x \x80\"\r\n\"x "
                      "\x80\"\r\n\"22.11.2026\"\r\n"
                      "\"22.11.2026\"\r\n\"Wasser aus dem Keller\"\r\n\"ende\"\r\n"
                      "1,420,\"420,0000\"\r\n10,0,\"n.b.\"\r\n999,0,0\r\n"));
  QCOMPARE(mask.desktop.requests.front().folder, folder.path());
  QCOMPARE(mask.program.record.flag[flag::kStatus], QString());
  QVERIFY(!mask.program.dataPresent);
  QVERIFY(mask.window.close());
}

void StorageWindowsTest::aSaveThatFailsLeavesTheWindowOpen_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<bool>("told");
  QTest::newRow("cancelled") << QString() << false;
  QTest::newRow("folder gone") << u"fort/brunnen.cva"_s << true;
  QTest::newRow("a folder in the way") << u"ordner.cva"_s << true;
  QTest::newRow("a remark that no file can hold") << u"lang.cva"_s << true;
  QTest::newRow("disk full") << u"alt.cva"_s << true;
}

void StorageWindowsTest::aSaveThatFailsLeavesTheWindowOpen() {
  QFETCH(QString, name);
  QFETCH(bool, told);
  QTemporaryDir folder;
  QVERIFY(QDir(folder.path()).mkpath(u"ordner.cva/darin"_s));
  put(folder.filePath(u"alt.cva"_s), "alt");
  Mask mask;
  mask.enter(1, u"420"_s);
  mask.program.record.flag[flag::kNameLine] = u"vorher"_s;
  if (!name.isEmpty()) mask.desktop.paths = {folder.filePath(name)};
  rlimit room{};
  getrlimit(RLIMIT_FSIZE, &room);
  std::signal(SIGXFSZ, SIG_IGN);
  onNextModal<Dateien>(this, [&](Dateien& window) {
    if (name == "lang.cva"_L1) window.Text7->setPlainText(QString(70000, 'x'_L1));
    const rlimit full{64, room.rlim_max};
    if (name == "alt.cva"_L1) setrlimit(RLIMIT_FSIZE, &full);
    window.Command1->click();
    setrlimit(RLIMIT_FSIZE, &room);
    QVERIFY(window.isVisible());
    QCOMPARE(window.findChild<QLabel*>(u"failure"_s)->isVisible(), told);
    QCOMPARE(cutTexts(window), QStringList());
    window.Command2->click();
  });
  mask.press(Qt::Key_S, Qt::ControlModifier);
  QCOMPARE(mask.program.record.flag[flag::kStatus], u"1"_s);
  QCOMPARE(mask.program.record.flag[flag::kNameLine], u"vorher"_s);
  QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
           (QStringList{u"alt.cva"_s, u"ordner.cva"_s}));
  QCOMPARE(bytesOf(folder.filePath(u"alt.cva"_s)), QByteArray("alt"));
}

void StorageWindowsTest::anotherExtensionIsReplaced_data() {
  QTest::addColumn<QString>("chosen");
  QTest::addColumn<QString>("written");
  QTest::addColumn<Buttons>("answer");
  QTest::newRow("none") << u"probe"_s << u"probe.cva"_s << Buttons();
  QTest::newRow("another") << u"probe.txt.alt"_s << u"probe.cva"_s << Buttons();
  QTest::newRow("a folder with a point") << u"ab.cd/probe"_s << u"ab.cd/probe.cva"_s << Buttons();
  QTest::newRow("onto an existing file") << u"da.txt"_s << u"da.cva"_s << Buttons(Button::kJa);
  QTest::newRow("a blank behind it") << u"da.cva "_s << QString() << Buttons(Button::kNein);
  QTest::newRow("other letters") << u"DA.CVA"_s << u"DA.cva"_s << Buttons();
  QTest::newRow("other letters of a file") << u"GROSS.CVA"_s << u"GROSS.CVA"_s << Buttons();
  QTest::newRow("not onto an existing file") << u"da.txt"_s << QString() << Buttons(Button::kNein);
}

void StorageWindowsTest::anotherExtensionIsReplaced() {
  QFETCH(QString, chosen);
  QFETCH(QString, written);
  QFETCH(Buttons, answer);
  QTemporaryDir folder;
  QVERIFY(QDir(folder.path()).mkpath(u"ab.cd"_s));
  put(folder.filePath(u"da.cva"_s), "alt");
  put(folder.filePath(u"GROSS.CVA"_s), "alt");
  Mask mask;
  mask.enter(1, u"420"_s);
  mask.desktop.paths = {folder.filePath(chosen)};
  if (answer) {
    mask.questions.expect(
        u" Die Datei \n\r da.cva\n\r ist schon vorhanden. Soll sie ersetzt werden ? "_s,
        static_cast<Button>(answer.toInt()));
  }
  onNextModal<Dateien>(this, [](Dateien& window) {
    window.Command1->click();
    if (window.isVisible()) window.reject();
  });
  mask.press(Qt::Key_S, Qt::ControlModifier);
  if (written.isEmpty()) {
    QCOMPARE(bytesOf(folder.filePath(u"da.cva"_s)), QByteArray("alt"));
  } else {
    QVERIFY(bytesOf(folder.filePath(written)).endsWith("999,0,0\r\n"));
  }
}

void StorageWindowsTest::theSamplingDateCanBeRemovedAndSetAgain() {
  Mask mask;
  mask.program.today = [] { return QDate(2026, 11, 22); };
  mask.program.header[5] = u"03.02.2026"_s;
  Dateien window(mask.program, mask.questions, mask.desktop, &mask.window);
  window.show();
  QCOMPARE(window.DTPicker1->date(), QDate(2026, 2, 3));
  QCOMPARE(window.DTPicker1->maximumDate(), QDate(2026, 11, 22));
  // Neither the wheel on its way over the form nor typed digits change it unseen.
  QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                    false);
  QCoreApplication::sendEvent(window.DTPicker1, &wheel);
  QTest::keyClicks(window.DTPicker1, u"31"_s);
  QTest::keyClicks(window.DTPicker1->calendarWidget(), u"15"_s);
  QCOMPARE(window.DTPicker1->date(), QDate(2026, 2, 3));
  QCOMPARE(window.DTPicker1->calendarWidget()->firstDayOfWeek(), Qt::Monday);
  window.Label8->click();
  QVERIFY(!window.DTPicker1->isVisible());
  QCOMPARE(window.Label8->text(), u"setzen"_s);
  window.Command1->click();  // cancelled, but the header is kept
  QCOMPARE(mask.program.header[5], QString());
  window.Label8->click();
  QVERIFY(window.DTPicker1->isVisible());
  window.Command1->click();
  QCOMPARE(mask.program.header[5], u"03.02.2026"_s);
}

void StorageWindowsTest::aLoadedAnalysisShowsItsHeaderAndKeepsItsHardness() {
  QTemporaryDir folder;
  const QString path = folder.filePath(u"brunnen.cva"_s);
  put(path, kSmallFile);
  Mask mask;
  mask.focus(20);
  mask.focus(1);  // the field last left is the total hardness
  mask.desktop.paths = {folder.filePath(u"gibt es nicht.cva"_s), path};
  onNextModal<Dateien>(this, [](Dateien& window) {
    QCOMPARE(window.Text4->text(), u"Café"_s);  // what cannot be typed stays
    QCOMPARE(window.Text6->text(), u"05.02.2026"_s);
    QCOMPARE(window.Text7->toPlainText(), u"nass"_s);
    QCOMPARE(window.DTPicker1->date(), QDate(2026, 2, 3));
    QVERIFY(!window.DTPicker1->isEnabled() && !window.Label8->isVisible());
    QVERIFY(window.Text1->isEnabled());
    QTest::keyClick(window.Text1, Qt::Key_Escape);
  });
  mask.press(Qt::Key_O, Qt::ControlModifier);
  QCOMPARE(mask.desktop.requests.size(), 2U);
  QCOMPARE(mask.window.Text1(1).text(), u"420,0000"_s);
  for (const auto& [box, text] :
       {std::pair{20, u"10,7"_s}, std::pair{23, u"60,0"_s}, std::pair{24, u"10,0"_s}}) {
    QCOMPARE(mask.window.Text1(box).text(), text);
  }
  QVERIFY(mask.window.close());  // nothing unsaved
}

void StorageWindowsTest::loadingTellsWhatItCouldNotRead_data() {
  QTest::addColumn<QByteArray>("content");
  QTest::addColumn<QString>("conductivity");
  QTest::newRow("cut in a record")
      << kSmallFile.left(kSmallFile.indexOf("23,60") + 3) << u"420,0000"_s;
  QTest::newRow("cut in the header") << kSmallFile.left(40) << QString();
  for (const char* date : {"31.02.2026", "+1.+2.2026", "01.02.0099", "heute"}) {
    QTest::newRow(date) << QByteArray(kSmallFile).replace("03.02.2026", date) << u"420,0000"_s;
  }
}

void StorageWindowsTest::loadingTellsWhatItCouldNotRead() {
  QFETCH(QByteArray, content);
  QTemporaryDir folder;
  put(folder.filePath(u"a.cva"_s), content);
  Mask mask;
  mask.desktop.paths = {folder.filePath(u"a.cva"_s)};
  mask.questions.expect(u" Die Datei konnte nicht vollständig gelesen werden ! "_s);
  onNextModal<Dateien>(this, [](Dateien& window) { window.reject(); });
  mask.press(Qt::Key_O, Qt::ControlModifier);
  QTEST(mask.window.Text1(1).text(), "conductivity");
}

void StorageWindowsTest::aLoadedAnalysisIsSavedAgainWithItsDates() {
  QTemporaryDir folder;
  const QString path = folder.filePath(u"brunnen.cva"_s);
  put(path, kSmallFile);
  Mask mask;
  mask.desktop.paths = {path, path};
  onNextModal<Dateien>(this, [](Dateien& window) { window.Command1->click(); });
  mask.press(Qt::Key_O, Qt::ControlModifier);
  QCOMPARE(mask.desktop.requests.back().proposed, u"brunnen"_s);
  QCOMPARE(bytesOf(path).left(kSmallFile.indexOf("1,420")),
           kSmallFile.left(kSmallFile.indexOf("1,420")));
  // What cannot be opened leaves the analysis that is there, and says so.
  mask.desktop.paths = {folder.path()};
  mask.questions.expect(u" Die Datei konnte nicht vollständig gelesen werden ! "_s);
  mask.activate();
  mask.press(Qt::Key_O, Qt::ControlModifier);
  QCOMPARE(mask.window.Text1(1).text(), u"420,0000"_s);
  QCOMPARE(mask.program.header[1], u"Projekt A"_s);
}

/// Also one after another: nothing of one water may show beside the next.
void StorageWindowsTest::theExamplesLoadWithoutAMessage() {
  const QFileInfoList examples = QDir(QStringLiteral(CALVORA_EXAMPLES)).entryInfoList(QDir::Files);
  QVERIFY(examples.size() >= 4);
  const auto load = [&](Mask& mask, const QFileInfo& example) {
    mask.desktop.paths = {example.filePath()};
    onNextModal<Dateien>(this, [](Dateien& window) { window.reject(); });
    mask.activate();
    mask.press(Qt::Key_O, Qt::ControlModifier);
    QStringList texts;
    for (const auto& [index, label] : mask.window.Label2) texts += label->text();
    return texts;
  };
  Mask used;
  for (qsizetype i = 0; i < 2 * examples.size(); ++i) {
    const QFileInfo& example = examples[i % examples.size()];
    Mask fresh;
    const QStringList texts = load(fresh, example);
    QVERIFY(!fresh.window.Label2(11).text().isEmpty());
    QCOMPARE(load(used, example), texts);
  }
}

void StorageWindowsTest::noCommandDropsChangesUnasked_data() {
  QTest::addColumn<QString>("command");
  QTest::addColumn<Button>("answer");
  QTest::addColumn<bool>("cancelled");
  for (const QString& command : {u"load"_s, u"restart"_s, u"close"_s}) {
    for (const Button answer : {Button::kJa, Button::kNein, Button::kAbbrechen}) {
      for (const bool cancelled : {false, true}) {
        const bool hasDialog = answer == Button::kJa || command == "load"_L1;
        if (cancelled && (!hasDialog || answer == Button::kAbbrechen)) continue;
        QTest::addRow("%s %d %d", qPrintable(command), static_cast<int>(answer), cancelled ? 1 : 0)
            << command << answer << cancelled;
      }
    }
  }
}

/// "Ja" saves and stops there; so does cancelling, without saving. The file dialog that follows may
/// be cancelled too.
void StorageWindowsTest::noCommandDropsChangesUnasked() {
  QFETCH(QString, command);
  QFETCH(Button, answer);
  QFETCH(bool, cancelled);
  QTemporaryDir folder;
  const QString old = folder.filePath(u"alt.cva"_s);
  const QString saved = folder.filePath(u"neu.cva"_s);
  put(old, kSmallFile);
  Mask mask;
  mask.keys(u"500"_s);  // not left yet
  mask.questions.expect(kSaveQuestion, answer);
  const bool saves = answer == Button::kJa;
  const bool loads = answer == Button::kNein && command == "load"_L1 && !cancelled;
  if (!cancelled && (saves || loads)) mask.desktop.paths = {saves ? saved : old};
  if (saves || loads) {
    onNextModal<Dateien>(this, [&](Dateien& window) {
      if (saves) window.Command1->click();
      QCOMPARE(window.isVisible(), cancelled || loads);
      window.Command2->click();
    });
  }
  const bool ends = command == "close"_L1 && answer == Button::kNein;
  if (command == "load"_L1) mask.press(Qt::Key_O, Qt::ControlModifier);
  if (command == "restart"_L1) mask.press(Qt::Key_N, Qt::ControlModifier);
  if (command == "close"_L1) QCOMPARE(mask.window.close(), ends);
  QCOMPARE(mask.desktop.ended, ends ? 1 : 0);
  QCOMPARE(bytesOf(saved).contains("1,500,"), saves && !cancelled);
  const bool gone = loads || (command == "restart"_L1 && answer == Button::kNein);
  const bool unsaved = !gone && (!saves || cancelled);
  QCOMPARE(mask.program.record.flag[flag::kStatus], unsaved ? u"1"_s : QString());
  const QString other = loads ? u"420,0000"_s : QString();
  QCOMPARE(mask.window.Text1(1).text(), gone ? other : u"500,0000"_s);
}

void StorageWindowsTest::theFileDialogsSpeakGermanAndAskBeforeReplacing() {
  QTemporaryDir folder;
  for (const auto* name : {"da.cva", "fremd.txt"}) {
    put(folder.filePath(QLatin1String(name)), "alt");
  }
  Mask mask;
  RealDesktop desktop;
  const auto save = [](QFileDialog& dialog) {
    QTest::keyClick(dialog.findChild<QLineEdit*>(u"fileNameEdit"_s), Qt::Key_Return);
  };
  onNextModal<QFileDialog>(this, [&](QFileDialog& dialog) {
    QCOMPARE(dialog.labelText(QFileDialog::LookIn), u"Suchen in:"_s);
    QCOMPARE(dialog.nameFilters(), QStringList{u"Calvora-Dateien (*.cva)"_s});
    QCOMPARE(dialog.directory().canonicalPath(), QDir(folder.path()).canonicalPath());
    onNextModal<QMessageBox>(&dialog, [](QMessageBox& question) {
      QVERIFY2(
          question.text().contains(u"da.cva"_s) && question.text().contains(u"überschrieben"_s),
          qPrintable(question.text()));
      question.button(QMessageBox::No)->click();
    });
    save(dialog);
    QVERIFY(dialog.isVisible());
    dialog.reject();
  });
  QVERIFY(!desktop.askSaveFile(&mask.window, {folder.path(), u"cva"_s, u"da.cva"_s}));
  // The extension comes later, with a question of our own.
  onNextModal<QFileDialog>(this, save);
  QCOMPARE(desktop.askSaveFile(&mask.window, {folder.path(), u"cva"_s, u"neu"_s}),
           folder.filePath(u"neu"_s));
}

CALVORA_TEST_MAIN(StorageWindowsTest)
#include "storage_windows_test.moc"
