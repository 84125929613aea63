// Saving, loading and settings through the real windows.
#include <QClipboard>
#include <QFile>
#include <QTemporaryDir>

#include "storage/dateien.h"
#include "storage/datenpfad.h"
#include "storage/firma.h"
#include "storage/line_file.h"
#include "support/window_support.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

const QString kSaveQuestion = u" Daten vorher speichern ?"_s;

QByteArray contentOf(const QString& path) {
  QFile file(path);
  return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("missing");
}

void writeFile(const QString& path, const QByteArray& content) {
  QFile file(path);
  QVERIFY(file.open(QFile::WriteOnly));
  file.write(content);
}

const QByteArray kSmallFile =
    "\"brunnen\"\r\n\"Projekt A\"\r\n\"7\"\r\n\"Probe\"\r\n\"Kunde\"\r\n\"03.02.2026\"\r\n"
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
  void loadingAsksForUnsavedChanges_data();
  void loadingAsksForUnsavedChanges();
  void headerFieldsFilterWhatBreaksAFile();
  void theDataFolderIsChosenAndKept();
  void theCompanyLineIsKept();
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
      QTest::keyClicks(field, u" x "_s);
      QTest::keyClick(field, Qt::Key_Enter);
    }
    QCOMPARE(window.focusWidget(), window.Text7);
    QTest::keyClicks(window.Text7, u"Wasser aus dem Keller"_s);
    QTest::keyClick(window.Text7, Qt::Key_Enter);
    QCOMPARE(window.focusWidget(), window.Command1);
    QTest::keyClick(window.Command1, Qt::Key_Enter);
  });
  mask.press(Qt::Key_S, Qt::ControlModifier);
  QCOMPARE(
      contentOf(folder.filePath(u"brunnen.cva"_s)),
      QByteArray("\"brunnen\"\r\n\"Projekt A\"\r\n\"x\"\r\n\"x\"\r\n\"x\"\r\n\"22.11.2026\"\r\n"
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
}

void StorageWindowsTest::aSaveThatFailsLeavesTheWindowOpen() {
  QFETCH(QString, name);
  QFETCH(bool, told);
  QTemporaryDir folder;
  QVERIFY(QDir(folder.path()).mkpath(u"ordner.cva/darin"_s));
  Mask mask;
  mask.enter(1, u"420"_s);
  if (!name.isEmpty()) mask.desktop.paths = {folder.filePath(name)};
  onNextModal<Dateien>(this, [&](Dateien& window) {
    if (name == "lang.cva"_L1) window.Text7->setPlainText(QString(70000, 'x'_L1));
    window.Command1->click();
    QVERIFY(window.isVisible());
    QCOMPARE(window.findChild<QLabel*>(u"failure"_s)->isVisible(), told);
    window.Command2->click();
  });
  mask.press(Qt::Key_S, Qt::ControlModifier);
  QCOMPARE(mask.program.record.flag[flag::kStatus], u"1"_s);
  QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
           QStringList{u"ordner.cva"_s});
}

void StorageWindowsTest::anotherExtensionIsReplaced_data() {
  QTest::addColumn<QString>("chosen");
  QTest::addColumn<QString>("written");
  QTest::addColumn<int>("answer");
  QTest::newRow("none") << u"probe"_s << u"probe.cva"_s << 0;
  QTest::newRow("another") << u"probe.txt.alt"_s << u"probe.cva"_s << 0;
  QTest::newRow("a folder with a point") << u"ab.cd/probe"_s << u"ab.cd/probe.cva"_s << 0;
  QTest::newRow("onto an existing file") << u"da.txt"_s << u"da.cva"_s << button::kJa;
  QTest::newRow("not onto an existing file") << u"da.txt"_s << QString() << button::kNein;
}

void StorageWindowsTest::anotherExtensionIsReplaced() {
  QFETCH(QString, chosen);
  QFETCH(QString, written);
  QFETCH(int, answer);
  QTemporaryDir folder;
  QVERIFY(QDir(folder.path()).mkpath(u"ab.cd"_s));
  writeFile(folder.filePath(u"da.cva"_s), "alt");
  Mask mask;
  mask.enter(1, u"420"_s);
  mask.desktop.paths = {folder.filePath(chosen)};
  if (answer != 0) {
    mask.questions.expect(
        u" Die Datei \n\r da.cva\n\r ist schon vorhanden. Soll sie ersetzt werden ? "_s, answer);
  }
  onNextModal<Dateien>(this, [](Dateien& window) {
    window.Command1->click();
    if (window.isVisible()) window.reject();
  });
  mask.press(Qt::Key_S, Qt::ControlModifier);
  if (written.isEmpty()) {
    QCOMPARE(contentOf(folder.filePath(u"da.cva"_s)), QByteArray("alt"));
  } else {
    QVERIFY(contentOf(folder.filePath(written)).endsWith("999,0,0\r\n"));
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
  writeFile(path, kSmallFile);
  Mask mask;
  mask.focus(20);
  mask.focus(1);  // the field last left is the total hardness
  mask.desktop.paths = {folder.filePath(u"gibt es nicht.cva"_s), path};
  onNextModal<Dateien>(this, [](Dateien& window) {
    QCOMPARE(window.Text4->text(), u"Kunde"_s);
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
  QByteArray badDate = kSmallFile;
  badDate.replace("03.02.2026", "31.02.2026");
  QTest::newRow("cut in a record")
      << kSmallFile.left(kSmallFile.indexOf("23,60") + 3) << u"420,0000"_s;
  QTest::newRow("cut in the header") << kSmallFile.left(40) << QString();
  QTest::newRow("a date that is none") << badDate << u"420,0000"_s;
}

void StorageWindowsTest::loadingTellsWhatItCouldNotRead() {
  QFETCH(QByteArray, content);
  QTemporaryDir folder;
  writeFile(folder.filePath(u"a.cva"_s), content);
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
  writeFile(path, kSmallFile);
  Mask mask;
  mask.desktop.paths = {path, path};
  onNextModal<Dateien>(this, [](Dateien& window) { window.Command1->click(); });
  mask.press(Qt::Key_O, Qt::ControlModifier);
  QCOMPARE(mask.desktop.requests.back().proposed, u"brunnen"_s);
  QCOMPARE(contentOf(path).left(kSmallFile.indexOf("1,420")),
           kSmallFile.left(kSmallFile.indexOf("1,420")));
  // What cannot be opened leaves the analysis that is there, and says so.
  mask.desktop.paths = {folder.path()};
  mask.questions.expect(u" Die Datei konnte nicht vollständig gelesen werden ! "_s);
  mask.activate();
  mask.press(Qt::Key_O, Qt::ControlModifier);
  QCOMPARE(mask.window.Text1(1).text(), u"420,0000"_s);
  QCOMPARE(mask.program.header[1], u"Projekt A"_s);
}

void StorageWindowsTest::theExamplesLoadWithoutAMessage() {
  const QFileInfoList examples = QDir(QStringLiteral(CALVORA_EXAMPLES)).entryInfoList(QDir::Files);
  QVERIFY(examples.size() >= 4);
  for (const QFileInfo& example : examples) {
    Mask mask;
    mask.desktop.paths = {example.filePath()};
    onNextModal<Dateien>(this, [](Dateien& window) { window.reject(); });
    mask.press(Qt::Key_O, Qt::ControlModifier);
    QVERIFY(!mask.window.Label2(11).text().isEmpty());
  }
}

void StorageWindowsTest::loadingAsksForUnsavedChanges_data() {
  QTest::addColumn<int>("answer");
  QTest::addColumn<bool>("asksForFile");
  QTest::newRow("drop") << button::kNein << true;
  QTest::newRow("cancel") << button::kAbbrechen << false;
}

void StorageWindowsTest::loadingAsksForUnsavedChanges() {
  QFETCH(int, answer);
  Mask mask;
  mask.enter(1, u"420"_s);
  mask.questions.expect(kSaveQuestion, answer);
  mask.press(Qt::Key_O, Qt::ControlModifier);  // the file dialog is cancelled
  QTEST(!mask.desktop.requests.empty(), "asksForFile");
  QCOMPARE(mask.window.Text1(1).text(), u"420,0000"_s);
  QCOMPARE(mask.program.record.flag[flag::kStatus], u"1"_s);
}

void StorageWindowsTest::headerFieldsFilterWhatBreaksAFile() {
  Mask mask;
  Dateien window(mask.program, mask.questions, mask.desktop, &mask.window);
  window.show();
  window.activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&window));
  window.Text1->setFocus();
  QTest::keyClicks(window.Text1, u"a \"b\"~c"_s);
  window.Text1->insert(u"\"ä€\""_s);
  QCOMPARE(window.Text1->text(), u"a bcä"_s);
  // What came with a file stays as it is.
  window.Text2->showText(u"Große Straße, Café"_s);
  window.Text2->setFocus();
  QTest::keyClicks(window.Text2, u"x"_s);
  QVERIFY(window.Text2->text().contains(u"Große Straße, Café"_s));
  window.Text7->setFocus();
  QTest::keyClicks(window.Text7, u"eins \"zwei\""_s);
  QGuiApplication::clipboard()->setText(u"\ndrei \"vier\""_s);
  window.Text7->paste();
  QCOMPARE(window.Text7->toPlainText(), u"eins zwei drei vier"_s);
  QTest::keyClick(window.Text7, Qt::Key_Tab);
  QCOMPARE(window.focusWidget(), window.Command1);
}

void StorageWindowsTest::theDataFolderIsChosenAndKept() {
  QTemporaryDir folder;
  QVERIFY(QDir(folder.path()).mkpath(u"daten"_s) && QDir(folder.path()).mkpath(u"Werte"_s));
  Mask mask;
  mask.program.settings = {};
  mask.program.programFolder = folder.path();
  auto* window = new datenpfad(mask.program, mask.questions, &mask.window);
  window->show();
  QCOMPARE(window->Label3(1).text(), folder.filePath(u"daten"_s));
  QVERIFY(!window->Command1(1).isEnabled());
  const auto open = [&](const QString& name) {
    for (QListWidgetItem* entry : window->Dir1->findItems(name, Qt::MatchEndsWith)) {
      const QRect place = window->Dir1->visualItemRect(entry);
      QTest::mouseClick(window->Dir1->viewport(), Qt::LeftButton, {}, place.center());
      return;
    }
    QFAIL("the folder is not in the list");
  };
  open(QFileInfo(folder.path()).fileName());
  open(u"Werte"_s);
  const QString chosen = folder.filePath(u"Werte"_s);
  QCOMPARE(window->Label3(2).text(), chosen);
  const QString confirm = joinedLines({u"folgender Pfad wird zur Ablage der                   "_s,
                                       u"Daten gespeichert:"_s,
                                       {},
                                       chosen});
  mask.questions.expect(confirm, button::kAbbrechen);
  window->Command1(1).click();
  QCOMPARE(mask.program.settings.slot[setting::kDataFolder].isEmpty(), true);
  mask.questions.expect(confirm);
  mask.questions.expect(joinedLines(
      {u" Der eingegebene Pfad wurde als künftiger "_s, u"Speicherort  gespeichert !"_s}));
  window->Command1(1).click();
  Settings read;
  readSettings(read, folder.path());
  QCOMPARE(read.slot[setting::kDataFolder], chosen);

  // A folder that is gone is told, and another one can be chosen.
  mask.program.settings.slot[setting::kDataFolder] = u"/gibt/es/nicht"_s;
  mask.questions.expect(joinedLines({u"Der Voreingestellte Pfad existiert nicht !"_s,
                                     {},
                                     u"Stellen Sie einen Pfad ein, wo die Daten"_s,
                                     u"gespeichert werden sollen."_s}));
  auto* second = new datenpfad(mask.program, mask.questions, &mask.window);
  second->show();
  mask.settle();
  QVERIFY(second->isVisible());
  // A program folder that cannot be written is reported, and the new folder counts for this run.
  mask.program.programFolder = u"/gibt/es/nicht"_s;
  second->Dir1->setFocus();
  QTest::keyClick(second->Dir1, Qt::Key_Enter);
  mask.questions.expect(joinedLines({u"folgender Pfad wird zur Ablage der                   "_s,
                                     u"Daten gespeichert:"_s,
                                     {},
                                     second->Label3(2).text()}));
  const QString current = second->Label3(2).text();
  second->Command1(1).click();
  QCOMPARE(std::exchange(mask.questions.errors, {}), QStringList{u"75 dateien\\inispeichern"_s});
  QCOMPARE(mask.program.settings.slot[setting::kDataFolder], current);
  mask.window.mnu_neustart->trigger();
  QCOMPARE(mask.program.settings.slot[setting::kDataFolder], current);
  // A second call brings up the window that is open.
  mask.window.mnu2_pfad->trigger();
  mask.window.mnu2_pfad->trigger();
  const auto lists = mask.window.findChildren<QListWidget*>();
  QCOMPARE(std::ranges::count_if(lists, &QWidget::isVisible), 1);
}

void StorageWindowsTest::theCompanyLineIsKept() {
  QTemporaryDir folder;
  Mask mask;
  mask.program.programFolder = folder.path();
  auto* window = new firma(mask.program, mask.questions, &mask.window);
  window->show();
  window->activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(window));
  QVERIFY(!window->Command1(1).isEnabled());
  QCOMPARE(window->Label3(1).text(), u"115"_s);
  // Text that came without a key shows in the preview, but saves nothing.
  window->Text1(0).insert(QString(100, 'A'_L1));
  QCOMPARE(window->Label3(1).text(), u"8"_s);
  window->Command1(1).click();
  QVERIFY(window->isVisible());
  window->Text1(0).setFocus();
  QTest::keyClicks(&window->Text1(0), u"B"_s);
  QTest::keyClick(&window->Text1(0), Qt::Key_Up);
  QCOMPARE(window->focusWidget(), &window->Text1(3));
  mask.questions.expect(joinedLines({u"Der eingegebne Text ist zu lang"_s,
                                     u" Es können max. 115 Zeichen (inkl. Leerzeichen)"_s,
                                     u"eingegeben werden !"_s}));
  window->Command1(1).click();  // 101 + 7 + 4 + 4 = 116
  window->Text1(0).setFocus();
  window->Text1(0).end(false);
  QTest::keyClick(&window->Text1(0), Qt::Key_Backspace);
  mask.questions.expect(u" Daten wurden gespeichert !"_s);
  window->Command1(1).click();
  Settings read;
  readSettings(read, folder.path());
  QCOMPARE(read.segments[0], QString(100, 'A'_L1) + QString(7, ' '_L1));
  QCOMPARE(read.slot[setting::kPrintLine], mask.program.settings.slot[setting::kPrintLine]);
  QCOMPARE(read.slot[setting::kPrintLine].size(), 115);
}

CALVORA_TEST_MAIN(StorageWindowsTest)
#include "storage_windows_test.moc"
