// The data folder and the company line through the real windows.
#include <QClipboard>
#include <QListWidget>
#include <QTemporaryDir>

#include "storage/settings.h"
#include "storage/windows/datenpfad.h"
#include "storage/windows/firma.h"
#include "support/window_support.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

const QString kSaved = u" Daten wurden gespeichert !"_s;
const QString kGone = joinedLines({u"Der Voreingestellte Pfad existiert nicht !"_s,
                                   {},
                                   u"Stellen Sie einen Pfad ein, wo die Daten"_s,
                                   u"gespeichert werden sollen."_s});

QString confirmation(const QString& folder) {
  return joinedLines({u"folgender Pfad wird zur Ablage der                   "_s,
                      u"Daten gespeichert:"_s,
                      {},
                      folder});
}

/// A program folder with the folders "daten", "Werte", ".versteckt" and one that no settings file
/// can name, and the main window over it.
struct House {
  House() {
    for (const auto& name : {u"daten"_s, u"Werte/Werte"_s, u".versteckt"_s, u"Вода"_s}) {
      QVERIFY(QDir(folder.path()).mkpath(name));
    }
    QDir::setCurrent(folder.path());
    mask.program.settings = {};
  }

  template <class Window>
  Window& open() {
    auto* window = new Window(mask.program, mask.questions, &mask.window);
    window->show();
    window->activateWindow();
    [&] { QVERIFY(QTest::qWaitForWindowActive(window)); }();
    mask.settle();
    return *window;
  }

  Mask mask;
  QTemporaryDir& folder = mask.folder;
};

void click(datenpfad& window, const QString& entry, bool twice = false) {
  QListWidgetItem* found = nullptr;
  for (QListWidgetItem* item : window.Dir1->findItems(entry, Qt::MatchEndsWith)) found = item;
  QVERIFY2(found != nullptr, qPrintable(entry));
  const QPoint place = window.Dir1->visualItemRect(found).center();
  QTest::mouseClick(window.Dir1->viewport(), Qt::LeftButton, {}, place);
  if (!twice) return;
  QTest::mouseDClick(window.Dir1->viewport(), Qt::LeftButton, {}, place);
}

void type(firma& window, int line, const QString& text) {
  window.Text1(line).setFocus();
  QTest::keyClicks(&window.Text1(line), text);
}

}  // namespace

class SettingsWindowsTest : public QObject {
  Q_OBJECT

 private slots:
  void theDataFolderIsChosenAndKept();
  void aFolderThatCannotBeKeptIsRefused();
  void onlyFoldersThatUsersSeeAreListed();
  void aFolderThatIsNotSavedCountsForThisRun();
  void theCompanyLineIsKept();
  void onlyAKeyLetsTheCompanyLineBeSaved_data();
  void onlyAKeyLetsTheCompanyLineBeSaved();
};

void SettingsWindowsTest::theDataFolderIsChosenAndKept() {
  House house;
  auto& window = house.open<datenpfad>();
  QCOMPARE(window.Label3(1).text(), house.folder.filePath(u"daten"_s));
  QVERIFY(!window.Command1(1).isEnabled());
  click(window, QFileInfo(house.folder.path()).fileName());
  click(window, u"Werte"_s, true);  // not on into the folder that the first click brought there
  const QString chosen = house.folder.filePath(u"Werte"_s);
  QCOMPARE(window.Label3(2).text(), chosen);
  house.mask.questions.expect(confirmation(chosen), Button::kAbbrechen);
  window.Command1(1).click();
  QCOMPARE(house.mask.program.settings.slot[setting::kDataFolder], QString());
  house.mask.questions.expect(confirmation(chosen));
  house.mask.questions.expect(joinedLines(
      {u" Der eingegebene Pfad wurde als künftiger "_s, u"Speicherort  gespeichert !"_s}));
  window.Command1(1).click();
  // The next start of the program finds it.
  Program later;
  later.programFolder = house.folder.path();
  const main next(later, house.mask.questions, house.mask.desktop);
  QCOMPARE(later.settings.slot[setting::kDataFolder], chosen);
}

void SettingsWindowsTest::aFolderThatCannotBeKeptIsRefused() {
  House house;
  auto& window = house.open<datenpfad>();
  click(window, QFileInfo(house.folder.path()).fileName());
  click(window, u"Вода"_s);
  house.mask.questions.expect(
      joinedLines({u" Der Name dieses Ordners enthält Zeichen, die nicht "_s,
                   u" gespeichert werden können. Wählen Sie einen anderen ! "_s}));
  window.Command1(1).click();
  click(window, QFileInfo(house.folder.path()).fileName());
  click(window, u"Werte"_s);
  QVERIFY(QDir(house.folder.filePath(u"Werte"_s)).removeRecursively());
  house.mask.questions.expect(kGone);
  window.Command1(1).click();
  QVERIFY(window.isVisible());
  QCOMPARE(house.mask.program.settings.slot[setting::kDataFolder], QString());
}

void SettingsWindowsTest::onlyFoldersThatUsersSeeAreListed() {
  House house;
  house.mask.program.settings.slot[setting::kDataFolder] = u"C:\\"_s;  // a bare drive
  auto& window = house.open<datenpfad>();
  QCOMPARE(window.Label3(1).text(), house.folder.filePath(u"daten"_s));
  click(window, QFileInfo(house.folder.path()).fileName());
  QVERIFY(!window.Dir1->findItems(u"Werte"_s, Qt::MatchEndsWith).isEmpty());
  QVERIFY(window.Dir1->findItems(u".versteckt"_s, Qt::MatchEndsWith).isEmpty());
  QVERIFY(window.Drive1->currentIndex() >= 0);
  const int root = window.Drive1->findText(u"/"_s);
  QVERIFY(root >= 0);
  window.Drive1->setCurrentIndex(root);
  emit window.Drive1->activated(root);
  QCOMPARE(window.Label3(2).text(), u"/"_s);
  QCOMPARE(window.Drive1->currentText(), u"/"_s);
  // A second call brings up the window that is open.
  house.mask.window.mnu2_pfad->trigger();
  const auto lists = house.mask.window.findChildren<QListWidget*>();
  QCOMPARE(std::ranges::count_if(lists, &QWidget::isVisible), 1);
}

void SettingsWindowsTest::aFolderThatIsNotSavedCountsForThisRun() {
  House house;
  Mask& mask = house.mask;
  mask.program.settings.slot[setting::kDataFolder] = u"/gibt/es/nicht"_s;
  mask.questions.expect(kGone);
  auto& window = house.open<datenpfad>();
  QVERIFY(window.isVisible());
  mask.program.programFolder = u"/gibt/es/nicht"_s;
  window.Dir1->setFocus();
  QTest::keyClick(window.Dir1, Qt::Key_Enter);
  const QString chosen = window.Label3(2).text();
  mask.questions.expect(confirmation(chosen));
  window.Command1(1).click();
  QCOMPARE(std::exchange(mask.questions.errors, {}), QStringList{u"75 dateien\\inispeichern"_s});
  QVERIFY(window.isVisible());
  mask.window.mnu_neustart->trigger();
  QCOMPARE(mask.program.settings.slot[setting::kDataFolder], chosen);
}

void SettingsWindowsTest::theCompanyLineIsKept() {
  House house;
  auto& window = house.open<firma>();
  QVERIFY(!window.Command1(1).isEnabled());
  type(window, 0, u"Wasser\""_s);
  QTest::keyClick(&window.Text1(0), Qt::Key_Up);
  QCOMPARE(window.focusWidget(), &window.Text1(3));
  QTest::keyClick(&window.Text1(3), Qt::Key_Enter);
  QCOMPARE(window.focusWidget(), &window.Text1(0));
  type(window, 3, u"Hof|9"_s);
  QCOMPARE(window.Text1(4).text(), u"Wasser       Hof/9"_s);  // no room for lines that are empty
  house.mask.questions.expect(kSaved);
  window.Command1(1).click();
  QVERIFY(!window.isVisible());
  const QString& printLine = house.mask.program.settings.slot[setting::kPrintLine];
  QCOMPARE(printLine, u"Wasser               Hof/9"_s);
  Settings read;
  readSettings(read, house.folder.path());
  QCOMPARE(read.slot[setting::kPrintLine], printLine);
  auto& again = house.open<firma>();
  QCOMPARE(again.Text1(3).text(), u"Hof/9"_s);
  QCOMPARE(again.Label3(1).text(), QString::number(115 - printLine.size()));
  // What cannot be saved is reported, and printed for the rest of the run.
  house.mask.program.programFolder = u"/gibt/es/nicht"_s;
  type(again, 3, u"b"_s);
  again.Command1(1).click();
  QCOMPARE(std::exchange(house.mask.questions.errors, {}),
           QStringList{u"75 dateien\\inispeichern"_s});
  QCOMPARE(printLine, u"Wasser               Hof/9b"_s);
  // What is too long is not saved at all.
  again.Text1(0).insert(QString(100, 'A'_L1));
  QCOMPARE(again.Label3(1).text(), u"0"_s);
  house.mask.questions.expect(joinedLines({u"Der eingegebne Text ist zu lang"_s,
                                           u" Es können max. 115 Zeichen (inkl. Leerzeichen)"_s,
                                           u"eingegeben werden !"_s}));
  again.Command1(1).click();
  QVERIFY(again.isVisible());
  QCOMPARE(printLine, u"Wasser               Hof/9b"_s);
}

void SettingsWindowsTest::onlyAKeyLetsTheCompanyLineBeSaved_data() {
  QTest::addColumn<QString>("way");
  QTest::addColumn<bool>("saves");
  QTest::newRow("with the mouse") << u"mouse"_s << false;
  QTest::newRow("Ctrl+V") << u"keys"_s << true;
  QTest::newRow("Shift+Insert") << u"insert"_s << true;
  QTest::newRow("a key that is swallowed") << u"swallowed"_s << true;
}

void SettingsWindowsTest::onlyAKeyLetsTheCompanyLineBeSaved() {
  QFETCH(QString, way);
  QFETCH(bool, saves);
  House house;
  auto& window = house.open<firma>();
  QGuiApplication::clipboard()->setText(u"Quelle"_s);
  window.Text1(0).setFocus();
  if (way == "keys"_L1) {
    QTest::keyClick(&window.Text1(0), Qt::Key_V, Qt::ControlModifier);
  } else if (way == "insert"_L1) {
    QTest::keyClick(&window.Text1(0), Qt::Key_Insert, Qt::ShiftModifier);
  } else {
    window.Text1(0).paste();
  }
  if (way == "swallowed"_L1) QTest::keyClicks(&window.Text1(0), u"\""_s);
  QCOMPARE(window.Text1(4).text(), u"Quelle"_s + QString(7, ' '_L1));
  if (saves) house.mask.questions.expect(kSaved);
  window.Command1(1).click();
  QCOMPARE(window.isVisible(), !saves);
  if (saves) return;
  window.Command1(2).click();
  QVERIFY(!window.isVisible());
}

CALVORA_TEST_MAIN(SettingsWindowsTest)
#include "settings_windows_test.moc"
